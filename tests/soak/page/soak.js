'use strict';

// A document of the suite. It sends numbered messages with random arguments, confirms the messages
// that it receives, and executes actions of the schedule. The fragment of its address is the seed.

const random = makeRandom(Number(location.hash.slice(1)));
// Identifies the document. A reloaded page is another document.
const id = Array.from(crypto.getRandomValues(new Uint32Array(3)),
                      (word) => word.toString(16)).join('');
let sent = 0;

// Sends the next message of the document. All kinds share one sequence of numbers.
function send(kind, payload) {
  app.sendMessage('soak', [id, ++sent, kind, checksum(payload), payload]);
}

const actions = {
  open: (url) => app.sendMessage('host.open', [url]),
  popup: (url) => { window.open(url); },
  close: () => window.close(),
  navigate: (url) => { location.href = url; },
  reload: () => location.reload(),
  back: () => history.back(),
  goBack: () => app.sendMessage('host.back', []),
  addFrame(url) {
    const frame = document.createElement('iframe');
    frame.src = url;
    document.body.appendChild(frame);
  },
  removeFrame() {
    const frame = document.querySelector('iframe');
    if (frame) frame.remove();
  },
  // Exceeds the memory limit.
  fill() {
    self.filled = Array.from({length: 560}, () => new Uint8Array(1 << 20).fill(1));
    send('filled', []);
  },
};

app.setMessageCallback(`down ${id}`, (name, [number, sum, payload]) => {
  send('ack', [number, checksum(payload) === sum]);
  return true;
});
app.setMessageCallback(`do ${id}`, (name, [action, ...parameters]) => {
  actions[action](...parameters);
  return true;
});
addEventListener('unload', () => send('bye', []));

function sendNow() {
  send('up', randomPayload(random));
  setTimeout(sendNow, 250 + 750 * random());
}

send('hello', [parent === self, performance.navigation.type]);
if (self.gc) setInterval(gc, 3000);
sendNow();
