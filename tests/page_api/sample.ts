// Uses each part of the typings as intended. This script is compiled, not run.

const counters = new Map<string, number>();

function count(name: string): void {
  counters.set(name, (counters.get(name) ?? 0) + 1);
}

function isTexts(value: AppApi.Received | undefined): value is string[] {
  return Array.isArray(value) && value.every((element) => typeof element === 'string');
}

// Sends a request, one at a time for each topic: messages have no identifiers, so the name of the
// answer contains the topic.
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

// Registers callbacks that return a value, return nothing, or ignore parameters.
app.setMessageCallback('page.refresh', () => true);
app.setMessageCallback('page.count', count);
app.setMessageCallback('page.title', (_, [title]) => {
  if (typeof title !== 'string') return false;
  document.title = title;
  return true;
});

// Sends all types of values, no arguments, a constant array, and received values.
const version = [4, 3, 0, 256] as const;
app.sendMessage('page.ready');
app.sendMessage('page.ready', undefined);
app.sendMessage('page.version', version);
app.sendMessage('page.state', ['text', 1, 2.5, true, null, [], [[1, ['two']]]]);
app.setMessageCallback('page.mirror', (name, args) => app.sendMessage(`${name}.back`, args));

window.app.sendMessage('page.ready');
void showLanguages();
