'use strict';

// Functions that the test pages share. A page reports its observations in messages to the test. Their
// names do not begin with "host.", so the browser only prints them.

function report(name, ...args) {
  app.sendMessage(name, args);
}

function quit(code = 0) {
  app.sendMessage('host.quit', [code]);
}

// Returns the text of the exception that `action` throws, or null if it throws none.
function thrownBy(action) {
  try {
    action();
  } catch (exception) {
    return String(exception instanceof Error ? exception.message : exception);
  }
  return null;
}

// Sends `args` to the browser, which sends them back. Resolves with the array that the callback
// received. Each call uses its own name.
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

// Resolves when the browser has executed all commands that were sent before.
function settled() {
  return echo([]);
}

// Resolves when a navigation requested before would have replaced the page: the navigation loads one
// file, while this function loads ten, one after the other.
async function remained() {
  await settled();
  for (let i = 0; i < 10; ++i) {
    await new Promise((resolve) => {
      const picture = new Image();
      picture.onerror = resolve;
      picture.src = `no-such-picture-${i}.png`;
    });
  }
}

// Resolves when the test has created a script file at `path`.
async function fileExists(path) {
  const load = () => new Promise((resolve) => {
    const script = document.createElement('script');
    script.src = `file://${path}`;
    script.onload = () => resolve(true);
    script.onerror = () => setTimeout(resolve, 10, false);
    document.head.appendChild(script);
  });
  while (!await load()) {
  }
}

// Adds a frame with the page's origin, so that the page can access it, and resolves with its window.
// The window's function listen(name) reports the frame's identifier when a message `name` arrives.
const frameSource = `<script>
  function listen(name) {
    const id = frameElement.id;
    app.setMessageCallback(name, () => app.sendMessage(name + ' runs in ' + id));
  }
<\/script>`;

function addFrame(id) {
  const frame = document.createElement('iframe');
  frame.id = id;
  document.body.appendChild(frame);
  return loadFrame(frame);
}

// Loads a new document into the frame and resolves with its window.
function loadFrame(frame) {
  return new Promise((resolve) => {
    frame.onload = () => resolve(frame.contentWindow);
    frame.srcdoc = frameSource;
  });
}
