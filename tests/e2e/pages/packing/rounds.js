'use strict';

// Sends random arrays to the host and compares the returned arrays with the model. The query contains
// the first seed and the number of rounds: ?1,10000. The first element of each message is the text of
// the kinds that the host must receive. To run a million rounds in the folder of the page:
//   suite_host --timeout=0 "file://$PWD/packing_random.html?1,1000000" | grep '"mismatch"'

const [firstSeed, rounds] = location.search.slice(1).split(',').map(Number);
const expectations = [];
const atOnce = 50;
let sent = 0;
let errors = 0;

onerror = () => {
  ++errors;
  return true;
};

function fail(seed, reason) {
  app.sendMessage('mismatch', [seed, reason]);
}

function send(seed) {
  const random = new Random(seed);
  const array = random.array(0);
  const model = new Model();
  const expected = model.array(array);
  getters.clear();
  errors = 0;
  app.sendMessage('host.send', ['round', [model.kinds, array]]);
  if (random.readings.join() !== model.readings.join()) fail(seed, 'order of getters');
  if (errors !== model.errors) fail(seed, `${errors} errors instead of ${model.errors}`);
  expectations.push({seed, expected});
}

function sendMore() {
  for (let i = 0; i < atOnce && sent < rounds; ++i) send(firstSeed + sent++);
}

app.setMessageCallback('round', (name, [, array]) => {
  const {seed, expected} = expectations.shift();
  if (!isSame(array, expected)) fail(seed, 'elements');
  if (expectations.length === 0) sendMore();
  if (expectations.length === 0) {
    app.sendMessage('rounds', [sent]);
    app.sendMessage('host.quit', [0]);
  }
  return true;
});
sendMore();
