"""The rotated copies of a log, when they are asked for."""

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

    def test_copies_are_not_read_unless_asked_for(self):
        self.assertEqual(self.messages(self.log), ["live"])

    def test_copies_come_first_and_the_oldest_of_them_in_front(self):
        self.assertEqual(self.messages("--rotated", self.log), self.in_order)
        self.assertEqual(self.messages("-a", "-n", "2", self.log), [SECOND, "live"])

    def test_copies_come_first_when_following(self):
        follower = self.follow("-a", self.log)
        self.assertEqual(follower.next_lines(5), [line(text) for text in self.in_order])
        self.write(line("new"))
        self.assertEqual(follower.next_line(), line("new"))

    def test_lines_are_not_joined_from_file_to_file(self):
        self.write_raw("torn", path=self.path(f"CRN {SECOND}.log"))
        self.write("stray", mode="w")
        self.assertEqual(self.shown("-a", self.log)[-3:], [line(SECOND), "torn", "stray"])

    def test_copies_are_found_beside_a_log_that_is_named_without_its_folder(self):
        self.assertEqual(self.messages("-a", "CRN.log"), self.in_order)

    def test_a_copy_that_is_just_being_made_is_not_shown(self):
        shutil.copyfile(self.log, self.path(f"CRN {THIRD}.log"))
        self.assertEqual(self.messages("-a", self.log), self.in_order)

    def test_a_longer_copy_that_begins_as_the_log_is_shown(self):
        header = lines("*" * 78, 20)
        self.write(*header, line("first"), *lines("more", 10), path=self.path(f"CRN {THIRD}.log"))
        self.write(*header, line("second"), mode="w")
        messages = self.messages("-a", self.log)
        self.assertIn("first", messages)
        self.assertIn("second", messages)

    def test_copies_are_shown_also_when_the_log_is_missing(self):
        os.remove(self.log)
        shown = self.run_logtail("-a", self.log, status=1).decode().splitlines()
        self.assertEqual(shown, [line(text) for text in self.in_order[:-1]])
        self.assertIn("CRN.log: No such file", self.errors)


if __name__ == "__main__":
    unittest.main()
