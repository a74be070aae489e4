// Imports the installed package as a bundler does, with a fake window, and echoes one request.

import assert from 'node:assert/strict';

const callbacks = new Map();
globalThis.window = globalThis;
globalThis.addEventListener = () => {};
globalThis.app = {
  sendMessage(name, [reply, ...args]) {
    queueMicrotask(() => callbacks.get(reply)(reply, ['result', name, ...args]));
  },
  setMessageCallback: (name, callback) => void callbacks.set(name, callback),
  removeMessageCallback: (name) => callbacks.delete(name),
};

const module = await import('velmora-app');
assert.deepEqual(Object.keys(module).sort(), Object.keys(window.VelmoraApp).sort());
assert.deepEqual(await module.request('echo', [1]), ['echo', 1]);
assert.equal(callbacks.size, 0);

// The package also exports the path of the classic script, for pages that copy the script.
assert.match(import.meta.resolve('velmora-app/velmora-app.js'), /\/velmora-app\.js$/);
