'use strict';

cases('strings', {
  'short strings of each size': (t) => {
    for (const size of t.sizes) app.sendMessage('up', t.make(size, (i) => `s${i}`));
  },
  'strings of two bytes of each size': (t) => {
    for (const size of t.sizes) app.sendMessage('up', t.make(size, (i) => `\u20ac${i}\u00e4`));
  },
  'empty strings': (t) => {
    for (const size of [1, 16, 17, 100, 1000]) app.sendMessage('up', t.make(size, () => ''));
  },
  'strings of one unit': (t) => {
    app.sendMessage('up', t.make(2048, (i) => String.fromCharCode(i)));
    app.sendMessage('up', t.make(2048, (i) => String.fromCharCode(0xd7f0 + i)));
    app.sendMessage('up', t.make(2048, (i) => String.fromCharCode(0xf800 + i)));
  },
  'null characters': (t) => {
    app.sendMessage('up', t.make(100, (i) => '\0'.repeat(i % 5)));
    app.sendMessage('up', t.make(100, (i) => `a\0b${i}\0`));
  },
  'line and paragraph separators': (t) => {
    app.sendMessage('up', t.make(100, (i) => `\u2028${i}\u2029\r\n\u0085`));
  },
  'noncharacters and byte order marks': (t) => {
    app.sendMessage('up', t.make(100, (i) => `\uffff\ufffe\ufdd0\ufeff${i}\u{1ffff}\u{10ffff}`));
  },
  'lone surrogates': (t) => {
    app.sendMessage('up', t.make(64, () => '\ud83d'));
    app.sendMessage('up', t.make(64, () => '\udc4b'));
    app.sendMessage('up', t.make(64, (i) => i % 2 ? 'a\ud83d' : '\udc4bb'));
    app.sendMessage('up', t.make(64, () => '\udc4b\ud83d'));
    app.sendMessage('up', t.make(64, () => '\ud83d\ud83d\udc4b\udc4b'));
  },
  'pair split over neighbors': (t) => {
    app.sendMessage('up', t.make(64, (i) => i % 2 ? '\udc4b' : '\ud83d'));
    app.sendMessage('up', t.make(64, (i) => i % 2 ? ['\udc4b'] : '\ud83d'));
    app.sendMessage('up', t.make(64, (i) => i % 2 ? '\udc4bx\ud83d' : ''));
  },
  'pairs': (t) => {
    app.sendMessage('up', t.make(100, (i) => '\ud83d\udc4b'.repeat(i)));
    app.sendMessage('up', t.make(100, (i) => String.fromCodePoint(0x10000 + i * 10007)));
  },
  'string of all units': (t) => {
    const units = t.make(65536, (i) => String.fromCharCode(i)).join('');
    app.sendMessage('up', t.make(17, (i) => units.slice(i)));
  },
  'strings that resemble text formats': (t) => {
    const texts = ['[', ']', '{', '}', '"', '\\', '\\"', ',', '[1,2]', '{"a":1}', '"a"', 'null',
      '1', '-0', '1.5', 'true', '\\u0041', '\n', '\t', '\x7f', '//', '</script>', 'NaN',
      '[[[', ']]]'];
    app.sendMessage('up', t.make(100, (i) => texts[i % texts.length]));
    app.sendMessage('up', t.make(100, (i) => [texts[i % texts.length], i + 0.5]));
  },
  'lengths around powers of two': (t) => {
    for (const length of [127, 128, 255, 256, 32767, 32768, 65535, 65536, 65537]) {
      app.sendMessage('up', t.make(17, (i) => i === 8 ? 'x'.repeat(length) : i));
    }
  },
  'megabytes': (t) => {
    app.sendMessage('up', ['x'.repeat(1 << 20)]);
    app.sendMessage('up', t.make(17, (i) => i === 3 ? 'x'.repeat(1 << 20) : i));
    app.sendMessage('up', t.make(17, (i) => i === 16 ? '\u20ac'.repeat(1 << 19) : `${i}`));
  },
  'ropes and slices': (t) => {
    let rope = '';
    for (let i = 0; i < 5000; ++i) rope += `part ${i} `;
    const wide = `${rope}\u20ac`;
    app.sendMessage('up', t.make(100, (i) => rope.slice(i * 13, i * 13 + 50)));
    app.sendMessage('up', t.make(17, (i) => rope + i));
    app.sendMessage('up', t.make(17, (i) => wide.slice(i)));
  },
  'growing rope': (t) => {
    let rope = '';
    app.sendMessage('up', t.make(300, (i) => rope += `<${i}>`));
  },
  'same string many times': (t) => {
    const string = 'the same string';
    app.sendMessage('up', t.make(10000, () => string));
  },
  'indexes and names of properties as strings': (t) => {
    const names = ['length', '__proto__', 'constructor', 'toJSON', 'valueOf', '0', '-1', 'get'];
    app.sendMessage('up', t.make(64, (i) => names[i % 8]));
  },
  'strings come back': async (t) => {
    for (const size of [1, 9, 10, 11, 16, 17, 100]) {
      await t.down(t.make(size, (i) => `s${i}`));
      await t.down(t.make(size, (i) => `\u20ac\0\u2028\uffff${i}`));
    }
    await t.down(t.make(2048, (i) => String.fromCharCode(i)));
    await t.down(t.make(100, () => ''));
  },
  'surrogates come back': async (t) => {
    await t.down(t.make(64, (i) => i % 2 ? '\udc4b' : '\ud83d'));
    await t.down(t.make(64, () => 'x\ud83d\udc4b'));
    await t.down(t.make(64, () => '\ud83dx'));
  },
  'large strings come back': async (t) => {
    await t.down(t.make(17, (i) => i === 3 ? 'x'.repeat(1 << 20) : i));
    await t.down(t.make(17, (i) => i === 3 ? '\u20ac'.repeat(1 << 18) : 0.5));
  },
});
