// Uses that the typings must reject. The compiler reports each mark without an error on the next
// line.

export {};

// @ts-expect-error: a message has a name
app.sendMessage();
// @ts-expect-error: names are strings
app.sendMessage(5, []);
// @ts-expect-error: the arguments are an array
app.sendMessage('name', 'text');
// @ts-expect-error: one array, not a list of parameters
app.sendMessage('name', [1], [2]);
// @ts-expect-error: an object would be ignored
app.sendMessage('name', { key: 1 });
// @ts-expect-error: a typed array would be ignored
app.sendMessage('name', new Uint8Array(2));
// @ts-expect-error: an object in the array would become null
app.sendMessage('name', [{ key: 1 }]);
// @ts-expect-error: an object in a nested array would become null
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
// @ts-expect-error: null is not a function
app.setMessageCallback('name', null);
// @ts-expect-error: names are strings
app.setMessageCallback(5, () => true);
// @ts-expect-error: only the boolean true marks a message as handled
app.setMessageCallback('name', () => 1);
// @ts-expect-error: a string does not mark a message as handled
app.setMessageCallback('name', () => 'true');
// @ts-expect-error: a promise does not mark a message as handled
app.setMessageCallback('name', async () => true);
// @ts-expect-error: a callback receives two arguments
app.setMessageCallback('name', (name: string, args: AppApi.Received[], id: number) => id > 0);
// @ts-expect-error: the type of a received value must be checked first
app.setMessageCallback('name', (name, args) => args[0].length > 0);
// @ts-expect-error: messages carry no dictionaries
app.setMessageCallback('name', (name, args: { key: number }[]) => args.length > 0);
// @ts-expect-error: setMessageCallback returns nothing
if (app.setMessageCallback('name', () => true)) app.removeMessageCallback('name');

// @ts-expect-error: callbacks are removed by name
app.removeMessageCallback();
// @ts-expect-error: the name is the only parameter
app.removeMessageCallback('name', () => true);
// @ts-expect-error: callbacks are not removed by function
app.removeMessageCallback(() => true);

// @ts-expect-error: there is no such function
app.onMessage('name', () => true);
