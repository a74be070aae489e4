'use strict';

cases('proxies', {
  'as the second argument': (t) => {
    app.sendMessage('up', t.traced(t.make(100), 'proxy'));
    app.sendMessage('up', new Proxy([], {}));
  },
  'nested': (t) => {
    const proxy = t.traced(t.make(100), 'proxy');
    app.sendMessage('up', [proxy]);
    app.sendMessage('up', t.make(100, (i) => i % 10 ? i : proxy));
    app.sendMessage('up', t.make(100, () => [proxy]));
    app.sendMessage('up', t.make(100, () => proxy));
  },
  'at each place': (t) => {
    const proxy = t.traced(t.make(20), 'proxy');
    for (let place = 0; place < 20; ++place) {
      app.sendMessage('up', t.make(20, (i) => i === place ? proxy : [i]));
    }
  },
  'among many arrays': (t) => {
    const proxy = t.traced(t.make(20), 'proxy');
    for (const size of [63, 64, 65, 127, 128, 129, 1000]) {
      app.sendMessage('up', t.make(size, (i) => i % 9 === 8 ? proxy : [i, [i]]));
      app.sendMessage('up', t.make(size, (i) => i === size - 1 ? proxy : [i]));
    }
  },
  'revoked': (t) => {
    const {proxy, revoke} = Proxy.revocable([1, 2], {});
    revoke();
    app.sendMessage('up', proxy);
    app.sendMessage('up', t.make(100, (i) => i % 10 ? i : proxy));
    app.sendMessage('up', t.make(100, () => [proxy, [proxy]]));
  },
  'revoked by a getter': (t) => {
    const {proxy, revoke} = Proxy.revocable([1, 2], {});
    const array = t.make(100, (i) => i % 10 ? i : proxy);
    app.sendMessage('up', t.getter(array, 45, revoke));
  },
  'of a Proxy': (t) => {
    const proxy = t.traced(t.traced(t.make(20), 'inner'), 'outer');
    app.sendMessage('up', t.make(20, () => proxy));
  },
  'of functions and objects': (t) => {
    const call = t.traced(() => 1, 'function');
    const object = t.traced({length: 1, 0: 1}, 'object');
    app.sendMessage('up', t.make(100, (i) => i % 2 ? call : object));
  },
  'as the result of a getter': (t) => {
    const proxy = t.traced(t.make(20), 'proxy');
    app.sendMessage('up', t.getter(t.make(100), 50, () => proxy));
  },
  'as the prototype of an array': (t) => {
    const array = new Array(20);
    array[3] = 3;
    Object.setPrototypeOf(array, t.traced([0, 1, 2, 'from the target'], 'prototype'));
    app.sendMessage('up', array);
    app.sendMessage('up', t.make(20, () => array));
  },
  'as the prototype of a full array': (t) => {
    app.sendMessage('up', Object.setPrototypeOf(t.make(100), t.traced([], 'prototype')));
    const nested = t.make(20, (i) => Object.setPrototypeOf([i, 'a', 1.5], t.traced([], 'nested')));
    app.sendMessage('up', nested);
  },
  'as the prototype, with traps that throw': (t) => {
    const proxy = new Proxy([], new Proxy({}, {get(target, trap) { throw new Error(trap); }}));
    const array = Object.setPrototypeOf(t.make(20), proxy);
    delete array[5];
    delete array[15];
    app.sendMessage('up', array);
  },
  'as the prototype, revoked': (t) => {
    const {proxy, revoke} = Proxy.revocable([], {});
    const array = Object.setPrototypeOf(t.make(20), proxy);
    delete array[5];
    revoke();
    app.sendMessage('up', array);
  },
  'as the prototype of Array.prototype': (t) => {
    const arrays = [new Array(20), t.make(20), t.make(20, (i) => [i, 0.5, , i])];
    Object.setPrototypeOf(Array.prototype, t.traced({7: 'seven'}, 'prototype'));
    for (let i = 0; i < 3; ++i) app.sendMessage('up', arrays[i]);
  },
  'as the prototype of Array.prototype, for received arrays': async (t) => {
    const list = t.make(20, (i) => i % 5 ? i : [i, [0.5]]);
    Object.setPrototypeOf(Array.prototype, t.traced(Object.prototype, 'prototype'));
    await t.down(['a', 1, [2.5, null]]);
    await t.down(list);
  },
  'as the prototype of Array.prototype, with traps that throw': async (t) => {
    const full = t.make(20, (i) => [i]);
    const list = t.make(20, (i) => [i, 'a', 0.5][i % 3]);
    Object.setPrototypeOf(Array.prototype, new Proxy({}, {
      get(target, name) { throw new Error(`get ${String(name)}`); },
      set(target, name) { throw new Error(`set ${String(name)}`); },
    }));
    app.sendMessage('up', new Array(20));
    app.sendMessage('up', full);
    app.setMessageCallback('down', (name, array) => t.log('received', array));
    await t.post('down', [1, 'a', [2, 3]]);
    await t.post('down', list);
  },
  'as the prototype of Array.prototype, with a set trap that refuses': async (t) => {
    const set = (target, name) => { t.log('set', String(name)); return false; };
    const list = t.make(20);
    Object.setPrototypeOf(Array.prototype, new Proxy({}, {set}));
    await t.down(list);
  },
  'sees no name of the packing': (t) => {
    const names = new Set();
    const array = t.make(100, (i) => [i, `${i}`, i / 2, [i], i % 2 === 0, {}][i % 6]);
    const handler = {get: (object, trap) => (...parameters) => {
      names.add(`${trap} ${String(parameters[1])}`);
      return Reflect[trap](...parameters);
    }};
    for (const constructor of [Array, String, Number, Boolean, Function, Map, Error]) {
      const proxy = new Proxy(Object.prototype, new Proxy({}, handler));
      Object.setPrototypeOf(constructor.prototype, proxy);
    }
    names.clear();
    app.sendMessage('up', array);
    t.log('names', names.size);
  },
  'of the receiver and of the function': (t) => {
    const send = t.traced(app.sendMessage, 'function');
    send('up', t.make(100));
    t.traced(app, 'app').sendMessage('up', t.make(100));
  },
});
