'use strict';

cases('kinds', {
  'mixed of each size': (t) => {
    const kinds = [1, 2.5, 'a', true, null, undefined, false, -0, '', -1];
    for (const size of t.sizes) app.sendMessage('up', t.make(size, (i) => kinds[i % 10]));
  },
  'booleans, null and undefined of each size': (t) => {
    for (const size of t.sizes) {
      app.sendMessage('up', t.make(size, (i) => i % 3 === 0));
      app.sendMessage('up', t.make(size, () => null));
      app.sendMessage('up', t.make(size, () => undefined));
    }
  },
  'objects of the primitives': (t) => {
    app.sendMessage('up', t.make(30, (i) => [new Number(i), new String(i), new Boolean(i)][i % 3]));
    app.sendMessage('up', t.make(30, (i) => Object(Symbol(i))));
  },
  'objects': (t) => {
    const objects = [{}, {length: 3, 0: 1}, Object.create(null), () => 1, class {}, function* () {},
      Symbol('s'), new Date(0), /x/, new Map([[1, 2]]), new Set([1]), new WeakMap(), new Error('e'),
      Promise.resolve(1), JSON, Math, window, document, document.body, Symbol.iterator];
    app.sendMessage('up', objects);
    for (const object of objects) app.sendMessage('up', t.make(20, () => object));
  },
  'buffers and typed arrays': (t) => {
    const objects = [new ArrayBuffer(8), new DataView(new ArrayBuffer(8)), new Int8Array(20),
      new Uint8ClampedArray(20), new Uint16Array(20), new Float32Array(20), new Float64Array(20)];
    app.sendMessage('up', t.make(28, (i) => objects[i % 7]));
    for (const object of objects) app.sendMessage('up', object);
  },
  'objects that resemble arrays': (t) => {
    const like = {length: 20};
    for (let i = 0; i < 20; ++i) like[i] = i;
    const inherits = Object.create(t.make(20));
    const args = (function() { return arguments; })(...t.make(20));
    for (let i = 0; i < 20; ++i) document.body.appendChild(document.createElement('p'));
    const nodes = document.querySelectorAll('p');
    const objects = [like, inherits, args, nodes, document.all, document.body.children,
      document.body.classList, new String('as long as twenty bytes')];
    app.sendMessage('up', t.make(24, (i) => objects[i % 8]));
    for (const object of objects) app.sendMessage('up', object);
  },
  'conversions are not called': (t) => {
    const object = {
      toString() { t.log('toString'); return 'a'; },
      valueOf() { t.log('valueOf'); return 1; },
      toJSON() { t.log('toJSON'); return 1; },
      [Symbol.toPrimitive]() { t.log('toPrimitive'); return 1; },
      get length() { t.log('length'); return 1; },
      get [Symbol.toStringTag]() { t.log('tag'); return 'Array'; },
    };
    app.sendMessage('up', t.make(30, () => object));
    app.sendMessage('up', object);
    const array = t.make(30);
    array.toJSON = array.toString = array.valueOf = object.toJSON;
    Object.defineProperty(array, Symbol.toStringTag, {get() { t.log('tag'); }});
    app.sendMessage('up', t.make(30, () => array));
  },
  'second argument that is not an array': (t) => {
    for (const value of [undefined, null, 0, 1.5, '', 'abc', true, {}, () => 1, Symbol('s')]) {
      t.log('returns', app.sendMessage('up', value));
    }
    t.log('returns', app.sendMessage('up'));
  },
  'return value and more arguments': (t) => {
    t.log('returns', app.sendMessage('up', t.make(100)));
    t.log('returns', app.sendMessage('up', t.make(100), t.make(100)));
    t.log('length', app.sendMessage.length, app.sendMessage.name, String(app.sendMessage));
  },
  'wrong names': (t) => {
    const array = t.getter(t.make(100), 3, () => t.log('getter'));
    for (const name of ['', 5, null, undefined, {}, new String('up')]) {
      try {
        app.sendMessage(name, array);
      } catch (error) {
        t.log(t.stack(error), typeof error, error instanceof Error);
      }
    }
  },
  'name with odd units': (t) => {
    app.sendMessage('up\0\u20ac\ud83d', t.make(100));
  },
  'receiver does not matter': (t) => {
    const send = app.sendMessage;
    send('up', t.make(20));
    send.call(null, 'up', t.make(20));
    Reflect.apply(send, 5, ['up', t.make(20)]);
    send.bind({}, 'up', t.make(20))();
    Promise.resolve(t.make(20)).then((array) => send('up', array));
    return t.settled();
  },
  'kinds come back': async (t) => {
    const kinds = [1, 2.5, 'a', true, null, undefined, false, -0, '', [], [1, [2]]];
    for (const size of t.sizes) await t.down(t.make(size, (i) => kinds[i % 11]));
  },
  'one run of each kind after the other': (t) => {
    const kinds = [1, 2.5, 'a', true, null, [], [1], -0, false, undefined, 2 ** 31];
    app.sendMessage('up', t.make(1100, (i) => kinds[Math.floor(i / 100)]));
    app.sendMessage('up', t.make(187, (i) => kinds[Math.floor(i / 17)]));
  },
  'array is unchanged afterwards': (t) => {
    const array = t.make(100, (i) => [i, 'a', 0.5][i % 3]);
    const before = Object.freeze(array.slice());
    app.sendMessage('up', array);
    t.log('same', array.every((element, i) => Object.is(element, before[i])));
    t.log('array', array);
    t.log('names', Object.getOwnPropertyNames(array).length);
    t.log('symbols', Object.getOwnPropertySymbols(array).length);
  },
});
