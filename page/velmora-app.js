// Requests with answers, several listeners for one name, and values that messages cannot carry, on
// top of the object `app`. Sets the global `VelmoraApp`. docs/page-module.md describes the rules.
//
// Chromium 57 runs this file as it is: no modules, object spread, optional chaining or AbortSignal.
(function() {
  'use strict';

  // All scripts of a frame share the first copy, and thus its listeners.
  if (window.VelmoraApp) return;
  const app = window.app;
  if (!app) throw new Error('velmora-app.js: the global object "app" is missing');
  const { sendMessage, setMessageCallback, removeMessageCallback } = app;

  // Calls a function of the page. Reports its exceptions to window.onerror, as `app` does for
  // callbacks.
  function call(callback, ...args) {
    try {
      return callback(...args);
    } catch (exception) {
      setTimeout(() => { throw exception; });
    }
  }

  // Names with a callback that this frame has registered. The bridge drops a second registration
  // without notice and offers no query, so all registrations of the frame pass through here.
  const registered = new Set();

  function warnTwice(name, consequence) {
    console.warn(`velmora-app.js: "${name}" is registered twice: ${consequence}`);
  }

  function register(name, callback) {
    setMessageCallback(name, callback);
    if (registered.has(name)) warnTwice(name, 'the second callback is never called');
    registered.add(name);
  }

  function unregister(name) {
    const removed = removeMessageCallback(name);
    registered.delete(name);
    return removed;
  }

  app.setMessageCallback = register;
  app.removeMessageCallback = unregister;

  // Arrays of listeners by name. They are replaced and never changed, so that a message goes to
  // the listeners that were registered when it arrived.
  const listeners = new Map();

  function dispatch(name, args) {
    return listeners.get(name).map((each) => call(each, name, args)).includes(true);
  }

  function on(name, listener) {
    if (typeof listener !== 'function') throw new TypeError('the listener must be a function');
    const others = listeners.get(name) || [];
    if (others.includes(listener)) {
      warnTwice(name, 'the same listener is called once');
      return;
    }
    if (others.length === 0) register(name, (_, args) => dispatch(name, args));
    listeners.set(name, others.concat(listener));
  }

  function off(name, listener) {
    const before = listeners.get(name) || [];
    const after = before.filter((each) => each !== listener);
    if (after.length === before.length) return false;
    listeners.set(name, after);
    if (after.length === 0) unregister(name);
    return true;
  }

  // The name of an answer is unique, because all frames of a browser share one set of names, and
  // random, so that no other frame can register it first.
  const random = crypto.getRandomValues(new Uint32Array(4));
  const replyPrefix = `velmora.reply.${Array.from(random, (part) => part.toString(36)).join('-')}`;
  let requests = 0;
  let pageGone = false;
  const open = new Set();  // for each request without an answer, the function that rejects it

  function request(name, args = [], { timeout = Infinity, signal, progress } = {}) {
    return new Promise((resolve, reject) => {
      if (!Array.isArray(args)) throw new TypeError('the arguments of a request must be an array');
      const reply = `${replyPrefix}.${++requests}`;
      let timer = null;
      const end = () => {
        removeMessageCallback(reply);
        clearTimeout(timer);
        open.delete(abandon);
        if (signal && signal.removeEventListener) signal.removeEventListener('abort', abort);
      };
      const fail = (kind, text) => {
        end();
        reject(Object.assign(new Error(text), { name: kind }));
      };
      const abandon = () => fail('UnloadError', `the page of the request "${name}" is gone`);
      const abort = () => fail('AbortError', `the request "${name}" was aborted`);
      const receive = (_, [kind, ...values]) => {
        if (kind === 'progress') {
          if (progress) call(progress, values);
        } else if (kind === 'result') {
          end();
          resolve(values);
        } else {
          const text = kind === 'error' ? values[0] : `"${name}" got an answer of the kind ${kind}`;
          fail('SuiteError', String(text));
        }
        return true;
      };

      if (pageGone) return abandon();
      if (signal && signal.aborted) return abort();
      // Throws for an invalid name, before there is any state to undo. The answer cannot arrive
      // before this script ends.
      sendMessage(name, [reply].concat(args));
      setMessageCallback(reply, receive);
      open.add(abandon);
      if (signal) signal.addEventListener('abort', abort);
      // A timer with a longer delay would fire at once.
      const late = () => fail('TimeoutError', `no answer to "${name}" within ${timeout} ms`);
      if (timeout <= 0x7fffffff) timer = setTimeout(late, timeout);
    });
  }

  window.addEventListener('pagehide', (event) => {
    if (event.persisted) return;  // the page may be shown again, with its callbacks
    pageGone = true;
    open.forEach((abandon) => abandon());
  });

  const loneSurrogates = /[\ud800-\udfff]/gu;
  const typeName = (value) => Object.prototype.toString.call(value).slice(8, -1);
  const isTag = (value) => typeof value === 'string' && value.startsWith('velmora.');

  // Throws for a value that JSON would drop or replace. Allows undefined members, which JSON omits.
  function requireJson(key, value) {
    const type = typeName(value);
    const number = typeof value === 'number' && !Number.isFinite(value);
    if (number || !/^(Object|Array|String|Number|Boolean|Null|Undefined)$/.test(type)) {
      const place = key === '' ? '' : ` in the member "${key}"`;
      throw new TypeError(`cannot encode ${number ? value : type}${place}`);
    }
    return value;
  }

  function toBase64(bytes) {
    const size = 0x8000;  // engines limit the number of arguments of a call
    let text = '';
    for (let i = 0; i < bytes.length; i += size) {
      text += String.fromCharCode(...bytes.subarray(i, i + size));
    }
    return btoa(text);
  }

  function encode(value) {
    if (value === null || value === undefined) return null;
    if (typeof value === 'boolean') return value;
    if (typeof value === 'string' && value.search(loneSurrogates) < 0) return value;
    if (typeof value === 'number') {
      const becomesNegative = Number.isInteger(value) && value > 0x7fffffff && value <= 0xffffffff;
      return Number.isFinite(value) && !becomesNegative ? value : ['velmora.number', `${value}`];
    }
    if (Array.isArray(value)) {
      const list = Array.from(value, (each) => encode(each));
      return isTag(list[0]) ? ['velmora.list'].concat(list) : list;
    }
    if (typeName(value) === 'ArrayBuffer') return encode(new Uint8Array(value));
    if (ArrayBuffer.isView(value)) {
      const bytes = new Uint8Array(value.buffer, value.byteOffset, value.byteLength);
      return ['velmora.bytes', toBase64(bytes)];
    }
    const text = JSON.stringify(value, requireJson);
    const escape = (unit) => `\\u${unit.charCodeAt(0).toString(16)}`;
    return ['velmora.json', text.replace(loneSurrogates, escape)];
  }

  function decodeNumber(text) {
    if (!/^(-?\d+|-?Infinity|NaN)$/.test(text)) throw new TypeError(`"${text}" is not a number`);
    const number = Number(text);
    if (Number.isFinite(number) && !Number.isSafeInteger(number)) {
      throw new RangeError(`${text} is too large for an exact number`);
    }
    return number;
  }

  function decode(value) {
    if (!Array.isArray(value)) return value;
    const [tag, content] = value;
    if (!isTag(tag)) return value.map((each) => decode(each));
    if (tag === 'velmora.list') return value.slice(1).map((each) => decode(each));
    if (tag === 'velmora.number') return decodeNumber(content);
    if (tag === 'velmora.bytes') return Uint8Array.from(atob(content), (c) => c.charCodeAt(0));
    if (tag === 'velmora.json') return JSON.parse(content);
    throw new TypeError(`cannot decode a list that begins with "${tag}"`);
  }

  window.VelmoraApp = Object.freeze({ request, on, off, encode, decode });
})();
