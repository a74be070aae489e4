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

// Resolves when a navigation that was asked for before would have replaced the page: it needs one
// file, this needs ten, one after the other.
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

// Resolves when the test has made a script file of that path.
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

// Adds a frame of the page's own origin, so that the page reaches into it, and resolves with its
// window. Its function listen(name) reports the frame's identifier when such a message comes.
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

// Loads a new document into the frame; resolves with its window.
function loadFrame(frame) {
  return new Promise((resolve) => {
    frame.onload = () => resolve(frame.contentWindow);
    frame.srcdoc = frameSource;
  });
}
