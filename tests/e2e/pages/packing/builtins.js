'use strict';

// A page replaces built-ins before and after its first message. Each use is logged.
{
  const run = async (t, tamper) => {
    const kinds = [1, 2.5, 'a', true, null, undefined, -0, '\ud83d', [1, [2]], [0.5, 'b'], {}, []];
    const mixed = t.make(120, (i) => kinds[i % 12]);
    const ints = t.make(120);
    const strings = t.make(120, (i) => `s${i}`);
    const doubles = t.make(120, (i) => i / 2);
    const nested = t.make(120, (i) => [i, `${i}`]);
    const all = [mixed, ints, strings, doubles, nested];
    const getting = t.getter(t.make(100), 50, () => { t.log('getter'); return 'got'; });
    const {setMessageCallback} = app;
    const callback = (name, array) => { t.log('received', array); return true; };
    const send = (array) => app.sendMessage('up', array);
    const used = (name) => function() {
      t.log(`uses ${name}`);
      throw new TypeError(name);
    };
    const {defineProperty, getOwnPropertyDescriptor} = Object;
    const {ownKeys} = Reflect;
    const replace = (object, name, label = name) => {
      defineProperty(object, name, {__proto__: null, value: used(label), configurable: true});
    };
    const replaceAll = (object, label) => {
      const names = ownKeys(object);
      for (let i = 0; i < names.length; ++i) {
        const name = names[i];
        const own = getOwnPropertyDescriptor(object, name);
        const text = typeof name === 'symbol' ? 'symbol' : name;
        if (own.configurable && typeof own.value === 'function') {
          replace(object, name, `${label}.${text}`);
        }
      }
    };
    const watch = (object, name, label = name) => {
      defineProperty(object, name, {
        __proto__: null,
        get() { t.log(`gets ${label}`); },
        set() { t.log(`sets ${label}`); },
        configurable: true,
      });
    };

    if (tamper.startsWith('late ')) send(mixed);
    eval(tamper.replace(/^late /, ''));
    for (let i = 0; i < 5; ++i) send(all[i]);
    send(getting);
    setMessageCallback('down', callback);
    for (let i = 0; i < 5; ++i) await t.post('down', all[i]);
    await t.deliverKinds('down', 40);
  };

  const tamperings = [
    'replaceAll(Array.prototype, "Array.prototype")',
    'late replaceAll(Array.prototype, "Array.prototype")',
    'replaceAll(Array, "Array")',
    'replaceAll(String.prototype, "String.prototype")',
    'late replaceAll(String.prototype, "String.prototype")',
    'replaceAll(String, "String")',
    'replaceAll(Number, "Number"), replaceAll(Number.prototype, "Number.prototype")',
    'replaceAll(Boolean.prototype, "Boolean.prototype")',
    'replaceAll(Math, "Math")',
    'replaceAll(JSON, "JSON")',
    'late replaceAll(JSON, "JSON")',
    'replaceAll(Object, "Object")',
    'late replaceAll(Object, "Object")',
    'replaceAll(Object.prototype, "Object.prototype")',
    'replaceAll(Reflect, "Reflect")',
    'replaceAll(Function.prototype, "Function.prototype")',
    'late replaceAll(Function.prototype, "Function.prototype")',
    'replaceAll(RegExp.prototype, "RegExp.prototype")',
    'replaceAll(Symbol, "Symbol"), replaceAll(Symbol.prototype, "Symbol.prototype")',
    'replaceAll(Map.prototype, "Map"), replaceAll(WeakMap.prototype, "WeakMap")',
    'replaceAll(Set.prototype, "Set"), replaceAll(WeakSet.prototype, "WeakSet")',
    'replaceAll(ArrayBuffer.prototype, "ArrayBuffer"), replaceAll(DataView.prototype, "DataView")',
    'replaceAll(Object.getPrototypeOf(Int8Array.prototype), "TypedArray.prototype")',
    'replaceAll(Object.getPrototypeOf(Int8Array), "TypedArray")',
    'replaceAll([][Symbol.iterator]().__proto__, "ArrayIterator")',
    'replace(Promise.prototype, "then"), replaceAll(Promise, "Promise")',
    'replaceAll(Error, "Error"), replaceAll(Error.prototype, "Error.prototype")',
    'late ["Array", "String", "Number", "Boolean", "Object", "Symbol"].forEach((n) => ' +
        'replace(window, n))',
    '["Float64Array", "Uint16Array", "Int32Array", "ArrayBuffer", "DataView"].forEach((n) => ' +
        'replace(window, n))',
    '["JSON", "Reflect", "Math", "Map", "WeakMap", "Proxy", "Error"].forEach((n) => ' +
        'replace(window, n))',
    '["isFinite", "isNaN", "parseInt", "parseFloat", "escape", "eval"].forEach((n) => ' +
        'replace(window, n))',
    '["Array", "String", "Number", "JSON", "Reflect", "Float64Array", "Uint16Array", "Object", ' +
        '"Function", "Error", "Symbol", "Math"].forEach((n) => { delete window[n]; })',
    '[Array, String].forEach((c) => replace(c.prototype, Symbol.iterator, "iterator"))',
    'watch(Array, Symbol.species, "species"), watch(Array.prototype, "constructor")',
    '[Array, Object, Number, String, Boolean].forEach((c) => ' +
        'replace(c.prototype, Symbol.toPrimitive, c.name + " toPrimitive"))',
    '[Array, Object, Number, String, Boolean].forEach((c) => ' +
        'replace(c.prototype, "toJSON", c.name + " toJSON"))',
    'late [Array, Object, Number, String, Boolean].forEach((c) => ' +
        'replace(c.prototype, "toJSON", c.name + " toJSON"))',
    '[Array, Object, Number, String, Boolean].forEach((c) => { ' +
        'replace(c.prototype, "valueOf", c.name + " valueOf"); ' +
        'replace(c.prototype, "toString", c.name + " toString"); })',
    'watch(Object.prototype, "toJSON"), watch(Array.prototype, "toJSON")',
    '[Array, Object, Function, String].forEach((c) => ' +
        'watch(c.prototype, Symbol.toStringTag, "tag"))',
    'watch(Array.prototype, Symbol.isConcatSpreadable, "spreadable")',
    'watch(Object.prototype, "length")',
    'watch(Object.prototype, "value"), watch(Object.prototype, "writable")',
    'watch(Object.prototype, "get"), watch(Object.prototype, "set")',
    'watch(Object.prototype, "enumerable"), watch(Object.prototype, "configurable")',
    '["push", "pop", "index", "stack", "array", "list", "text", "count", "depth", "position", ' +
        '"values", "kinds", "units", "source", "target", "result", "next", "done", "return"]' +
        '.forEach((n) => watch(Object.prototype, n))',
    '["name", "call", "apply", "bind", "prototype", "arguments", "caller", "callee"].forEach(' +
        '(n) => { if (!Object.prototype.hasOwnProperty.call(Object.prototype, n)) ' +
        'watch(Object.prototype, n); })',
    'watch(Object.prototype, "then")',
    'watch(Object.prototype, "0")',
    'watch(Object.prototype, "5"), watch(Object.prototype, "50")',
    'watch(Object.prototype, ""), watch(Object.prototype, "-1"), watch(Object.prototype, "NaN")',
    'watch(Object.prototype, "undefined"), watch(Object.prototype, "null")',
    'watch(Function.prototype, "prototype"), watch(Function.prototype, "caller")',
    'watch(String.prototype, "0"), watch(String.prototype, "50")',
    'watch(Object.prototype, "__proto__")',
    'Object.freeze(Array.prototype)',
    'Object.freeze(Object.prototype), Object.freeze(Array.prototype), Object.freeze(Array)',
    'Object.freeze(Function.prototype), Object.freeze(Object.prototype), Object.freeze(window.app)',
    'Object.preventExtensions(Array.prototype), Object.preventExtensions(Object.prototype)',
    'Object.setPrototypeOf(Array.prototype, null)',
    'Object.setPrototypeOf(Array.prototype, {0: "a", 5: "b"})',
    'Object.setPrototypeOf(Function.prototype, null)',
    'Object.setPrototypeOf(String.prototype, t.traced({}, "String.prototype"))',
    'Object.setPrototypeOf(Number.prototype, t.traced({}, "Number.prototype"))',
    'Object.setPrototypeOf(Function.prototype, t.traced(Object.prototype, "Function.prototype"))',
    'Array.prototype[3] = "three", Array.prototype[70] = 70.5',
    'Array.prototype.length = 50',
    'for (const n of Reflect.ownKeys(Array.prototype)) delete Array.prototype[n]',
    'for (const n of Reflect.ownKeys(Object.prototype)) delete Object.prototype[n]',
    'for (const n of Reflect.ownKeys(String.prototype)) delete String.prototype[n]',
    'for (const n of Reflect.ownKeys(Function.prototype)) delete Function.prototype[n]',
    'Array.prototype.toString = Array.prototype.join = () => "changed"',
    'Object.defineProperty(Array.prototype, 7, {value: "fixed", writable: false})',
    'Object.defineProperty(Object.prototype, 7, {value: "fixed", writable: false})',
    'Error.prepareStackTrace = used("prepareStackTrace"), Error.stackTraceLimit = 0',
    'const real = app.sendMessage; app.sendMessage = (name, array) => { t.log("mine"); ' +
        'real(name, array); }',
    'window.app = {sendMessage: app.sendMessage}',
    'window.Array = class extends Array {}, window.String = class extends String {}',
    'window.onerror = used("onerror")',
  ];

  const functions = {};
  for (const tampering of tamperings) functions[tampering] = [run, tampering];
  cases('built-ins', functions);
}
