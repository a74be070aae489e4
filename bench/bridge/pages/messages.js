'use strict';

// Runs every workload in every variant, round by round, and makes the host print one line for each
// sample. The parameters are in the page's address: #rounds=13&slices=8&target=10&burst=10000. The
// target is the milliseconds of one slice of a sample. The variants take turns after each slice,
// because the system's placement of threads changes often and affects the time of a trip strongly.
//
// With role=baseline, the page only runs the requests of the measuring page, with another helper.
// The address of the measuring page contains baseline if there is such a page.
const rounds = Number(parameters.get('rounds'));
const slices = Number(parameters.get('slices'));
const target = Number(parameters.get('target'));
const slicesOf = {trips: slices, burst: 2, conversion: 1};

// Runs the variant `ours` of a workload in the renderer with the other helper.
let onAnswer = null;
function runWithBaseline(workload, count) {
  return new Promise((resolve) => {
    onAnswer = resolve;
    app.sendMessage('bench.ask', [workload, count]);
  });
}

async function answer(name, count) {
  const {variants} = workloads.find((workload) => workload.name === name);
  app.sendMessage('bench.answer', [await variants.ours(count)]);
}

// Determines the number of operations whose slice takes about the target. The runs warm up the
// variant.
async function countFor(variant) {
  for (let count = 1;; count *= 2) {
    const time = await variant(count);
    if (time > target / 2) return Math.max(1, Math.round(count * target / time));
  }
}

async function prepare({kind, name, variants}) {
  const prepared = [];
  for (const [variant, run] of Object.entries(variants)) {
    const trips = kind === 'trips';
    const count = trips ? await countFor(run) : 1;
    if (!trips) await run();
    prepared.push({kind, workload: name, variant, run, count, slices: slicesOf[kind]});
  }
  return prepared;
}

// Takes a sample of each variant and makes the host print the samples.
async function sample(round, variants) {
  const times = new Map(variants.map((variant) => [variant, 0]));
  for (let slice = 0; slice < variants[0].slices; ++slice) {
    for (const variant of variants) {
      times.set(variant, times.get(variant) + await variant.run(variant.count));
    }
    // A variant can leave work to its successor. Reversing the order distributes this work.
    variants.reverse();
  }
  for (const [variant, milliseconds] of times) {
    const {kind, workload} = variant;
    const count = variant.count * variant.slices;
    const line = {kind, workload, variant: variant.variant, round, count, milliseconds};
    app.sendMessage('bench.print', [JSON.stringify(line)]);
  }
}

function addBaseline({name, variants}) {
  variants.baseline = (count) => runWithBaseline(name, count);
}

async function measure() {
  if (parameters.has('baseline')) workloads.forEach(addBaseline);
  const prepared = [];
  for (const workload of [...workloads, ...conversions]) prepared.push(await prepare(workload));
  for (let round = 0; round < rounds; ++round) {
    for (const variants of prepared) await sample(round, variants);
  }
  app.sendMessage('bench.quit', []);
}

// The host ends with an error when it receives this text.
function fail(error) {
  console.error(String(error));
}

if (parameters.get('role') === 'baseline') {
  app.setMessageCallback('bench.ask', (_, [name, count]) => {
    answer(name, count).catch(fail);
    return true;
  });
  app.sendMessage('bench.ready', []);
} else {
  app.setMessageCallback('bench.answer', (_, [milliseconds]) => {
    onAnswer(milliseconds);
    return true;
  });
  measure().catch(fail);
}
