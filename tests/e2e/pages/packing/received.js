'use strict';

cases('received', {
  'all kinds of the host': async (t) => {
    app.setMessageCallback('down', (name, array) => t.log('received', array));
    app.sendMessage('host.sendKinds', ['down']);
    await t.settled();
    for (const size of [...t.sizes, 300]) await t.deliverKinds('down', size);
  },
  'arrays are those of the frame': async (t) => {
    app.setMessageCallback('down', (name, array) => {
      t.log('array', array instanceof Array, array.constructor === Array, array[0] instanceof Array,
            Object.getPrototypeOf(array[20][1]) === Array.prototype);
      t.log('keys', Object.keys(array).length, Object.getOwnPropertySymbols(array).length);
      array.push('more');
      array[0].push('more');
      array.length = 3;
      t.log('changed', array);
    });
    await t.post('down', t.make(40, (i) => [i, [0.5]]));
    await t.post('down', t.make(4, (i) => [i, [0.5]]).concat(t.make(30, () => [1, []])));
  },
  'each call has its own array': async (t) => {
    const arrays = [];
    app.setMessageCallback('down', (name, array) => arrays.push(array) > 0);
    await t.post('down', t.make(20, (i) => [i]));
    await t.post('down', t.make(20, (i) => [i]));
    t.log('own', arrays[0] !== arrays[1], arrays[0][0] !== arrays[1][0]);
    arrays[0][0] = 'changed';
    t.log('arrays', ...arrays);
  },
  'arguments and receiver of the callback': async (t) => {
    app.setMessageCallback('down', function(...parameters) {
      t.log('arguments', parameters.length, parameters[0], this === window);
      t.log('array', parameters[1]);
    });
    await t.post('down', t.make(100));
    app.removeMessageCallback('down');
    app.setMessageCallback('down', function() {
      'use strict';
      t.log('strict', this === undefined, arguments.length);
    });
    await t.post('down', t.make(100));
  },
  'caller of the callback': async (t) => {
    app.setMessageCallback('down', function callback() {
      t.log('caller', callback.caller === null, arguments.callee === callback);
      t.log(t.stack(new Error('e')));
    });
    await t.post('down', t.make(100));
    await t.post('down', t.make(3));
  },
  'prepared stack trace of the callback': async (t) => {
    Error.prepareStackTrace = (error, sites) => sites.map((site) => [site.getFunctionName(),
      site.getFileName(), site.getLineNumber(), site.getColumnNumber()].join()).join(' | ');
    app.setMessageCallback('down', function callback() { t.log(new Error('e').stack); });
    await t.post('down', t.make(100));
  },
  'return values': async (t) => {
    for (const value of [true, false, undefined, 1, 'true', new Boolean(true)]) {
      app.setMessageCallback('down', () => value);
      await t.post('down', t.make(40));
      t.log('removed', app.removeMessageCallback('down'));
    }
  },
  'callback that throws': async (t) => {
    app.setMessageCallback('down', (name, array) => { throw new Error(`${array.length}`); });
    await t.post('down', t.make(40));
    await t.post('down', t.make(4));
    window.onerror = () => true;
    await t.post('down', t.make(40));
  },
  'callback that removes itself': async (t) => {
    app.setMessageCallback('down', (name, array) => {
      t.log('removed', app.removeMessageCallback('down'), array);
    });
    await t.post('down', t.make(40));
    await t.post('down', t.make(40));
  },
  'callback that removes its frame': (t) => {
    app.setMessageCallback('down', (name, array) => {
      frameElement.remove();
      t.log('received', array);
      app.sendMessage('up', array);
    });
    return t.post('down', t.make(40, (i) => [i, 'a']));
  },
  'callbacks of two frames': async (t) => {
    const frame = await t.addFrame();
    frame.contentWindow.app.setMessageCallback('other', frame.contentWindow.eval(`(name, array) => {
      app.sendMessage('up', [array instanceof Array, array[0] instanceof Array,
                             array instanceof parent.Array, array.length]);
    }`));
    await t.post('other', t.make(40, (i) => [i]));
    await t.down(t.make(40, (i) => [i]));
    frame.remove();
    await t.post('other', t.make(40));
  },
  'function of another frame': async (t) => {
    const frame = await t.addFrame();
    const callback = frame.contentWindow.eval(`(name, array) => {
      parent.results.push(array instanceof Array);
    }`);
    const parentWindow = frame.ownerDocument.defaultView;
    parentWindow.results = [];
    app.setMessageCallback('down', callback);
    await t.post('down', t.make(40));
    await t.post('down', t.make(4));
    t.log('results', ...parentWindow.results);
    frame.remove();
    await t.post('down', t.make(40));
    t.log('results', ...parentWindow.results);
  },
  'callables': async (t) => {
    const log = (label) => (name, array) => t.log(label, array);
    const callables = [log('arrow').bind(null), t.traced(log('proxy'), 'callback'),
      async (name, array) => { await null; t.log('async', array); },
      function* () { t.log('never'); }, class { constructor() { t.log('never'); } }];
    for (const callable of callables) {
      app.setMessageCallback('down', callable);
      await t.post('down', t.make(40));
      app.removeMessageCallback('down');
    }
  },
  'native functions as callbacks': async (t) => {
    for (const callable of [Array.of, JSON.stringify, Object.freeze, String.raw, app.sendMessage]) {
      app.setMessageCallback('down', callable);
      await t.post('down', t.make(40));
      app.removeMessageCallback('down');
    }
  },
  'empty lists': async (t) => {
    await t.down([]);
    await t.down(t.make(17, () => []));
    app.setMessageCallback('down', (name, array) => t.log('received', array));
    await t.post('down', undefined);
    await t.post('down', null);
  },
  'names': async (t) => {
    for (const name of ['a', 'length', '__proto__', '\u20ac\0', 'x'.repeat(1000)]) {
      await t.down(t.make(20), name);
    }
  },
  'order of messages of different sizes': async (t) => {
    app.setMessageCallback('down', (name, array) => t.log('received', array.length, array[0]));
    const parentWindow = parent;
    for (let i = 1; i < 40; ++i) {
      parentWindow.app.sendMessage('host.send', ['down', t.make(i % 2 ? i : i * 50, () => i)]);
    }
    await t.settled();
  },
  'microtasks of the callback': async (t) => {
    app.setMessageCallback('down', () => {
      Promise.resolve().then(() => t.log('task'));
      t.log('callback');
      return true;
    });
    await t.post('down', t.make(40));
    await t.post('down', t.make(4));
  },
  'kinds of elements do not matter to later writes': async (t) => {
    app.setMessageCallback('down', (name, array) => {
      array[0] = 'text';
      array[1] = 0.5;
      array[2] = {};
      delete array[3];
      array[array.length + 5] = 1;
      t.log('changed', array);
    });
    await t.post('down', t.make(40));
    await t.post('down', t.make(40, (i) => i / 2));
    await t.post('down', t.make(40, String));
  },
});
