'use strict';

// Runs every workload in every variant, round by round, and has the host print one line for each
// sample. The parameters are in the page's address: #rounds=15&target=10, the latter the wanted
// milliseconds of one slice of a sample.
const parameters = new URLSearchParams(location.hash.slice(1));
const rounds = Number(parameters.get('rounds'));
const target = Number(parameters.get('target'));

const kText = 'a short string';
const kBurst = 10000;
// A sample of round trips is taken in slices, in turn with those of the other variants: how the
// system places the threads changes within tenths of a second, and changes a trip by a half.
const kSlices = 8;

const integers = (count) => Array.from({length: count}, (_, i) => i);
const mixed = (i) => [i, i + 0.5, `text ${i}`, i % 2 === 0, null][i % 5];

const payloads = {
  'empty list': [],
  'short string': [kText],
  '100 mixed scalars': integers(100).map(mixed),
  '10,000 ints': integers(10000),
  '1,000 lists of 10 ints': integers(1000).map(() => integers(10)),
  'string of 1 MB': ['x'.repeat(1 << 20)],
};

// The page's part of a round trip: what it does to send, and to read what came.
const plain = (payload) => ({
  send: () => app.sendMessage('bench.echo', payload),
  receive: (list) => list.length,
});
const json = (payload) => ({
  send: () => app.sendMessage('bench.echo', [JSON.stringify(payload)]),
  receive: (list) => JSON.parse(list[0]).length,
});

let onEcho = null;
let onFinished = null;
app.setMessageCallback('bench.echo', (name, list) => onEcho(list));
app.setMessageCallback('bench.finished', (name, list) => onFinished(list[0]));

// Resolves with the milliseconds of `count` echoes; `again` follows each of them but the last.
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

// Messages arrive in order: the echo of the last one tells that the host has got all. One trip of
// it is part of the time, one of ten thousand.
function burstUp({send, receive}, up) {
  return echoes(1, receive, () => {
    for (let i = 1; i < kBurst; ++i) up();
    send();
  }, null);
}

function burstDown(text, receive) {
  return echoes(kBurst, receive, () => app.sendMessage('bench.down', [kBurst, text]), () => {});
}

// Each variant takes a number of operations and resolves with the milliseconds that they took.
function tripVariants(payload) {
  return {
    ours: (count) => roundTrips(count, plain(payload)),
    limit: (count) => natively(() => bench.bounce(count, [])),
    'no conversion': (count) => natively(() => bench.bounce(count, payload)),
    json: (count) => roundTrips(count, json(payload)),
  };
}

const upVariants = {
  ours: () => burstUp(plain([kText]), () => app.sendMessage('bench.up', [kText])),
  limit: () => natively(() => bench.burst(kBurst)),
  json: () =>
    burstUp(json([kText]), () => app.sendMessage('bench.up', [JSON.stringify([kText])])),
};

const downVariants = {
  ours: () => burstDown(kText, (list) => list.length),
  limit: () => natively(() => bench.receive(kBurst)),
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

// How many operations make a slice of about the target, found by runs that warm up.
async function countFor(variant) {
  for (let count = 1;; count *= 2) {
    const time = await variant(count);
    if (time > target / 2) return Math.max(1, Math.round(count * target / time));
  }
}

async function prepare(kind, workload, variants) {
  const prepared = [];
  for (const [variant, run] of Object.entries(variants)) {
    const trips = kind === 'trips';
    const count = trips ? await countFor(run) : 1;
    if (!trips) await run();
    prepared.push({kind, workload, variant, run, count, slices: trips ? kSlices : 1});
  }
  return prepared;
}

// Takes a sample of each variant and has them printed.
async function sample(round, variants) {
  const times = new Map(variants.map((variant) => [variant, 0]));
  for (let slice = 0; slice < variants[0].slices; ++slice) {
    for (const variant of variants) {
      times.set(variant, times.get(variant) + await variant.run(variant.count));
    }
    // Whatever one leaves for the next to pay for is paid by each in turn.
    variants.reverse();
  }
  for (const [{kind, workload, variant, count, slices}, milliseconds] of times) {
    const line = {kind, workload, variant, round, count: count * slices, milliseconds};
    app.sendMessage('bench.print', [JSON.stringify(line)]);
  }
}

async function main() {
  const workloads = [];
  for (const [name, payload] of Object.entries(payloads)) {
    workloads.push(await prepare('trips', name, tripVariants(payload)));
  }
  workloads.push(await prepare('burst', 'page to host', upVariants));
  workloads.push(await prepare('burst', 'host to page', downVariants));
  for (const length of [1000, 10000, 100000]) {
    workloads.push(await prepare('conversion', String(length), conversionVariants(length)));
  }
  for (let round = 0; round < rounds; ++round) {
    for (const variants of workloads) await sample(round, variants);
  }
  app.sendMessage('bench.quit', []);
}

// The host gives up when it reads this.
main().catch((error) => console.error(String(error)));
