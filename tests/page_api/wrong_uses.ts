// What the typings must refuse. The compiler reports every line below a mark that it does not.

export {};

// @ts-expect-error: a message has a name
app.sendMessage();
// @ts-expect-error: names are texts
app.sendMessage(5, []);
// @ts-expect-error: the arguments are an array
app.sendMessage('name', 'text');
// @ts-expect-error: one array, not a list of parameters
app.sendMessage('name', [1], [2]);
// @ts-expect-error: an object would be ignored
app.sendMessage('name', { key: 1 });
// @ts-expect-error: a typed array would be ignored
app.sendMessage('name', new Uint8Array(2));
// @ts-expect-error: an object inside would become null
app.sendMessage('name', [{ key: 1 }]);
// @ts-expect-error: deep inside as well
app.sendMessage('name', [1, [2, [{ key: 1 }]]]);
// @ts-expect-error: undefined would become null
app.sendMessage('name', [undefined]);
// @ts-expect-error: a function would become null
app.sendMessage('name', [() => 1]);
// @ts-expect-error: a date would become null
app.sendMessage('name', [new Date()]);
// @ts-expect-error: a symbol would become null
app.sendMessage('name', [Symbol('key')]);
// @ts-expect-error: there is no acknowledgement
app.sendMessage('name', []).then(() => 1);

// @ts-expect-error: a registration needs a function
app.setMessageCallback('name');
// @ts-expect-error: and null is none
app.setMessageCallback('name', null);
// @ts-expect-error: names are texts
app.setMessageCallback(5, () => true);
// @ts-expect-error: only the boolean true marks a message as handled
app.setMessageCallback('name', () => 1);
// @ts-expect-error: nor does the text
app.setMessageCallback('name', () => 'true');
// @ts-expect-error: nor does a promise
app.setMessageCallback('name', async () => true);
// @ts-expect-error: a callback gets two parameters
app.setMessageCallback('name', (name: string, args: AppApi.Received[], id: number) => id > 0);
// @ts-expect-error: what arrives has to be looked at before it is used
app.setMessageCallback('name', (name, args) => args[0].length > 0);
// @ts-expect-error: no dictionary arrives
app.setMessageCallback('name', (name, args: { key: number }[]) => args.length > 0);
// @ts-expect-error: whether the callback was registered is not told
if (app.setMessageCallback('name', () => true)) app.removeMessageCallback('name');

// @ts-expect-error: callbacks are removed by name
app.removeMessageCallback();
// @ts-expect-error: and by name alone
app.removeMessageCallback('name', () => true);
// @ts-expect-error: not by function
app.removeMessageCallback(() => true);

// @ts-expect-error: there are three functions
app.onMessage('name', () => true);
