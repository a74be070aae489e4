'use strict';

// Calls functions with little stack left. The number of calls differs between runs, so messages named
// "deep" count once for each content.

cases('stack', {
  'sends at every depth': (t) => {
    const array = t.make(40, (i) => [i, 'a', 0.5][i % 3]);
    t.log('calls', t.atEveryDepth(120, () => app.sendMessage('deep', array)));
  },
  'sends nested arrays at every depth': (t) => {
    const array = t.make(20, (i) => [i, ['a', [0.5]]]);
    t.atEveryDepth(120, () => app.sendMessage('deep', array));
  },
  'sends large arrays at every depth': (t) => {
    const array = t.make(1000, (i) => [i, `${i}`, i / 3][i % 3]);
    let returned = 0;
    (function deeper(...padding) {
      try {
        deeper(1, 2, 3, ...padding.slice(0, 5));
      } catch (error) {
        if (!(error instanceof RangeError)) t.log(`throws ${error}`);
      }
      if (returned === 60) return;
      try {
        app.sendMessage('deep', array);
        ++returned;
      } catch (error) {
        if (!(error instanceof RangeError)) t.log(`throws ${error}`);
      }
    })();
  },
  'sends on the way down': (t) => {
    const array = t.make(40, (i) => [i, 'a', 0.5][i % 3]);
    let depth = 0;
    const deeper = () => {
      if (++depth > 3000) app.sendMessage('deep', array);
      deeper();
    };
    try {
      deeper();
    } catch (error) {
      t.log('RangeError', error instanceof RangeError);
    }
    app.sendMessage('up', array);
  },
  'window.onerror is not called': (t) => {
    let errors = 0;
    window.onerror = () => { ++errors; };
    const array = t.make(100, (i) => [i, `${i}`]);
    t.atEveryDepth(200, () => app.sendMessage('deep', array));
    t.log('errors', errors);
  },
  'getters that use up the stack': (t) => {
    const deeper = () => deeper();
    const array = t.make(100);
    for (const i of [3, 50]) t.getter(array, i, deeper);
    app.sendMessage('up', array);
    app.sendMessage('up', t.make(100));
  },
  'getter that catches the end of the stack': (t) => {
    const deeper = () => deeper();
    const array = t.getter(t.make(100), 50, () => {
      try {
        deeper();
      } catch (error) {
        return `caught ${error instanceof RangeError}`;
      }
    });
    app.sendMessage('up', array);
  },
  'getter that sends at the end of the stack': (t) => {
    const array = t.make(40, String);
    const outer = t.getter(t.make(100), 50, () => {
      t.atEveryDepth(60, () => app.sendMessage('deep', array));
      return 'sent';
    });
    app.sendMessage('up', outer);
  },
  'callback that sends at the end of the stack': async (t) => {
    app.setMessageCallback('down', (name, array) => {
      t.atEveryDepth(60, () => app.sendMessage('deep', array));
      return true;
    });
    await t.post('down', t.make(40, (i) => [i]));
    await t.down(t.make(20));
  },
  'array that sends itself until the end of the stack': (t) => {
    let errors = 0;
    window.onerror = () => { errors = 1; return true; };
    const array = t.getter(t.make(20), 10, () => {
      app.sendMessage('itself', array);
      return 'sent';
    });
    app.sendMessage('itself', array);
    app.sendMessage('up', t.make(20));
  },
  'setter that uses up the stack': async (t) => {
    const deeper = () => deeper();
    Object.defineProperty(Array.prototype, 3, {set: deeper, configurable: true});
    app.setMessageCallback('down', (name, array) => t.log('received', array));
    await t.post('down', [0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19]);
  },
});
