'use strict';

cases('numbers', {
  'ints of each size': (t) => {
    for (const size of t.sizes) app.sendMessage('up', t.make(size, (i) => i * 3 - 7));
  },
  'doubles of each size': (t) => {
    for (const size of t.sizes) app.sendMessage('up', t.make(size, (i) => i / 3 - 7.5));
  },
  'ints and doubles in turn': (t) => {
    for (const size of t.sizes) app.sendMessage('up', t.make(size, (i) => i % 2 ? i / 2 : -i));
  },
  'one double among ints': (t) => {
    for (const place of [0, 1, 15, 16, 17, 63, 64, 65, 98, 99]) {
      app.sendMessage('up', t.make(100, (i) => i === place ? 0.5 : i));
    }
  },
  'powers of two and their neighbors': (t) => {
    for (const sign of [1, -1]) {
      for (const offset of [-1, 0, 1, 0.5]) {
        app.sendMessage('up', t.make(66, (i) => sign * 2 ** i + offset));
      }
    }
  },
  'edges of 32 bits': (t) => {
    const edges = [2147483646, 2147483647, 2147483648, 2147483649, 4294967294, 4294967295,
      4294967296, 4294967297, -2147483647, -2147483648, -2147483649, -4294967295, -4294967296];
    app.sendMessage('up', edges);
    app.sendMessage('up', t.make(130, (i) => edges[i % 13]));
  },
  'zeros': (t) => {
    app.sendMessage('up', [0, -0, 0.0, -0.0]);
    app.sendMessage('up', t.make(100, (i) => i % 2 ? 0 : -0));
    app.sendMessage('up', t.make(100, () => -0));
    app.sendMessage('up', t.make(100, () => [-0]));
  },
  'numbers that are not finite': (t) => {
    const numbers = [NaN, Infinity, -Infinity, -NaN];
    app.sendMessage('up', numbers);
    for (const number of numbers) app.sendMessage('up', t.make(100, () => number));
  },
  'NaN of different bits': (t) => {
    const bits = new Uint32Array(200);
    for (let i = 0; i < 200; i += 2) {
      bits[i] = i * 7919;
      bits[i + 1] = (i % 4 ? 0x7ff80000 : 0xfff00000) + i + 1;
    }
    const numbers = new Float64Array(bits.buffer);
    app.sendMessage('up', t.make(100, (i) => numbers[i]));
  },
  'denormals and the largest': (t) => {
    const numbers = [5e-324, -5e-324, 1e-310, 2.2250738585072009e-308, 2.2250738585072014e-308,
      1e300, -1e300, 1.7976931348623157e308, 2 ** 53, 2 ** 53 + 2, 2 ** 63, -(2 ** 63), 2 ** 64];
    app.sendMessage('up', numbers);
    app.sendMessage('up', t.make(130, (i) => numbers[i % 13]));
    app.sendMessage('up', t.make(1000, (i) => 1.1 ** (i * 7 - 3500)));
  },
  'doubles of random bits': (t) => {
    const bits = new Uint32Array(2000);
    for (let i = 0, seed = 1; i < 2000; ++i) bits[i] = seed = Math.imul(seed, 1664525) + 1013904223;
    const numbers = new Float64Array(bits.buffer);
    app.sendMessage('up', t.make(1000, (i) => numbers[i]));
  },
  'decimal fractions': (t) => {
    app.sendMessage('up', t.make(100, (i) => 0.1 * i));
    app.sendMessage('up', t.make(100, (i) => i / 10));
  },
  'integral doubles': (t) => {
    app.sendMessage('up', t.make(100, (i) => Math.sqrt(i * i)));
    app.sendMessage('up', t.make(100, (i) => new Float64Array([i])[0]));
    app.sendMessage('up', t.make(100, (i) => (i + 0.5) * 2));
  },
  'array that was of another kind before': (t) => {
    const array = t.make(100);
    array[0] = 0.5;
    array[0] = 'a';
    array[0] = 0;
    app.sendMessage('up', array);
  },
  'numbers come back': async (t) => {
    for (const size of [1, 9, 10, 11, 16, 17, 100]) {
      await t.down(t.make(size, (i) => i - 5));
      await t.down(t.make(size, (i) => i / 7));
      await t.down(t.make(size, (i) => i % 3 ? -i : -0.0));
    }
  },
  'edges come back': async (t) => {
    await t.down(t.make(66, (i) => 2 ** i));
    await t.down(t.make(66, (i) => -(2 ** i) - 1));
    await t.down(t.make(64, () => NaN));
    await t.down(t.make(64, (i) => 5e-324 * i));
    await t.down(t.make(64, (i) => 1.7976931348623157e308 / (i + 1)));
  },
});
