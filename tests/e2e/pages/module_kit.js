'use strict';

// Shared by the pages about the module, and loaded before the module. Replaces functions of `app`
// with functions that record the module's calls.

const requestsSent = [];  // name and arguments of each message that begins with an answer's name
const returnedBy = {};    // the results of each callback, by the name of the message
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

// Returns the name of the answer to the latest request.
function latestReply() {
  return requestsSent[requestsSent.length - 1][1][0];
}

// Makes the browser send an answer with this name.
function answer(reply, ...args) {
  app.sendMessage('host.send', [reply, args]);
}

// Resolves when the window has received `count` error events.
function errors(count) {
  return new Promise((resolve) => {
    addEventListener('error', () => {
      if (--count === 0) resolve();
    });
  });
}

// Resolves with the outcome of a promise as values that a message can carry.
function outcome(promise) {
  return promise.then((values) => ['resolved', values],
                      (error) => ['rejected', error instanceof Error, error.name, error.message]);
}
