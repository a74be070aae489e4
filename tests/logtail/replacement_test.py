"""Tests of following a log that another program replaces or removes."""

import os
import shutil
import unittest

from support import LogtailTest, line, lines

FIRST = "2026-11-15 21-05-07"
SECOND = "2026-11-15 21-20-07"


class ReplacementTest(LogtailTest):
    """Begins with a follower that has shown a log with five records."""

    def setUp(self):
        super().setUp()
        self.write(*lines("old", 5))
        self.follower = self.follow(self.log)
        self.follower.next_lines(5)
        self.follower.stop()

    def expect(self, *texts):
        self.follower.go_on()
        self.assertEqual(self.follower.next_lines(len(texts)), list(texts))

    def test_reads_renamed_log_to_its_end(self):
        self.write(line("missed"))
        os.rename(self.log, self.path("CRN.log.1"))
        self.write(line("late"), path=self.path("CRN.log.1"))
        self.write(line("new"))
        self.expect(line("missed"), line("late"), line("new"))

    def test_shows_log_renamed_like_copy_once(self):
        self.write(line("missed"))
        os.rename(self.log, self.path(f"CRN {FIRST}.log"))
        self.write(line("new"))
        self.expect(line("missed"), line("new"))

    def test_reads_copies_of_new_log(self):
        os.rename(self.log, self.path("CRN.log.1"))
        self.write(*lines("second", 3))
        self.rotate(SECOND)
        self.write(line("new"))
        self.expect(*lines("second", 3), line("new"))

    def test_continues_with_renamed_log_until_new_log_exists(self):
        renamed = self.path("CRN.log.1")
        os.rename(self.log, renamed)
        self.write(line("late"), path=renamed)
        self.expect(line("late"))
        self.write(line("new"))
        self.assertEqual(self.follower.next_line(), line("new"))

    def test_reads_removed_log_to_its_end(self):
        self.write(line("missed"))
        os.remove(self.log)
        self.expect(line("missed"))
        self.write(line("new"))
        self.assertEqual(self.follower.next_line(), line("new"))

    def test_waits_for_log_removed_with_its_folder(self):
        folder = self.path("folder")
        os.mkdir(folder)
        log = os.path.join(folder, "CRN.log")
        self.write(line("old"), path=log)
        follower = self.follow(log)
        follower.next_line()
        follower.stop()
        shutil.rmtree(folder)
        os.mkdir(folder)
        self.write(line("new"), path=log)
        follower.go_on()
        self.assertEqual(follower.next_line(), line("new"))

    def test_reads_longer_replacement_from_its_beginning(self):
        self.write(line("missed"))
        self.write(*lines("new", 50), path=self.path("new"))
        os.replace(self.path("new"), self.log)
        self.expect(line("missed"), *lines("new", 50))


if __name__ == "__main__":
    unittest.main()
