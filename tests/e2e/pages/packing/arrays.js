'use strict';

cases('arrays', {
  'holes': (t) => {
    app.sendMessage('up', [, , ]);
    app.sendMessage('up', [, 1, , 'a', , [ , ], , ]);
    for (const size of t.sizes) app.sendMessage('up', new Array(size));
    const array = t.make(100);
    for (let i = 0; i < 100; i += 3) delete array[i];
    app.sendMessage('up', array);
  },
  'holes among doubles and strings': (t) => {
    const doubles = t.make(100, (i) => i / 2);
    const strings = t.make(100, String);
    for (let i = 1; i < 100; i += 7) delete doubles[i], delete strings[i];
    app.sendMessage('up', doubles);
    app.sendMessage('up', strings);
  },
  'sparse': (t) => {
    const array = [];
    array[5000 - 1] = 'last';
    array[17] = 17;
    array[2500] = 2.5;
    app.sendMessage('up', array);
  },
  'dictionary mode': (t) => {
    const array = t.make(200);
    Object.defineProperty(array, 3, {value: 'three', configurable: true});
    array[100000] = 1;
    array.length = 150;
    app.sendMessage('up', array);
    app.sendMessage('up', [array, array]);
  },
  'length out of range': (t) => {
    const array = t.make(100);
    array.length = 2 ** 32 - 1;
    app.sendMessage('up', array);
    app.sendMessage('up', t.make(20, () => array));
    array.length = 2 ** 31;
    app.sendMessage('up', array);
  },
  'length that was set': (t) => {
    const array = t.make(100);
    array.length = 50;
    app.sendMessage('up', array);
    array.length = 0;
    app.sendMessage('up', array);
    array.length = 20;
    app.sendMessage('up', array);
  },
  'inherited values show through holes': (t) => {
    Array.prototype[3] = 'of Array.prototype';
    Object.prototype[4] = 'of Object.prototype';
    Array.prototype[50] = [50];
    app.sendMessage('up', new Array(100));
    app.sendMessage('up', t.make(20, () => new Array(6)));
    app.sendMessage('up', t.make(20));
  },
  'getters of Array.prototype and Object.prototype': (t) => {
    for (const [object, index] of [[Array.prototype, 3], [Object.prototype, 4],
      [Array.prototype, 70]]) {
      Object.defineProperty(object, index, {
        get() { t.log('get', index, this.length); return `inherited ${index}`; },
        configurable: true,
      });
    }
    app.sendMessage('up', new Array(100));
    app.sendMessage('up', t.make(100));
    app.sendMessage('up', [[new Array(5)], 1]);
  },
  'getters of Array.prototype that throw': (t) => {
    Object.defineProperty(Array.prototype, 3, {get() { throw new Error('inherited'); }});
    app.sendMessage('up', new Array(100));
    app.sendMessage('up', [new Array(5), new Array(5)]);
  },
  'getters of Array.prototype that fill the array': (t) => {
    Object.defineProperty(Array.prototype, 3, {get() {
      Object.defineProperty(this, 5, {value: 'filled'});
      Object.defineProperty(this, 1, {value: 'late'});
      return 'three';
    }});
    app.sendMessage('up', new Array(100));
  },
  'frozen, sealed, not extensible': (t) => {
    for (const close of [Object.freeze, Object.seal, Object.preventExtensions]) {
      app.sendMessage('up', close(t.make(100)));
      app.sendMessage('up', close(t.make(20, (i) => close([i, 'a', 0.5]))));
      app.sendMessage('up', close(new Array(20)));
    }
  },
  'length that is not writable': (t) => {
    app.sendMessage('up', Object.defineProperty(t.make(100), 'length', {writable: false}));
  },
  'other properties': (t) => {
    const array = t.make(100);
    array.name = 'value';
    array[-1] = 'negative';
    array[1.5] = 'fraction';
    array[Symbol('s')] = 'symbol';
    array['01'] = 'not an index';
    array[2 ** 32 - 1] = 'not an index either';
    app.sendMessage('up', array);
  },
  'own functions are not called': (t) => {
    const array = t.make(100, (i) => i % 2 ? i : `${i}`);
    for (const name of [...Object.getOwnPropertyNames(Array.prototype), 'toJSON', 'valueOf']) {
      if (name !== 'length') Object.defineProperty(array, name, {get() { t.log(name); }});
    }
    for (const symbol of ['iterator', 'isConcatSpreadable', 'toPrimitive', 'unscopables']) {
      Object.defineProperty(array, Symbol[symbol], {get() { t.log(symbol); }});
    }
    app.sendMessage('up', array);
    app.sendMessage('up', [array, [array]]);
  },
  'subclass that overrides everything': (t) => {
    class Special extends Array {
      static get [Symbol.species]() { t.log('species'); return Object; }
      static isArray() { t.log('isArray'); return false; }
      static [Symbol.hasInstance]() { t.log('hasInstance'); return false; }
    }
    for (const name of Object.getOwnPropertyNames(Array.prototype)) {
      if (name !== 'length' && name !== 'constructor') {
        Object.defineProperty(Special.prototype, name, {get() { t.log(name); }});
      }
    }
    Object.defineProperty(Special.prototype, Symbol.iterator, {get() { t.log('iterator'); }});
    Object.defineProperty(Special.prototype, 'constructor', {get() { t.log('constructor'); }});
    const array = new Special(100);
    for (let i = 0; i < 100; ++i) array[i] = i;
    app.sendMessage('up', array);
    app.sendMessage('up', t.make(20, () => array));
  },
  'no prototype': (t) => {
    app.sendMessage('up', Object.setPrototypeOf(t.make(100), null));
    app.sendMessage('up', Object.setPrototypeOf(new Array(100), null));
    app.sendMessage('up', t.make(20, (i) => Object.setPrototypeOf([i, , i], null)));
  },
  'other prototypes': (t) => {
    app.sendMessage('up', Object.setPrototypeOf(new Array(20), {3: 'inherited', length: 5}));
    app.sendMessage('up', Object.setPrototypeOf(new Array(20), t.make(50)));
    app.sendMessage('up', Object.setPrototypeOf(new Array(20), new Uint8Array(30)));
    app.sendMessage('up', Object.setPrototypeOf(new Array(20), new String('inherited')));
    app.sendMessage('up', Object.setPrototypeOf(new Array(20), function() {}));
  },
  'Array.prototype itself': (t) => {
    app.sendMessage('up', Array.prototype);
    Array.prototype.length = 20;
    Array.prototype[7] = 'seven';
    app.sendMessage('up', Array.prototype);
    app.sendMessage('up', t.make(20, () => Array.prototype));
  },
  'template objects and results of built-ins': (t) => {
    ((strings, ...values) => app.sendMessage('up', [strings, strings.raw, values]))`a${1}b${2}\n`;
    app.sendMessage('up', /(a)(b)?/.exec('xab'));
    app.sendMessage('up', 'a,b,c,d,e,f,g,h,i,j,k,l,m,n,o,p,q,r,s,t'.split(','));
    app.sendMessage('up', Array.from(new Set(t.make(20))));
    app.sendMessage('up', JSON.parse('[1,2.5,"a",[],{},null,true,-0,1e3,10,11,12,13,14,15,16,17]'));
    app.sendMessage('up', Object.keys(t.make(20)));
    app.sendMessage('up', navigator.languages && [Array.isArray(navigator.languages)]);
  },
  'arrays of another frame': async (t) => {
    const frame = await t.addFrame();
    frame.contentWindow.eval('Array.prototype[5] = "of the other frame"');
    const text = '(() => { const a = []; a.length = 100; for (let i = 0; i < 100; i += 2) ' +
        'a[i] = [i, `${i}`]; return a; })()';
    const array = frame.contentWindow.eval(text);
    app.sendMessage('up', array);
    app.sendMessage('up', t.make(20, () => array));
    frame.contentWindow.app.sendMessage('up', t.make(100));
    frame.remove();
    app.sendMessage('up', array);
    app.sendMessage('up', t.make(20, () => array));
  },
  'getters of another frame': async (t) => {
    const frame = await t.addFrame();
    const array = frame.contentWindow.eval(`(() => {
      const array = new Array(100).fill(0);
      for (const i of [5, 50]) {
        Object.defineProperty(array, i, {get() { throw new Error('of the other frame'); }});
      }
      Object.defineProperty(array, 7, {get() { return Array === parent.Array; }});
      return array;
    })()`);
    frame.contentWindow.onerror = (message) => { t.log(`other onerror ${message}`); };
    app.sendMessage('up', array);
    frame.remove();
    app.sendMessage('up', array);
  },
  'app of a removed frame': async (t) => {
    const frame = await t.addFrame();
    const other = frame.contentWindow.app;
    frame.remove();
    t.log('returns', other.sendMessage('up', t.make(100)));
    app.sendMessage('up', t.make(100));
  },
  'app of a frame that was navigated': async (t) => {
    const frame = await t.addFrame();
    const other = frame.contentWindow.app;
    await new Promise((resolve) => { frame.onload = resolve; frame.srcdoc = 'another'; });
    try {
      t.log('returns', other.sendMessage('up', t.make(100)));
    } catch (error) {
      t.log(`throws ${error}`);
    }
    frame.remove();
  },
});
