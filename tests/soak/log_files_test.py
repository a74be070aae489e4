"""Tests that every file of the log is read once, and that wrong removals of copies are found."""

import gzip
import pathlib
import tempfile
import time
import unittest

from log_files import LogFiles


def copy_name(seconds_ago):
    return time.strftime("CRN %Y-%m-%d %H-%M-%S.log", time.localtime(time.time() - seconds_ago))


class LogFilesTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name, "CRN")
        self.old = pathlib.Path(folder.name, "logrotate")
        self.folder.mkdir()
        self.old.mkdir()
        self.taken = {}
        self.files = LogFiles(self.folder, self.old, self.take)

    def take(self, name, content):
        self.assertNotIn(name, self.taken)
        self.taken[name] = content

    def make(self, *names):
        for name in names:
            (self.folder / name).write_text(name, encoding="utf-8")
        self.files.poll()

    def remove(self, *names):
        for name in names:
            (self.folder / name).unlink()
        self.files.poll()

    def test_reads_copies_immediately_and_other_files_at_end(self):
        self.make(copy_name(9), "CRN.log")
        self.assertEqual(list(self.taken), [copy_name(9)])
        (self.old / "CRN.log.1").write_bytes(b"one")
        (self.old / "CRN.log.2.gz").write_bytes(gzip.compress(b"two"))
        self.files.close()
        self.assertEqual(self.taken["CRN.log"], b"CRN.log")
        self.assertEqual(self.taken["CRN.log.1"], b"one")
        self.assertEqual(self.taken["CRN.log.2.gz"], b"two")
        self.assertEqual((self.files.rotations, self.files.problems), (1, []))

    def test_accepts_removal_of_all_but_two_newest_copies(self):
        first, second, third = copy_name(9), copy_name(6), copy_name(3)
        self.make(first, second, third)
        self.remove(first)
        self.assertEqual(self.files.problems, [])
        self.remove(third)
        self.assertEqual(len(self.files.problems), 1)

    def test_latest_copy_counts_as_newest_despite_older_name(self):
        first, second = copy_name(9), copy_name(6)
        self.make(first, second)
        self.make(copy_name(3600))
        self.remove(first)
        self.assertEqual(self.files.problems, [])

    def test_accepts_removal_of_copies_of_other_days(self):
        old = copy_name(3 * 24 * 3600)
        self.make(old)
        self.remove(old)
        self.assertEqual(self.files.problems, [])

    def test_finds_surplus_copies(self):
        self.make(copy_name(12), copy_name(9), copy_name(6))
        self.assertEqual(self.files.problems, [])
        self.make(copy_name(3))
        self.assertEqual(len(self.files.problems), 1)

    def test_accepts_surplus_copies_with_marker(self):
        self.files.marker().write_text("keeplogs", encoding="utf-8")
        self.make(*[copy_name(seconds) for seconds in (15, 12, 9, 6)])
        self.make(copy_name(3))
        self.assertEqual(self.files.problems, [])

    def test_finds_remaining_hidden_file(self):
        self.make(".CRN.log.rotating")
        self.files.close()
        self.assertIn(".CRN.log.rotating is left", self.files.problems[0])


if __name__ == "__main__":
    unittest.main()
