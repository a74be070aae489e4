// Uses each part of the module's typings as intended. This file is compiled, not run.

import { request, on, off, encode, decode } from 'velmora-app';
import type { Listener, Received, RequestError, Sendable } from 'velmora-app';

function isRequestError(error: unknown): error is RequestError {
  return error instanceof Error && error.name.endsWith('Error');
}

async function copy(): Promise<string> {
  const controller = new AbortController();
  try {
    const [path] = await request('document.copy', ['a.txt', 1, true, null, [2.5]], {
      timeout: 5000,
      signal: controller.signal,
      progress: ([fraction]) => {
        if (typeof fraction === 'number' && fraction > 1) controller.abort();
      },
    });
    return typeof path === 'string' ? path : '';
  } catch (error) {
    if (isRequestError(error) && error.name === 'TimeoutError') return 'late';
    throw error;
  }
}

// Sends requests without options, and with the page's own signal.
void request('page.ready');
void request('page.ready', [], { signal: { aborted: false, addEventListener() {} } });

const listener: Listener = (name, [theme]) => name === 'theme' && typeof theme === 'string';
on('theme', listener);
on('theme', () => {});
const removed: boolean = off('theme', listener);

// `app` can send encoded values, and the values that it receives can be decoded.
const encoded: Sendable = encode({ removed, bytes: 2 ** 32 });
app.sendMessage('page.state', [encoded, encode(new Uint8Array(2))]);
app.sendMessage('page.state', encode([new Date(), NaN]));
app.setMessageCallback('page.state', (name, args) => {
  const values: unknown[] = args.map(decode);
  void copy().then((path) => values.push(path));
  return on(name, listener);
});

// Both typings describe the same values.
function same(value: AppApi.Received): Received {
  return value;
}
const listenerOfApp: AppApi.MessageCallback = listener;
app.setMessageCallback('mirror', (name, args) => listenerOfApp(name, args.map(same)));
