'use strict';

// Random arguments of messages, and their checksum: the counterpart of ../payload.py.

const kMaxText = 1 << 20;  // UTF-16 units
const kMaxElements = 20000;
const kLetters = [...'abcdefghijklmnopqrstuvwxyz 0123456789"\\\n\0äß€語'];
const kAstral = ['𝄞', '😀'];

// Returns a generator of numbers from 0 to 1 that depends on the seed alone.
function makeRandom(seed) {
  let state = seed | 0;
  return () => {
    state = state + 0x6d2b79f5 | 0;
    let mixed = Math.imul(state ^ state >>> 15, 1 | state);
    mixed = mixed + Math.imul(mixed ^ mixed >>> 7, 61 | mixed) ^ mixed;
    return ((mixed ^ mixed >>> 14) >>> 0) / 4294967296;
  };
}

function logUniform(random, limit) {
  return Math.floor(Math.exp(random() * Math.log(limit + 1))) - 1;
}

function choose(random, values) {
  return values[Math.floor(random() * values.length)];
}

function randomText(random, limit) {
  const length = logUniform(random, limit);
  const piece = Array.from({length: Math.min(length, 50)}, () => choose(random, kLetters)).join('');
  const text = piece.repeat(length / 50 + 1).slice(0, length);
  return length % 3 === 0 ? text + choose(random, kAstral) : text;
}

function randomInt(random) {
  return Math.floor(random() * 4294967296) - 2147483648;
}

function randomScalar(random) {
  switch (Math.floor(random() * 6)) {
    case 0: return randomInt(random);
    case 1: return (random() - 0.5) * 2e9 + 0.25;
    case 2: return choose(random, [-0, 0.5, 1e-300, Number.MAX_VALUE, 2 ** 53]);
    case 3: return random() < 0.5;
    case 4: return null;
    default: return randomText(random, 60);
  }
}

function randomPayload(random) {
  const array = (length, element) => Array.from({length}, () => element(random));
  const count = logUniform(random, kMaxElements);
  switch (Math.floor(random() * 7)) {
    case 0: return [];
    case 1: return [randomText(random, kMaxText)];
    case 2: return array(count, randomInt);
    case 3: return array(count, () => random() - 0.5);
    case 4: return array(Math.floor(count / 2), () => String(random()));
    case 5:
      return array(Math.floor(count / 12), () => array(Math.floor(random() * 12), randomScalar));
    default: return array(Math.floor(count / 4), randomScalar);
  }
}

const kTable = Uint32Array.from({length: 256}, (_, byte) => {
  for (let bit = 0; bit < 8; ++bit)
    byte = byte & 1 ? byte >>> 1 ^ 0xedb88320 : byte >>> 1;
  return byte;
});

class Checksum {
  constructor() {
    this.rest = -1;
    this.number = new DataView(new ArrayBuffer(8));
  }

  addByte(byte) { this.rest = this.rest >>> 8 ^ kTable[(this.rest ^ byte) & 255]; }

  addNumber(size) {
    for (let i = 0; i < size; ++i) this.addByte(this.number.getUint8(i));
  }

  addKind(letter, length) {
    this.addByte(letter.charCodeAt(0));
    if (length === undefined) return;
    this.number.setUint32(0, length, true);
    this.addNumber(4);
  }

  addDouble(value) {
    this.number.setFloat64(0, value, true);
    this.addNumber(8);
  }

  add(value) {
    if (value === null) {
      this.addKind('n');
    } else if (typeof value === 'boolean') {
      this.addKind(value ? 't' : 'f');
    } else if (typeof value === 'number') {
      this.addKind('d');
      this.addDouble(value);
    } else if (typeof value === 'string') {
      this.addKind('s', value.length);
      for (let i = 0; i < value.length; ++i) {
        const unit = value.charCodeAt(i);
        this.addByte(unit & 255);
        this.addByte(unit >>> 8);
      }
    } else if (value.length > 0 && value.every((element) => typeof element === 'number')) {
      this.addKind('a', value.length);
      for (const element of value) this.addDouble(element);
    } else {
      this.addKind('l', value.length);
      for (const element of value) this.add(element);
    }
    return this;
  }

  get value() { return ~this.rest >>> 0; }
}

// Returns a string, because integers of 2^31 and above do not arrive unchanged.
function checksum(value) {
  return String(new Checksum().add(value).value);
}
