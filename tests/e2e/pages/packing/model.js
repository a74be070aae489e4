'use strict';

// Computes the array that must come back from the host. Applies the documented rule for each kind
// of element and calls no getters.

const getters = new Map();  // the number and the value of each getter of random arrays

// The round trip to the browser replaces numbers that are not finite with 0, and lone surrogates with
// U+FFFD.
class Model {
  constructor() {
    this.kinds = '';  // n: null, b: boolean, i: int, d: double, s: string, [...]: list
    this.readings = [];
    this.errors = 0;
  }

  number(value) {
    const isInt = !Object.is(value, -0) && (value === (value | 0) || value === value >>> 0);
    this.kinds += isInt ? 'i' : 'd';
    if (isInt) return value | 0;
    return Number.isFinite(value) ? value : 0;
  }

  string(value) {
    this.kinds += 's';
    let string = '';
    for (const character of value) {
      string += /^[\ud800-\udfff]$/.test(character) ? '\ufffd' : character;
    }
    return string;
  }

  value(value) {
    if (typeof value === 'number') return this.number(value);
    if (typeof value === 'string') return this.string(value);
    if (value instanceof Array && !proxies.has(value)) return this.array(value);
    this.kinds += typeof value === 'boolean' ? 'b' : 'n';
    return typeof value === 'boolean' ? value : null;
  }

  element(array, index) {
    const own = Object.getOwnPropertyDescriptor(array, index);
    if (!own || !own.get) return this.value(own ? own.value : undefined);
    const {number, value} = getters.get(own.get);
    this.readings.push(number);
    if (value === undefined) ++this.errors;
    return this.value(value);
  }

  array(array) {
    this.kinds += '[';
    const result = [];
    for (let i = 0; i < array.length; ++i) result.push(this.element(array, i));
    this.kinds += ']';
    return result;
  }
}

// Returns whether `array` is a plain array with the elements of `expected`. Distinguishes -0 from
// 0.
function isSame(array, expected) {
  if (!Array.isArray(expected)) return Object.is(array, expected);
  if (Object.getPrototypeOf(array) !== Array.prototype) return false;
  if (array.length !== expected.length) return false;
  if (Object.getOwnPropertyNames(array).length !== expected.length + 1) return false;
  for (let i = 0; i < expected.length; ++i) {
    if (!isSame(array[i], expected[i])) return false;
  }
  return true;
}
