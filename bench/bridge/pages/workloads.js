'use strict';

// The workloads. Each has variants: functions that take a number of operations and resolve with the
// elapsed milliseconds. The parameters are in the page's address.
const parameters = new URLSearchParams(location.hash.slice(1));
const burst = Number(parameters.get('burst'));

const kText = 'a short string';

const integers = (count) => Array.from({length: count}, (_, i) => i);
const mixed = (i) => [i, i + 0.5, `text ${i}`, i % 2 === 0, null][i % 5];

const payloads = {
  'empty list': [],
  'short string': [kText],
  '100 mixed scalars': integers(100).map(mixed),
  '10,000 ints': integers(10000),
  '1,000 lists of 10 ints': integers(1000).map(() => integers(10)),
  '10,000 short strings': integers(10000).map((i) => `text ${i}`),
  '10,000 doubles': integers(10000).map((i) => Math.sqrt(i + 0.5)),
  'string of 1 MB': ['x'.repeat(1 << 20)],
};

// The page's part of a round trip: sending a payload, and reading the answer.
const plain = (payload) => ({
  send: () => app.sendMessage('bench.echo', payload),
  receive: (list) => list.length,
});
const jsonBy = (name) => (payload) => ({
  send: () => app.sendMessage(name, [JSON.stringify(payload)]),
  receive: (list) => JSON.parse(list[0]).length,
});
const json = jsonBy('bench.echo');
const jsonValues = jsonBy('bench.values');

let onEcho = null;
let onFinished = null;
app.setMessageCallback('bench.echo', (name, list) => onEcho(list));
app.setMessageCallback('bench.finished', (name, list) => onFinished(list[0]));

// Resolves with the milliseconds of `count` echoes. Calls `again` after each echo except the last.
function echoes(count, receive, start, again) {
  return new Promise((resolve) => {
    let left = count;
    const begin = performance.now();
    onEcho = (list) => {
      receive(list);
      if (--left) {
        again();
      } else {
        resolve(performance.now() - begin);
      }
      return true;
    };
    start();
  });
}

// Resolves with the milliseconds that the native side reports.
function natively(start) {
  return new Promise((resolve) => {
    onFinished = (milliseconds) => {
      resolve(milliseconds);
      return true;
    };
    start();
  });
}

function roundTrips(count, {send, receive}) {
  return echoes(count, receive, send, send);
}

// Messages arrive in order, so the echo of the last message proves that the host has received all
// of them. The return of this echo is part of the measured time.
function burstUp({send, receive}, up) {
  return echoes(1, receive, () => {
    for (let i = 1; i < burst; ++i) up();
    send();
  }, null);
}

function burstDown(text, receive) {
  return echoes(burst, receive, () => app.sendMessage('bench.down', [burst, text]), () => {});
}

function tripVariants(payload) {
  return {
    ours: (count) => roundTrips(count, plain(payload)),
    limit: (count) => natively(() => bench.bounce(count, [])),
    'no conversion': (count) => natively(() => bench.bounce(count, payload)),
    json: (count) => roundTrips(count, json(payload)),
    'json values': (count) => roundTrips(count, jsonValues(payload)),
  };
}

const upVariants = {
  ours: () => burstUp(plain([kText]), () => app.sendMessage('bench.up', [kText])),
  limit: () => natively(() => bench.burst(burst)),
  json: () =>
    burstUp(json([kText]), () => app.sendMessage('bench.up', [JSON.stringify([kText])])),
};

const downVariants = {
  ours: () => burstDown(kText, (list) => list.length),
  limit: () => natively(() => bench.receive(burst)),
  json: () => burstDown(JSON.stringify([kText]), (list) => JSON.parse(list[0]).length),
};

function conversionVariants(length) {
  const array = integers(length);
  const names = ['toList', 'toListCalls', 'toArray', 'toArrayCalls'];
  if (length <= 10000) names.push('toListSized');
  const variants = {};
  for (const name of names) variants[name] = () => bench.convert(name, array);
  return variants;
}

const workloads = [
  ...Object.entries(payloads).map(
    ([name, payload]) => ({kind: 'trips', name, variants: tripVariants(payload)})),
  {kind: 'burst', name: 'page to host', variants: upVariants},
  {kind: 'burst', name: 'host to page', variants: downVariants},
];
const conversions = [1000, 10000, 100000].map(
  (length) => ({kind: 'conversion', name: String(length), variants: conversionVariants(length)}));
