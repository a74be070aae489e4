"""Tests that the model of documents finds lost, duplicated, reordered and changed messages."""

import unittest

from documents import Documents
from payload import checksum


class FakeSuite:
    def __init__(self):
        self.name = "S"
        self.sent = []

    def send(self, **command):
        self.sent.append(command)


class DocumentsTest(unittest.TestCase):
    def setUp(self):
        self.latencies = []
        self.documents = Documents(self.latencies.append)
        self.suite = FakeSuite()

    def take(self, number, kind, payload=(), identifier="d1", browser=1):
        payload = list(payload)
        self.documents.take(self.suite, browser,
                            [identifier, number, kind, str(checksum(payload)), payload], 5)

    def begin(self, identifier="d1", browser=1, is_page=True, navigation=0):
        self.take(1, "hello", [is_page, navigation], identifier, browser)
        return self.documents.by_id[identifier]

    def assert_problem(self, text):
        self.documents.close()
        self.assertEqual(len(self.documents.problems), 1, self.documents.problems)
        self.assertIn(text, self.documents.problems[0])

    def assert_no_problem(self):
        self.documents.close()
        self.assertEqual(self.documents.problems, [])

    def test_accepts_messages_in_order(self):
        self.begin()
        self.take(2, "up", [1, "two", [3.5]])
        self.take(3, "bye")
        self.assert_no_problem()

    def test_finds_lost_message(self):
        self.begin()
        self.take(3, "up")
        self.assert_problem("message 3 after 1")

    def test_finds_duplicated_message(self):
        self.begin()
        self.take(2, "up")
        self.take(2, "up")
        self.assert_problem("message 2 after 2")

    def test_finds_changed_message(self):
        self.begin()
        self.documents.take(self.suite, 1, ["d1", 2, "up", str(checksum([0.0])), [-0.0]], 5)
        self.assert_problem("is not what was sent")

    def test_finds_message_of_unknown_document(self):
        self.take(4, "up")
        self.assert_problem("without a first one")

    def test_finds_message_after_end_of_renderer(self):
        self.begin()
        self.documents.end(self.suite, 1)
        self.take(2, "up")
        self.assert_problem("after its renderer's end")

    def test_finds_unconfirmed_message_of_live_document(self):
        document = self.begin()
        self.documents.send(document, [1], 3)
        self.documents.send(document, [], 4)
        self.assertEqual([command["send"] for command in self.suite.sent], ["down d1"] * 2)
        self.take(2, "ack", [1, True])
        self.assertEqual(self.latencies, [2])
        self.assert_problem("did not confirm messages 2 to 2")

    def test_finds_message_that_arrives_changed(self):
        self.documents.send(self.begin(), [1], 3)
        self.take(2, "ack", [1, False])
        self.assert_problem("received message 1 changed")

    def test_finds_confirmations_out_of_order(self):
        document = self.begin()
        for _ in range(2):
            self.documents.send(document, [1], 3)
        self.take(2, "ack", [2, True])
        self.documents.end(self.suite, 1)
        self.assert_problem("confirms message 2 after 0")

    def test_finds_confirmation_of_unsent_message(self):
        self.begin()
        self.take(2, "ack", [1, True])
        self.assert_problem("confirms message 1 after 0")

    def test_accepts_missing_confirmation_of_ended_document(self):
        self.documents.send(self.begin(), [1], 3)
        self.documents.end(self.suite, 1)
        self.assertEqual(self.documents.lost, 1)
        self.assert_no_problem()

    def test_next_page_replaces_page_and_its_frames(self):
        self.begin("page")
        self.begin("frame", is_page=False)
        self.begin("other", browser=2)
        self.begin("next")
        live = {document.id for document in self.documents.live(pages_only=False)}
        self.assertEqual(live, {"other", "next"})
        self.take(2, "bye", identifier="page")  # the next page can load before this message arrives
        live = {document.id for document in self.documents.live(pages_only=False)}
        self.assertEqual(live, {"other", "next"})
        self.assert_no_problem()

    def test_frames_leave_with_their_page(self):
        self.begin("page")
        self.begin("frame", is_page=False)
        self.take(2, "bye", identifier="page")
        self.assertEqual(self.documents.live(pages_only=False), [])

    def test_finds_step_back(self):
        self.begin(navigation=2)
        self.assert_problem("was loaded by a step in the history")

    def test_accepts_step_back_after_end_of_renderer(self):
        self.begin("d1")
        self.documents.end(self.suite, 1)
        self.begin("d2", navigation=2)
        self.assert_no_problem()

    def test_finds_document_that_survives_memory_limit(self):
        self.begin()
        self.take(2, "filled")
        self.assert_problem("exceeded the memory limit and lives")


class ChecksumTest(unittest.TestCase):
    def test_distinguishes_values(self):
        values = [None, True, False, 0, -0.0, 1, "", "1", "\0", [], [[]], [0], ["ä"], ["a", "b"],
                  ["ab"]]
        self.assertEqual(len({checksum(value) for value in values}), len(values))

    def test_does_not_distinguish_int_from_double(self):
        self.assertEqual(checksum([1]), checksum([1.0]))


if __name__ == "__main__":
    unittest.main()
