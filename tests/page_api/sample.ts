// A page script that uses each part of the typings as it is meant. It is compiled, not run.

const counters = new Map<string, number>();

function count(name: string): void {
  counters.set(name, (counters.get(name) ?? 0) + 1);
}

function isTexts(value: AppApi.Received | undefined): value is string[] {
  return Array.isArray(value) && value.every((element) => typeof element === 'string');
}

// One request at a time for each topic: a message has no identifier of its own, so the page puts
// the topic into the name of the answer.
function request(topic: string, ...args: AppApi.Sendable[]): Promise<AppApi.Received[]> {
  const answer = `${topic}.answer`;
  return new Promise((resolve) => {
    app.setMessageCallback(answer, (name, values) => {
      const removed: boolean = app.removeMessageCallback(name);
      resolve(values);
      return removed;
    });
    app.sendMessage(topic, args);
  });
}

async function showLanguages(): Promise<void> {
  const [languages, preferred] = await request('settings.languages', 'installed', true);
  if (!isTexts(languages)) return;
  const first = typeof preferred === 'number' ? languages[preferred] : undefined;
  document.title = first ?? languages.join(', ');
}

// Callbacks that return something, nothing, and take fewer parameters than they get.
app.setMessageCallback('page.refresh', () => true);
app.setMessageCallback('page.count', count);
app.setMessageCallback('page.title', (_, [title]) => {
  if (typeof title !== 'string') return false;
  document.title = title;
  return true;
});

// Every kind of value, without arguments, from a constant array, and what arrived sent back.
const version = [4, 3, 0, 256] as const;
app.sendMessage('page.ready');
app.sendMessage('page.ready', undefined);
app.sendMessage('page.version', version);
app.sendMessage('page.state', ['text', 1, 2.5, true, null, [], [[1, ['two']]]]);
app.setMessageCallback('page.mirror', (name, args) => app.sendMessage(`${name}.back`, args));

window.app.sendMessage('page.ready');
void showLanguages();
