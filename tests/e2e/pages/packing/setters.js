'use strict';

// Setters that arrays inherit run while the arguments of a callback are created.
{
  // LIST and ACTION are placeholders for code of the case. The setters of the indexes 0, 5 and 17 run
  // ACTION with `array`, `index` and `value`.
  const run = (t) => {
    const list = LIST;
    const {setMessageCallback} = app;
    const log = (label, value) => t.log(label, value);
    const action = function(array, value, index) { ACTION; };
    const define = Object.defineProperty;
    let setting = true;
    for (const index of [0, 5, 17]) {
      define(Array.prototype, index, {
        set(value) { if (setting) action(this, value, index); },
        configurable: true,
      });
    }
    setMessageCallback('down', (name, array) => {
      setting = false;
      for (const index of [0, 5, 17]) delete Array.prototype[index];
      t.log('received', array);
    });
    return t.post('down', list);
  };

  const codes = {
    'log': 'log(`set ${index}`, value)',
    'log what is there already': 'log(`set ${index} ${Object.keys(array)} ${array.length}`, value)',
    'keep the value': 'Object.defineProperty(array, index, {value, writable: true, ' +
        'enumerable: true, configurable: true})',
    'keep another value': 'Object.defineProperty(array, index, {value: "another"})',
    'throw': 'log("throws", index); throw new Error(`set ${index}`)',
    'throw once': 'if (!window.thrown) { window.thrown = true; throw new Error(`set ${index}`); }',
    'remove itself': 'log("set", index); delete Array.prototype[index]',
    'remove all setters': 'log("set", index); ' +
        'for (const i of [0, 5, 17]) delete Array.prototype[i]',
    'remove the frame': 'log("set", index); if (window.frameElement) frameElement.remove()',
    'remove the frame and throw': 'log("set", index); ' +
        'if (window.frameElement) frameElement.remove(); throw new Error("e")',
    'remove the frame at the last index': 'log("set", index); ' +
        'if (index === 17 && window.frameElement) frameElement.remove()',
    'navigate': 'log("set", index); location.href = "about:blank"',
    'rewrite the document': 'log("set", index); if (!window.done) { window.done = true; ' +
        'document.open(); document.write("rewritten"); document.close(); }',
    'send': 'app.sendMessage("from a setter", [index, value])',
    'send the array': 'app.sendMessage("from a setter", array)',
    'register': 'app.setMessageCallback("down", () => log("never", 0)); log("set", index)',
    'unregister': 'log("removed", app.removeMessageCallback("down"))',
    'freeze the array': 'log("set", index); Object.freeze(array)',
    'seal the array': 'log("set", index); Object.seal(array)',
    'prevent extensions': 'log("set", index); Object.preventExtensions(array)',
    'empty the array': 'log("set", index); array.length = 0',
    'shorten the array': 'log("set", index); array.length = 10',
    'lengthen the array': 'log("set", index); array.length = 100',
    'push': 'log("set", index); array.push("pushed")',
    'fix the length': 'Object.defineProperty(array, "length", {writable: false})',
    'take the prototype away': 'log("set", index); Object.setPrototypeOf(array, null)',
    'give it a Proxy as a prototype': 'log("set", index); ' +
        'Object.setPrototypeOf(array, t.traced(Array.prototype, "prototype"))',
    'define a setter of a later index': 'log("set", index); ' +
        'Object.defineProperty(array, index + 1, ' +
        '{set(v) { log(`own ${index + 1}`, v); }, configurable: true})',
    'define a later value that is fixed': 'log("set", index); ' +
        'Object.defineProperty(array, index + 1, {value: "fixed"})',
    'define a later value': 'log("set", index); ' +
        'Object.defineProperty(array, index + 1, {value: "mine", writable: true})',
    'define an earlier value': 'if (index) array[index - 1] = "late"; log("set", index)',
    'change the value': 'if (Array.isArray(value)) value.push("changed"); ' +
        'Object.defineProperty(array, index, {value, configurable: true})',
    'add setters': 'log("set", index); Object.defineProperty(Array.prototype, index + 2, ' +
        '{set(v) { log(`later ${index + 2}`, v); }, configurable: true})',
    'stack': 'log(t.stack(new Error("e")))',
    'caller': 'log(`caller ${arguments.callee.caller && arguments.callee.caller.name} ' +
        '${arguments.callee.caller.caller === null}`)',
    'tamper': 'log("set", index); JSON.parse = () => log("JSON.parse"); ' +
        'Array.prototype.push = () => log("push"); Array.isArray = () => log("isArray")',
    'microtask': 'Promise.resolve().then(() => log("task", index)); log("set", index)',
    'same array': 'window.seen = window.seen || new Set(); seen.add(array); ' +
        'log(`arrays ${seen.size} ${index}`)',
  };

  const lists = {
    'ints': 't.make(20)',
    'mixed': 't.make(20, (i) => [i, i / 2 + 0.25, `s${i}`, null][i % 4])',
    'nested': 't.make(20, (i) => i % 5 ? i : [i, [i]])',
    'few': 't.make(7, (i) => i % 5 ? i : [i, [i]])',
  };

  const functions = {};
  for (const name of Object.keys(codes)) {
    for (const kind of Object.keys(lists)) {
      const text = String(run).replace('LIST', lists[kind]).replace('ACTION', codes[name]);
      functions[`${name}, ${kind}`] = text;
    }
  }
  cases('setters', functions);
}

cases('setters', {
  'of Object.prototype': async (t) => {
    for (const index of [0, 5, 50]) {
      Object.defineProperty(Object.prototype, index, {
        set(value) { t.log(`set ${index} ${this.length}`, value); },
        configurable: true,
      });
    }
    app.setMessageCallback('down', (name, array) => t.log('received', array));
    await t.deliverKinds('down', 100);
  },
  'with getters': async (t) => {
    Object.defineProperty(Array.prototype, 5, {
      get() { t.log('get'); return 'got'; },
      set(value) { t.log('set', value); },
      configurable: true,
    });
    app.setMessageCallback('down', (name, array) => {
      t.log('element', array[5]);
      app.sendMessage('up', array);
    });
    await t.post('down', ['0', 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19]);
  },
  'getters without setters': async (t) => {
    Object.defineProperty(Array.prototype, 5, {get() { t.log('get'); return 'got'; }});
    await t.deliverKinds('down', 3);
    app.setMessageCallback('down', (name, array) => t.log('received', array));
    for (const size of [6, 20, 100]) await t.deliverKinds('down', size);
  },
  'of each index': async (t) => {
    let order = '';
    for (let i = 0; i < 200; ++i) {
      Object.defineProperty(Array.prototype, i, {set() { order += `${i} `; }});
    }
    app.setMessageCallback('down', (name, array) => t.log('received', array));
    await t.deliverKinds('down', 200);
    t.log(order);
  },
  'order of nested arrays': async (t) => {
    let text = '';
    for (let i = 0; i < 20; ++i) {
      Object.defineProperty(Array.prototype, i, {set(value) { text += `${i}:${typeof value} `; }});
    }
    app.setMessageCallback('down', () => t.log(text));
    await t.deliverKinds('down', 20);
  },
});
