"""Runs the scripts of the documents in a page of a real Chromium."""

import pathlib
import unittest

import documents
from environment import HelperTest, console, messages

GREETING = documents.take("README.md", "app.setMessageCallback('greeting.answer'")
REQUEST = documents.take("docs/page-api.md", "let requests = 0;")
THEME = documents.take("docs/page-api.md", "app.setMessageCallback('theme.changed'")
ERRORS = documents.take("docs/page-api.md", "window.addEventListener('error'")

# Ends the run after all earlier messages came back.
END = """
app.setMessageCallback('end', () => {
  app.sendMessage('class', [document.documentElement.className]);
  app.sendMessage('host.quit', [0]);
});
app.sendMessage('host.send', ['end', []]);
"""

BREAK = "throw new Error('broken');\n"


def answer(name, values):
    return f"app.sendMessage('host.send', ['{name}', {values}]);\n"


class PageExamplesTest(HelperTest):
    def test_page_greets_and_receives_answer(self):
        # The example browser prints only the first argument of console.log().
        log = "console.log = (...all) => app.sendMessage('logged', all);\n"
        visit = self.show_page(log, GREETING, answer("greeting.answer", "['welcome', 7]") + END)
        self.assertEqual(messages(visit, "greeting"), [["hello", 42, [1, 2, 3]]])
        self.assertEqual(messages(visit, "logged"), [["greeting.answer", ["welcome", 7]]])

    def test_request_waits_for_answer(self):
        visit = self.show_page(REQUEST, END)
        self.assertEqual(messages(visit, "host.send")[0], ["host.send.answer.1", ["a", [1, 2]]])
        self.assertEqual(console(visit), ["a,1,2"])

    def test_two_requests_receive_their_own_answers(self):
        again = "request('host.send', ['b']).then((values) => console.log(`second: ${values}`));\n"
        visit = self.show_page(REQUEST, again + END)
        self.assertEqual(console(visit), ["a,1,2", "second: b"])

    def test_page_follows_suite(self):
        visit = self.show_page(THEME, answer("theme.changed", "['dark']") + END)
        self.assertEqual(messages(visit, "class"), [["dark"]])

    def test_page_reports_errors(self):
        visit = self.show_page(ERRORS, BREAK, END)
        (reported,) = messages(visit, "page.error")
        with open(self.path("page.html"), encoding="utf-8") as page:
            line = 1 + page.read().splitlines().index(BREAK.strip())
        address = pathlib.Path(self.path("page.html")).as_uri()
        self.assertEqual(reported, ["Uncaught Error: broken", address, line])


if __name__ == "__main__":
    unittest.main()
