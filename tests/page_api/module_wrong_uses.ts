// Uses that the module's typings must refuse. The compiler reports a mark that has no error
// below it.

import { request, on, off, encode, decode } from 'velmora-app';

// @ts-expect-error: a request has a name
request();
// @ts-expect-error: names are strings
request(5);
// @ts-expect-error: the arguments are an array
request('name', 'text');
// @ts-expect-error: an object has to be encoded
request('name', [{ key: 1 }]);
// @ts-expect-error: a time is a number
request('name', [], { timeout: '1s' });
// @ts-expect-error: there is no such option
request('name', [], { retries: 2 });
// @ts-expect-error: a signal has listeners
request('name', [], { signal: { aborted: false } });
// @ts-expect-error: a progress function takes one array
request('name', [], { progress: (fraction: number) => fraction });
// @ts-expect-error: the values of an answer have to be looked at before they are used
request('name').then(([first]) => first.length);

// @ts-expect-error: a listener is a function
on('name');
// @ts-expect-error: a promise handles nothing
on('name', async () => true);
// @ts-expect-error: a listener has no handle
on('name', () => true).remove();
// @ts-expect-error: a listener is removed by itself, not by its name alone
off('name');

// @ts-expect-error: an encoded value is one of several types
encode({}).length;
// @ts-expect-error: a decoded value has to be looked at before it is used
decode('text').length;
// @ts-expect-error: a plain object is not received
decode({ key: 1 });
