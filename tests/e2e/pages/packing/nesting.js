'use strict';

cases('nesting', {
  'levels': (t) => {
    for (const levels of [1, 2, 15, 16, 17, 62, 63, 64, 65, 79, 80, 81, 97, 98, 99,
      100, 101, 102, 127, 128, 129, 150, 198]) {
      let array = ['innermost'];
      for (let i = 1; i < levels; ++i) array = [array];
      app.sendMessage('up', array);
    }
  },
  'levels of large arrays': (t) => {
    for (const levels of [79, 80, 97, 98, 99, 100, 101, 150, 198]) {
      let array = t.make(20);
      for (let i = 1; i < levels; ++i) array = t.make(20, (k) => k === 10 ? array : k / 2);
      app.sendMessage('up', array);
    }
  },
  'levels come back': async (t) => {
    for (const levels of [1, 2, 16, 17, 64, 80, 99, 100, 101, 150]) {
      let array = t.make(20);
      for (let i = 1; i < levels; ++i) array = t.make(20, (k) => k === 10 ? array : k);
      await t.down(array);
    }
  },
  'more levels come back': async (t) => {
    for (const levels of [97, 98, 99, 100, 101, 102, 150, 195]) {
      let ints = [1];
      let doubles = [0.5];
      for (let i = 1; i < levels; ++i) [ints, doubles] = [[ints], [doubles, i / 2]];
      await t.down(ints);
      await t.down(doubles);
    }
  },
  // Only the helper can create them: a message between processes has at most 200 levels.
  'levels without end': async (t) => {
    app.setMessageCallback('down', (name, array) => {
      let levels = 0;
      let last = null;
      for (let level = array; level; level = level[level.length - 1]) {
        ++levels;
        if (Object.getPrototypeOf(level) !== Array.prototype) t.log('foreign', levels);
        last = level;
      }
      t.log('levels', levels, last);
    });
    for (const levels of [1, 64, 80, 99, 100, 101, 102, 150, 200, 201, 300]) {
      await t.deliverLevels('down', levels, 0);
      await t.deliverLevels('down', levels, 20);
    }
  },
  'wide': async (t) => {
    const array = t.make(1000, (i) => t.make(10, (k) => i * 10 + k));
    app.sendMessage('up', array);
    await t.down(array);
  },
  'wide with doubles and strings': async (t) => {
    const array = t.make(300, (i) => t.make(10, (k) => k % 2 ? i / (k + 2) : `${i} ${k}`));
    app.sendMessage('up', array);
    await t.down(array);
  },
  'large arrays in a small one': async (t) => {
    const array = [t.make(1000), t.make(1000, (i) => `${i}`), t.make(1000, (i) => i + 0.5)];
    app.sendMessage('up', array);
    await t.down(array);
  },
  'small arrays in a large one': async (t) => {
    const array = t.make(1000, (i) => i % 10 ? i : [i]);
    app.sendMessage('up', array);
    await t.down(array);
  },
  'empty arrays': async (t) => {
    for (const size of t.sizes) app.sendMessage('up', t.make(size, () => []));
    await t.down(t.make(100, () => []));
    await t.down(t.make(100, (i) => i % 2 ? [[]] : [[], [[]]]));
    await t.down([]);
  },
  'tree': async (t) => {
    const tree = (depth) => depth ? [tree(depth - 1), depth, tree(depth - 1)] : 'leaf';
    app.sendMessage('up', tree(10));
    await t.down(tree(9));
  },
  'same array many times': async (t) => {
    const same = t.make(20, (i) => i % 2 ? i : 'x');
    app.sendMessage('up', t.make(500, () => same));
    const received = [];
    app.setMessageCallback('down', (name, array) => received.push(array) > 0);
    await t.post('down', t.make(20, () => same));
    t.log('distinct', new Set(received[0]).size, received[0] !== same);
  },
  'same array in itself, cut by a getter': (t) => {
    let depth = 0;
    const array = t.make(20);
    t.getter(array, 10, () => ++depth < 40 ? array : 'cut');
    app.sendMessage('up', array);
    t.log('depth', depth);
  },
  'doubles deep down': (t) => {
    let array = [0.5];
    for (let i = 0; i < 20; ++i) array = t.make(20, (k) => k === 19 ? array : k);
    app.sendMessage('up', array);
    array = t.make(20, (k) => k === 3 ? [[[[[0.5]]]]] : [k]);
    app.sendMessage('up', array);
  },
  'kinds deep down': async (t) => {
    const kinds = [1, 0.5, 'a', true, null, undefined, {}, [], -0, '\ud83d', '\0', 2 ** 31];
    for (const kind of kinds) {
      app.sendMessage('up', t.make(20, () => [[kind]]));
      await t.down(t.make(20, (i) => i % 2 ? [[kind]] : i));
    }
  },
  'rows of a table': async (t) => {
    const rows = t.make(
        200, (i) => [i, `name ${i}`, i * 1.25, i % 2 === 0, null, [`tag ${i % 7}`]]);
    app.sendMessage('up', rows);
    await t.down(rows);
  },
  'ragged': async (t) => {
    const array = t.make(70, (i) => t.make(i));
    app.sendMessage('up', array);
    await t.down(array);
  },
});
