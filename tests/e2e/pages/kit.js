'use strict';

// What the test pages share. A page reports what it saw in messages that the test reads; none of
// the names begins with "host.", so the browser only prints them.

function report(name, ...args) {
  app.sendMessage(name, args);
}

function quit(code = 0) {
  app.sendMessage('host.quit', [code]);
}

// The text of the exception that `action` throws, or null when it throws none.
function thrownBy(action) {
  try {
    action();
  } catch (exception) {
    return String(exception instanceof Error ? exception.message : exception);
  }
  return null;
}

// Sends `args` to the browser, which sends them back; resolves with the array that the callback
// got. Each call uses a name of its own.
let echoes = 0;
function echo(args) {
  const name = `kit.echo.${++echoes}`;
  return new Promise((resolve) => {
    app.setMessageCallback(name, (received, array) => {
      app.removeMessageCallback(name);
      resolve(array);
      return true;
    });
    app.sendMessage('host.send', [name, args]);
  });
}

// Resolves when the browser has carried out everything that was sent before.
function settled() {
  return echo([]);
}
