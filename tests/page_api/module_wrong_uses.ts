// Uses that the module's typings must reject. The compiler reports each mark without an error on
// the next line.

import { request, on, off, encode, decode } from 'velmora-app';

// @ts-expect-error: a request has a name
request();
// @ts-expect-error: names are strings
request(5);
// @ts-expect-error: the arguments are an array
request('name', 'text');
// @ts-expect-error: an object must be encoded
request('name', [{ key: 1 }]);
// @ts-expect-error: a time is a number
request('name', [], { timeout: '1s' });
// @ts-expect-error: there is no such option
request('name', [], { retries: 2 });
// @ts-expect-error: a signal has listeners
request('name', [], { signal: { aborted: false } });
// @ts-expect-error: a progress function takes one array
request('name', [], { progress: (fraction: number) => fraction });
// @ts-expect-error: the types of an answer's values must be checked first
request('name').then(([first]) => first.length);

// @ts-expect-error: a listener is a function
on('name');
// @ts-expect-error: a promise handles no message
on('name', async () => true);
// @ts-expect-error: a listener has no handle
on('name', () => true).remove();
// @ts-expect-error: a name alone does not identify a listener
off('name');

// @ts-expect-error: an encoded value is one of several types
encode({}).length;
// @ts-expect-error: the type of a decoded value must be checked first
decode('text').length;
// @ts-expect-error: messages carry no plain objects
decode({ key: 1 });
