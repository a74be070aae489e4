"""The model of the documents in all browsers: the messages and the end of each document.

A document numbers its messages from 1. They arrive once, in order and unchanged. If its renderer or
browser is killed, the last messages may be missing. It confirms each message that it receives, in
order. A document that is still alive at the end has confirmed all messages.
"""

import dataclasses

from payload import checksum

# PerformanceNavigation.TYPE_BACK_FORWARD
BACK_OR_FORWARD = 2

LIVE = "live"
LEAVING = "leaving"  # another document replaces it, or its browser closes
LEFT = "left"        # it was unloaded; it may still run while its browser closes
GONE = "gone"        # its renderer or browser has ended


@dataclasses.dataclass
class Document:
    id: str
    suite: object
    browser: int
    is_page: bool        # not a frame
    state: str = LIVE
    received: int = 0    # the number of its latest message
    sent_at: list = dataclasses.field(default_factory=list)  # the time of each message to it
    confirmed: int = 0
    filled: bool = False

    def __str__(self):
        return f"{self.suite.name}{self.browser}/{self.id[:8]}"


class Documents:
    """Compares messages with the model. `problems` lists all deviations."""

    def __init__(self, note_latency):
        self.problems = []
        self.by_id = {}
        self._restored = set()  # browsers whose renderer has ended, as (suite, browser)
        self._pages = {}  # the newest page of each browser, by (suite, browser)
        self.up = self.down = self.lost = 0
        self._note_latency = note_latency

    def live(self, suite=None, pages_only=True):
        return [document for document in self.by_id.values()
                if document.state == LIVE and (document.is_page or not pages_only) and
                suite in (None, document.suite)]

    def take(self, suite, browser, arguments, now):
        """Handles a message "soak" from a page."""
        identifier, number, kind, sum_, payload = arguments
        self.up += 1
        if kind == "hello":
            self._add(identifier, suite, browser, *payload)
        document = self.by_id.get(identifier)
        if document is None:
            self.problems.append(f"message {number} of a document without a first one: {kind}")
            return
        if number != document.received + 1:
            self.problems.append(f"{document}: message {number} after {document.received}")
        document.received = number
        if str(checksum(payload)) != sum_:
            self.problems.append(f"{document}: message {number} ({kind}) is not what was sent")
        if document.state == GONE:
            self.problems.append(f"{document}: message {number} ({kind}) after its renderer's end")
        if kind == "ack":
            self._confirm(document, *payload, now)
        elif kind == "filled":
            document.filled = True
        elif kind == "bye":
            self._leave(document)

    def _add(self, identifier, suite, browser, is_page, navigation):
        if is_page:
            self.replace(suite, browser)
            self._pages[suite, browser] = identifier
        self.by_id[identifier] = Document(identifier, suite, browser, is_page)
        # After the end of a renderer, Chromium decides how it loads the page again.
        if navigation == BACK_OR_FORWARD and (suite, browser) not in self._restored:
            self.problems.append(f"{self.by_id[identifier]}: was loaded by a step in the history")

    def _of(self, suite, browser):
        return [document for document in self.by_id.values()
                if document.suite is suite and browser in (None, document.browser)]

    def count_frames(self, page):
        return sum(document.state == LIVE and not document.is_page
                   for document in self._of(page.suite, page.browser))

    def replace(self, suite, browser):
        """Marks the page of a browser and its frames as leaving. They may still send messages."""
        for document in self._of(suite, browser):
            if document.state == LIVE:
                document.state = LEAVING

    def _leave(self, document):
        """A page in another process can leave after the next page has loaded."""
        if document.is_page and self._pages[document.suite, document.browser] == document.id:
            self.replace(document.suite, document.browser)
        document.state = LEFT

    def end(self, suite, browser=None):
        """Marks the documents of a browser, or of a whole browser process, as gone."""
        self._restored.add((suite, browser))
        for document in self._of(suite, browser):
            if document.state in (LIVE, LEAVING):
                self.lost += len(document.sent_at) - document.confirmed
                document.state = GONE

    def send(self, document, payload, now):
        document.sent_at.append(now)
        self.down += 1
        arguments = [len(document.sent_at), str(checksum(payload)), payload]
        document.suite.send(send=f"down {document.id}", args=arguments, browser=document.browser)

    def _confirm(self, document, number, unchanged, now):
        if number != document.confirmed + 1 or number > len(document.sent_at):
            self.problems.append(
                f"{document}: confirms message {number} after {document.confirmed}")
            return
        document.confirmed = number
        if not unchanged:
            self.problems.append(f"{document}: received message {number} changed")
        self._note_latency(now - document.sent_at[number - 1])

    def unconfirmed(self):
        return [document for document in self.by_id.values()
                if document.state == LIVE and document.confirmed < len(document.sent_at)]

    def overfull(self):
        return [document for document in self.live(pages_only=False) if document.filled]

    def close(self):
        """Checks the documents that are still alive. No message may follow."""
        for document in self.unconfirmed():
            self.problems.append(f"{document}: did not confirm messages {document.confirmed + 1} "
                                 f"to {len(document.sent_at)}")
        for document in self.overfull():
            self.problems.append(f"{document}: exceeded the memory limit and lives")
