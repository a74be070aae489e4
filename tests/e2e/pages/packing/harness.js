'use strict';

// Runs the table of cases, each in a new frame, one after the other. The host's events and the lines
// of the case's log form the case's transcript.
//
// A case is a function of the tools below, or an array of such a function and its second argument.
// Its source is evaluated in the frame in sloppy mode, so that all of its arrays and built-ins belong
// to the frame, and it cannot use names of its file. A case that ends its frame returns a promise of
// the tools, because an async function of a frame that has ended never returns.

const table = [];

function cases(subject, functions) {
  for (const name of Object.keys(functions)) {
    const [run, argument] = [].concat(functions[name]);
    table.push({name: `${subject}: ${name}`, run, argument});
  }
}

// Resolves when the browser has executed all commands that were sent before.
function settled() {
  return new Promise((resolve) => {
    app.setMessageCallback('settled', () => {
      app.removeMessageCallback('settled');
      resolve();
      return true;
    });
    app.sendMessage('host.send', ['settled', []]);
  });
}

function addCaseFrame() {
  return new Promise((resolve) => {
    const frame = document.createElement('iframe');
    frame.onload = () => {
      frame.onload = null;
      resolve(frame);
    };
    frame.srcdoc = '<body></body>';
    document.body.appendChild(frame);
  });
}

// Uses a script of the frame: the page cannot see errors of code that a script file evaluates.
function evaluate(frame, text) {
  const script = frame.contentDocument.createElement('script');
  script.textContent = `window.evaluated = (${text})`;
  frame.contentDocument.head.appendChild(script);
  const {evaluated} = frame.contentWindow;
  delete frame.contentWindow.evaluated;
  return evaluated;
}

// The tools of the cases. They belong to the main page, whose built-ins are never replaced.
class Tools {
  constructor(frame) {
    this.lines = [];
    this.app = frame.contentWindow.app;
    this.prototype = frame.contentWindow.Array.prototype;
    this.settled = settled;
    this.navigated = () => new Promise((resolve) => { frame.onload = resolve; });
    this.sizes = [1, 9, 10, 11, 12, 13, 14, 15, 16, 17, 64, 65, 100, 1000, 10000];
    // Returns an array of the frame with `count` elements: the results of element(index), or indexes.
    this.make = evaluate(frame, `(count, element = (index) => index) => {
      const array = [];
      for (let i = 0; i < count; ++i) array[i] = element(i);
      return array;
    }`);
    const atEveryDepth = evaluate(frame, `(count, action, onError) => {
      let returned = 0;
      (function deeper() {
        try {
          deeper();
        } catch (error) {
          if (!(error instanceof RangeError)) onError(error);
        }
        if (returned === count) return;
        try {
          action();
          ++returned;
        } catch (error) {
          if (!(error instanceof RangeError)) onError(error);
        }
      })();
      return returned === count;
    }`);
    // Exhausts the stack, and calls `action` at each level from the deepest, until `count` calls have
    // returned. Logs exceptions other than RangeErrors. Returns whether so many calls have returned.
    this.atEveryDepth = (count, action) =>
      atEveryDepth(count, action, (error) => this.log(`throws ${error}`));
    frame.contentWindow.onerror = (message, source, line, column, error) => {
      // How far a call gets before the stack is used up depends on whether it has been optimized.
      const place = /RangeError/.test(message) ? line : `${line}:${column}`;
      this.log(`onerror ${message} ${source} ${place} ${typeof error}`);
    };
  }

  log(label, ...values) {
    const texts = values.map((value) => shorten(describe(value, this.prototype)));
    this.lines.push([shorten(label), ...texts].join(' '));
  }

  // Makes `get` the getter of array[index], and returns the array.
  getter(array, index, get) {
    Object.defineProperty(array, index, {get, enumerable: true, configurable: true});
    return array;
  }

  // Logs one line for consecutive calls of the same trap.
  logTrap(label, key) {
    const last = this.lines.length - 1;
    if (last >= 0 && this.lines[last].startsWith(`${label} `)) this.lines[last] += key;
    else this.lines.push(label + key);
  }

  // Returns a Proxy of `target` that logs each of its traps.
  traced(target, label) {
    return new Proxy(target, new Proxy({}, {
      get: (handler, trap) => (...parameters) => {
        const key = /^(get|set|has|defineProperty|deleteProperty|getOwnPropertyDescriptor)$/;
        this.logTrap(`${label} ${trap}`, key.test(trap) ? ` ${String(parameters[1])}` : ' -');
        return Reflect[trap](...parameters);
      },
    }));
  }

  // Returns the callers in a stack trace, without those in the harness.
  stack(error) {
    const lines = String(error.stack).split('\n');
    const end = lines.findIndex((line) => /harness\.js/.test(line));
    return (end < 0 ? lines : lines.slice(0, end)).map((line) => line.trim()).join(' | ');
  }

  // Makes the host send `list` to the frame, and logs the arguments of the callback.
  async down(list, name = 'down') {
    this.app.setMessageCallback(name, (received, array) => {
      this.log(`${quote(received)} received`, array);
      return true;
    });
    app.sendMessage('host.send', [name, list]);
    await settled();
    this.app.removeMessageCallback(name);
  }

  // Makes the helper deliver `count` elements of all kinds, some of which no page can send.
  deliverKinds(name, count) {
    app.sendMessage('host.send', ['probe.kinds', [name, count]]);
    return settled();
  }

  // Makes the helper deliver nested lists, each with `count` doubles before the next list.
  deliverLevels(name, levels, count) {
    app.sendMessage('host.send', ['probe.levels', [name, levels, count]]);
    return settled();
  }

  // Makes the host send `list` to the callback with this name.
  post(name, list) {
    app.sendMessage('host.send', [name, list]);
    return settled();
  }

  // Adds a second frame next to that of the case; the case removes it.
  addFrame() {
    return addCaseFrame();
  }
}

async function runCase({name, run, argument}) {
  app.sendMessage('case', [name]);
  const frame = await addCaseFrame();
  const tools = new Tools(frame);
  try {
    const result = evaluate(frame, run)(tools, argument);
    // Uses the main page's function, because the frame may have replaced its own.
    if (result) await new Promise((...ends) => Promise.prototype.then.apply(result, ends));
  } catch (exception) {
    tools.log(`throws ${exception}`);
  }
  await settled();
  frame.remove();
  for (const line of tools.lines) app.sendMessage('log', [shorten(line)]);
  app.sendMessage('log', ['end']);
}

async function runTable() {
  const only = decodeURIComponent(location.search.slice(1));
  for (const entry of table) {
    if (entry.name.startsWith(only)) await runCase(entry);
  }
  app.sendMessage('host.quit', [0]);
}
