"""Tests of reading the rotated copies of a log."""

import os
import shutil
import unittest

from support import LogtailTest, line, lines

FIRST = "2026-11-15 21-05-07"
SECOND = "2026-11-15 21-20-07"
THIRD = "2026-11-16 06-00-00"


class RotatedCopiesTest(LogtailTest):
    def setUp(self):
        super().setUp()
        for stamp in (SECOND, FIRST + "_002", FIRST + "_010", FIRST):
            self.write(line(stamp), path=self.path(f"CRN {stamp}.log"))
        self.write(line("live"))
        self.in_order = [FIRST, FIRST + "_002", FIRST + "_010", SECOND, "live"]

    def test_does_not_read_copies_by_default(self):
        self.assertEqual(self.messages(self.log), ["live"])

    def test_reads_copies_first_from_oldest_to_newest(self):
        self.assertEqual(self.messages("--rotated", self.log), self.in_order)
        self.assertEqual(self.messages("-a", "-n", "2", self.log), [SECOND, "live"])

    def test_reads_copies_first_when_following(self):
        follower = self.follow("-a", self.log)
        self.assertEqual(follower.next_lines(5), [line(text) for text in self.in_order])
        self.write(line("new"))
        self.assertEqual(follower.next_line(), line("new"))

    def test_does_not_join_lines_of_different_files(self):
        self.write_raw("torn", path=self.path(f"CRN {SECOND}.log"))
        self.write("stray", mode="w")
        self.assertEqual(self.shown("-a", self.log)[-3:], [line(SECOND), "torn", "stray"])

    def test_finds_copies_of_log_in_current_folder(self):
        self.assertEqual(self.messages("-a", "CRN.log"), self.in_order)

    def test_ignores_copy_that_is_being_made(self):
        shutil.copyfile(self.log, self.path(f"CRN {THIRD}.log"))
        self.assertEqual(self.messages("-a", self.log), self.in_order)

    def test_shows_longer_copy_with_same_beginning_as_log(self):
        header = lines("*" * 78, 20)
        self.write(*header, line("first"), *lines("more", 10), path=self.path(f"CRN {THIRD}.log"))
        self.write(*header, line("second"), mode="w")
        messages = self.messages("-a", self.log)
        self.assertIn("first", messages)
        self.assertIn("second", messages)

    def test_shows_copies_of_missing_log(self):
        os.remove(self.log)
        shown = self.run_logtail("-a", self.log, status=1).decode().splitlines()
        self.assertEqual(shown, [line(text) for text in self.in_order[:-1]])
        self.assertIn("CRN.log: No such file", self.errors)


if __name__ == "__main__":
    unittest.main()
