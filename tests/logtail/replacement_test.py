"""A log that another program replaces or removes while it is followed."""

import os
import shutil
import unittest

from support import LogtailTest, line, lines

FIRST = "2026-11-15 21-05-07"
SECOND = "2026-11-15 21-20-07"


class ReplacementTest(LogtailTest):
    """The follower has shown all of a log with five records."""

    def setUp(self):
        super().setUp()
        self.write(*lines("old", 5))
        self.follower = self.follow(self.log)
        self.follower.next_lines(5)
        self.follower.stop()

    def expect(self, *texts):
        self.follower.go_on()
        self.assertEqual(self.follower.next_lines(len(texts)), list(texts))

    def test_a_log_that_was_renamed_is_read_to_its_end(self):
        self.write(line("missed"))
        os.rename(self.log, self.path("CRN.log.1"))
        self.write(line("late"), path=self.path("CRN.log.1"))
        self.write(line("new"))
        self.expect(line("missed"), line("late"), line("new"))

    def test_a_log_that_was_renamed_as_copies_are_is_not_shown_twice(self):
        self.write(line("missed"))
        os.rename(self.log, self.path(f"CRN {FIRST}.log"))
        self.write(line("new"))
        self.expect(line("missed"), line("new"))

    def test_the_copies_of_a_new_log_are_caught_up_with(self):
        os.rename(self.log, self.path("CRN.log.1"))
        self.write(*lines("second", 3))
        self.rotate(SECOND)
        self.write(line("new"))
        self.expect(*lines("second", 3), line("new"))

    def test_a_renamed_log_is_read_on_until_there_is_a_new_one(self):
        renamed = self.path("CRN.log.1")
        os.rename(self.log, renamed)
        self.write(line("late"), path=renamed)
        self.expect(line("late"))
        self.write(line("new"))
        self.assertEqual(self.follower.next_line(), line("new"))

    def test_a_log_that_was_removed_is_read_to_its_end(self):
        self.write(line("missed"))
        os.remove(self.log)
        self.expect(line("missed"))
        self.write(line("new"))
        self.assertEqual(self.follower.next_line(), line("new"))

    def test_a_log_that_was_removed_with_its_folder_is_waited_for(self):
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

    def test_a_log_that_was_replaced_by_a_longer_one_is_read_from_its_beginning(self):
        self.write(line("missed"))
        self.write(*lines("new", 50), path=self.path("new"))
        os.replace(self.path("new"), self.log)
        self.expect(line("missed"), *lines("new", 50))


if __name__ == "__main__":
    unittest.main()
