'use strict';

cases('getters', {
  'each index runs once and in order': (t) => {
    for (const size of t.sizes) {
      const order = [];
      const array = t.make(size);
      for (let i = 0; i < size; ++i) t.getter(array, i, () => order.push(i) * 2);
      app.sendMessage('up', array);
      t.log('order', order);
    }
  },
  'one getter at each place': (t) => {
    const order = [];
    for (const place of [0, 1, 2, 7, 8, 15, 16, 17, 31, 32, 33, 62, 63, 64, 65, 66, 97, 98, 99]) {
      app.sendMessage('up', t.getter(t.make(100), place, () => order.push(place) + 0.5));
    }
    t.log('order', order);
  },
  'receiver is the array': (t) => {
    const array = t.make(100);
    t.getter(array, 50, function(...parameters) {
      t.log('receiver', this === array, parameters.length, new.target === undefined);
      return 'got';
    });
    app.sendMessage('up', array);
  },
  'strict receiver': (t) => {
    const array = t.make(100);
    t.getter(array, 50, function() {
      'use strict';
      t.log('receiver', this === array);
    });
    app.sendMessage('up', array);
  },
  'results of every kind': (t) => {
    const kinds = [1, 2.5, 'a', true, null, undefined, -0, [1, [2]], {}, () => 1, Symbol('s'), NaN];
    const array = t.make(120);
    for (let i = 0; i < 120; ++i) t.getter(array, i, () => kinds[i % 12]);
    app.sendMessage('up', array);
  },
  'throws': (t) => {
    app.sendMessage('up', t.getter(t.make(100), 50, () => { throw new Error('from a getter'); }));
    app.sendMessage('up', t.make(20));
  },
  'throws things that are not errors': (t) => {
    const things = [1, 'text', null, undefined, {toString() { t.log('toString'); return 'o'; }}];
    for (const thing of things) {
      app.sendMessage('up', t.getter(t.make(100), 50, () => { throw thing; }));
    }
  },
  'throws at several places': (t) => {
    for (const step of [7, 16, 50]) {
      const array = t.make(100);
      for (let i = 0; i < 100; i += step) t.getter(array, i, () => { throw new Error(`at ${i}`); });
      app.sendMessage('up', array);
    }
  },
  'throws at the first and the last place': (t) => {
    for (const size of [1, 10, 16, 17, 65, 10000]) {
      const array = t.make(size);
      t.getter(array, 0, () => { throw new Error('first'); });
      t.getter(array, size - 1, () => { throw new Error('last'); });
      app.sendMessage('up', array);
    }
  },
  'throws once': (t) => {
    let calls = 0;
    const array = t.getter(t.make(100), 20, () => {
      if (++calls === 1) throw new Error('once');
      return 'again';
    });
    app.sendMessage('up', array);
    app.sendMessage('up', array);
    t.log('calls', calls);
  },
  'throws in nested arrays': (t) => {
    const inner = t.getter(t.make(30), 10, () => { throw new Error('inner'); });
    app.sendMessage('up', t.make(30, (i) => i % 10 === 5 ? inner : i));
    app.sendMessage('up', [[[[inner]]]]);
    app.sendMessage('up', t.make(5, () => [inner, 1]));
  },
  'handler that throws': (t) => {
    let calls = 0;
    window.onerror = () => {
      ++calls;
      throw new Error('from the handler');
    };
    app.sendMessage('up', t.getter(t.make(100), 50, () => { throw new Error('from a getter'); }));
    t.log('calls', calls);
  },
  'handler that hides the error': (t) => {
    window.onerror = (message, source, line) => {
      t.log(`onerror ${message} ${line}`);
      return true;
    };
    const array = t.make(100);
    for (const i of [3, 30, 60]) t.getter(array, i, () => { throw new Error(`at ${i}`); });
    app.sendMessage('up', array);
  },
  'handler that sends': (t) => {
    window.onerror = () => {
      app.sendMessage('from the handler', t.make(30));
      return true;
    };
    const array = t.make(100);
    for (const i of [3, 30, 60]) t.getter(array, i, () => { throw new Error(`at ${i}`); });
    app.sendMessage('up', array);
  },
  'error event': (t) => {
    window.onerror = null;
    window.addEventListener('error', (event) => {
      t.log(`${event.message} ${event.lineno}:${event.colno}`, event.error instanceof Error);
      t.log(t.stack(event.error));
      event.preventDefault();
    });
    app.sendMessage('up', t.getter(t.make(100), 50, () => { throw new Error('from a getter'); }));
  },
  'throws inside a try block of the page': (t) => {
    const array = t.getter(t.make(100), 50, () => { throw new Error('from a getter'); });
    try {
      t.log('returns', app.sendMessage('up', array));
    } catch (error) {
      t.log('caught', String(error));
    } finally {
      t.log('finally');
    }
  },
  'nested arrays': (t) => {
    const order = [];
    const array = t.make(40, (i) => {
      const inner = t.make(20, (k) => `${i} ${k}`);
      t.getter(inner, 0, () => order.push(`${i} first`));
      t.getter(inner, 19, () => order.push(`${i} last`));
      return inner;
    });
    for (let i = 0; i < 40; i += 3) {
      const inner = array[i];
      t.getter(array, i, () => { order.push(`outer ${i}`); return inner; });
    }
    app.sendMessage('up', array);
    t.log('order', order);
  },
  'getter that gives a new array with getters': (t) => {
    const order = [];
    const make = (depth) => t.getter(t.make(20), 10, () => {
      order.push(depth);
      return depth < 30 ? make(depth + 1) : 'end';
    });
    app.sendMessage('up', make(0));
    t.log('order', order);
  },
  'setter without a getter': (t) => {
    const array = t.make(100);
    Object.defineProperty(array, 40, {set() { t.log('set'); }, enumerable: true});
    app.sendMessage('up', array);
  },
  'properties that are not enumerable': (t) => {
    const array = t.make(100);
    Object.defineProperty(array, 40, {value: 'hidden', enumerable: false});
    Object.defineProperty(array, 41, {get: () => 'hidden too', enumerable: false});
    app.sendMessage('up', array);
  },
  'class with getters of indexes': (t) => {
    class Special extends Array {
      get 3() { t.log('get 3'); return 'three'; }
      get 150() { t.log('get 150'); return 'never'; }
    }
    const array = new Special(100);
    app.sendMessage('up', array);
    array[1] = 1;
    app.sendMessage('up', array);
  },
  'native getters': (t) => {
    const array = t.make(100);
    const size = Object.getOwnPropertyDescriptor(Map.prototype, 'size').get;
    t.getter(array, 10, size);
    t.getter(array, 20, Function.prototype);
    t.getter(array, 30, (() => 'bound').bind(null));
    t.getter(array, 40, new Proxy(() => 'proxy', {}));
    t.getter(array, 50, Object.getOwnPropertyDescriptor(Object.prototype, '__proto__').get);
    app.sendMessage('up', array);
  },
  'stack trace': (t) => {
    const array = t.getter(t.make(100), 50, function getter() { t.log(t.stack(new Error('e'))); });
    (function sender() { app.sendMessage('up', array); })();
    app.sendMessage('up', [[t.make(30, () => array)[3]]]);
  },
  'stack trace of what it throws': (t) => {
    window.onerror = (message, source, line, column, error) => {
      t.log(t.stack(error));
      return true;
    };
    const array = t.getter(t.make(100), 50, function getter() { throw new Error('e'); });
    (function sender() { app.sendMessage('up', array); })();
  },
  'prepared stack trace': (t) => {
    Error.prepareStackTrace = (error, sites) => {
      const own = sites.filter((site) => !/harness/.test(site.getFileName()));
      return own.map((site) => [site.getFunctionName(), site.getFileName(), site.getLineNumber(),
        site.getColumnNumber(), typeof site.getThis(), typeof site.getFunction(), site.isEval(),
        site.isNative(), site.isToplevel(), site.getTypeName()].join()).join(' | ');
    };
    const array = t.getter(t.make(100), 50, function getter() { t.log(new Error('e').stack); });
    (function sender() { app.sendMessage('up', array); })();
    const throwing = t.getter(t.make(100), 50, function getter() { throw new Error('e'); });
    app.sendMessage('up', throwing);
  },
  'prepared stack trace counts its calls': (t) => {
    let calls = 0;
    Error.prepareStackTrace = () => ++calls;
    for (const size of t.sizes) app.sendMessage('up', t.make(size, (i) => i % 2 ? i : `${i}`));
    app.sendMessage('up', t.getter(t.make(100), 50, () => { throw new Error('e'); }));
    t.log('calls', calls);
  },
  'stack traces without a limit': (t) => {
    Error.stackTraceLimit = 1000;
    const array = t.getter(t.make(100), 50, () => t.log(t.stack(new Error('e'))));
    app.sendMessage('up', array);
    Error.stackTraceLimit = 0;
    app.sendMessage('up', array);
  },
  'caller': (t) => {
    const array = t.make(100);
    t.getter(array, 50, function getter() {
      t.log('caller', getter.caller === null, getter.caller === app.sendMessage);
      t.log('callee', arguments.callee.caller === getter.caller, arguments.length);
      const sender = getter.caller && getter.caller.caller;
      t.log('sender', sender && sender.name);
    });
    (function sender() { app.sendMessage('up', array); })();
    app.sendMessage('up', t.make(30, (i) => i === 20 ? array : i));
  },
  'walk along the callers': (t) => {
    const array = t.make(100);
    t.getter(array, 50, function getter() {
      const names = [];
      for (let f = getter; f && names.length < 10; f = f.caller) names.push(f.name || String(f));
      t.log('callers', names.slice(0, 3).join(' | '));
    });
    (function sender() { app.sendMessage('up', array); })();
  },
  'arguments of the callers': (t) => {
    const array = t.make(100);
    t.getter(array, 50, function getter() {
      const caller = getter.caller;
      t.log('arguments', caller && caller.arguments.length, caller && caller.arguments[0]);
    });
    (function sender(first) { app.sendMessage('up', array); return first; })('argument');
  },
  'getter at many places of a large array': (t) => {
    const array = t.make(10000);
    let sum = 0;
    for (const i of [0, 1, 15, 16, 63, 64, 65, 127, 128, 4095, 4096, 8191, 9998, 9999]) {
      t.getter(array, i, () => { sum = sum * 31 + i | 0; return `${i}`; });
    }
    app.sendMessage('up', array);
    t.log('sum', sum);
  },
  'thousand getters that throw': (t) => {
    let calls = 0;
    window.onerror = () => { ++calls; return true; };
    const array = t.make(1000, String);
    for (let i = 0; i < 1000; ++i) t.getter(array, i, () => { throw i; });
    app.sendMessage('up', array);
    t.log('calls', calls);
  },
  'generator and async getters': (t) => {
    const array = t.make(100);
    t.getter(array, 10, function* () { t.log('never'); });
    t.getter(array, 20, async () => { t.log('async'); });
    app.sendMessage('up', array);
    t.log('sent');
  },
  'microtasks of getters': async (t) => {
    const array = t.make(100);
    for (const i of [10, 20, 90]) {
      t.getter(array, i, () => { Promise.resolve().then(() => t.log('task', i)); return i; });
    }
    app.sendMessage('up', array);
    t.log('sent');
    await t.settled();
  },
  'microtasks of getters that run in a callback': async (t) => {
    const array = t.make(100);
    t.getter(array, 10, () => { Promise.resolve().then(() => t.log('task')); return 'got'; });
    app.setMessageCallback('down', () => {
      app.sendMessage('up', array);
      t.log('sent');
      return true;
    });
    await t.post('down', []);
  },
});
