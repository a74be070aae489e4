'use strict';

const proxies = new WeakSet();  // proxies of arrays, which scripts cannot distinguish from arrays

function newProxy() {
  const proxy = new Proxy([1], {});
  proxies.add(proxy);
  return proxy;
}

// Generates random arrays of every kind of element. The seed determines the arrays.
class Random {
  constructor(seed) {
    this.state = seed;
    this.readings = [];  // the numbers of the getters that have run, in order
    this.getters = 0;
  }

  next() {
    this.state = this.state + 0x6d2b79f5 | 0;
    let bits = Math.imul(this.state ^ this.state >>> 15, 1 | this.state);
    bits = bits + Math.imul(bits ^ bits >>> 7, 61 | bits) ^ bits;
    return (bits ^ bits >>> 14) >>> 0;
  }

  // Returns an integer from 0 to limit - 1.
  below(limit) {
    return this.next() % limit;
  }

  of(choices) {
    return choices[this.below(choices.length)];
  }

  int() {
    return this.of([() => this.below(10), () => -this.below(1000), () => this.next() | 0,
      () => this.next(), () => 2 ** this.below(54) * this.of([1, -1]) + this.below(3) - 1])();
  }

  double() {
    const bits = new Uint32Array([this.next(), this.next()]);
    return this.of([() => this.below(1000) / 8, () => this.next() / 3, () => -0, () => NaN,
      () => -Infinity, () => new Float64Array(bits.buffer)[0], () => 5e-324 * this.below(9)])();
  }

  unit() {
    return String.fromCharCode(this.of([
      () => this.below(128), () => this.below(256), () => this.below(65536), () => 0,
      () => 0xd800 + this.below(1024), () => 0xdc00 + this.below(1024), () => 0x2028, () => 0xffff,
    ])());
  }

  string() {
    const length = this.of([0, 1, 2, 3, 5, 8, 15, 16, 17, this.below(300)]);
    if (this.below(2)) return 'abcdefgh'.repeat(length / 8 + 1).slice(0, length);
    let string = '';
    for (let i = 0; i < length; ++i) string += this.unit();
    return string;
  }

  // Returns a value that becomes null.
  other() {
    return this.of([() => null, () => undefined, () => ({}), () => Symbol('s'), () => () => 1,
      () => new Date(0), newProxy, () => new Number(1), () => new Int8Array(3),
      () => ({length: 2, 0: 1})])();
  }

  size(depth) {
    const kind = this.below(100);
    if (depth === 0 && kind === 0) return this.below(2000);
    if (kind < 25) return this.below(70 >> depth);
    return this.below(20 >> depth);
  }

  element(depth, kind) {
    if (kind < 30) return this.int();
    if (kind < 45) return this.double();
    if (kind < 70) return this.string();
    if (kind < 78) return this.below(2) === 1;
    if (kind < 86 || depth > 6) return this.other();
    return this.array(depth + 1);
  }

  // Makes element `index` an accessor.
  addGetter(array, index) {
    const number = ++this.getters;
    const value = this.below(5) ? array[index] : undefined;
    const get = () => {
      this.readings.push(number);
      if (value === undefined) throw new Error('from a getter');
      return value;
    };
    Object.defineProperty(array, index, {get, configurable: true});
    getters.set(get, {number, value});
  }

  array(depth) {
    const size = this.size(depth);
    const array = this.below(20) ? [] : new (class extends Array {})();
    const uniform = this.below(3) ? null : this.below(100);  // all elements are of the same kind
    for (let i = 0; i < size; ++i) {
      array[i] = this.element(depth, uniform === null ? this.below(100) : uniform);
    }
    for (let i = 0; i < size; ++i) {
      const change = this.below(200);
      if (change < 2) delete array[i];
      else if (change === 2) this.addGetter(array, i);
    }
    const change = this.below(100);
    if (change === 0) array.length += this.below(30);
    else if (change === 1) Object.freeze(array);
    return array;
  }
}
