'use strict';

// Shared by the pages about the module, and loaded before it. Replaces functions of `app` with ones
// that record the module's calls.

const requestsSent = [];  // name and arguments of each message with the name of an answer in front
const returnedBy = {};    // name of a message: what its callback returned, for each call
{
  const { sendMessage, setMessageCallback } = app;
  app.sendMessage = (name, args) => {
    sendMessage(name, args);
    if (args && /^velmora\.reply\./.test(args[0])) requestsSent.push([name, args]);
  };
  app.setMessageCallback = (name, callback) => {
    if (typeof callback !== 'function') return setMessageCallback(name, callback);
    return setMessageCallback(name, (received, args) => {
      const returned = callback(received, args);
      returnedBy[name] = (returnedBy[name] || []).concat([returned]);
      return returned;
    });
  };
}

// The name of the answer to the latest request.
function latestReply() {
  return requestsSent[requestsSent.length - 1][1][0];
}

// Has the browser send such an answer.
function answer(reply, ...args) {
  app.sendMessage('host.send', [reply, args]);
}

// Resolves when the window has got that many error events.
function errors(count) {
  return new Promise((resolve) => {
    addEventListener('error', () => {
      if (--count === 0) resolve();
    });
  });
}

// Resolves with how the promise is settled, as values that a message carries.
function outcome(promise) {
  return promise.then((values) => ['resolved', values],
                      (error) => ['rejected', error instanceof Error, error.name, error.message]);
}
