"""A log that is written while it is followed."""

import os
import signal
import unittest

from support import LogtailTest, line, lines, text_of


class FollowTest(LogtailTest):
    def test_the_last_ten_records_come_first_and_then_what_is_written(self):
        self.write(*lines("old", 12))
        follower = self.follow(self.log)
        self.assertEqual(follower.next_lines(10), lines("old", 12)[2:])
        self.write(*lines("new", 3))
        self.assertEqual(follower.next_lines(3), lines("new", 3))

    def test_only_new_records_are_shown_when_no_old_ones_are_wanted(self):
        self.write(*lines("old", 12))
        other = self.path("other.log")
        follower = self.follow("-q", "-n", "0", self.log, other)
        # What is in a file that comes later is new. When it is shown, the log has been begun.
        follower.next_notice()
        self.write(line("other"), path=other)
        self.assertEqual(follower.next_line(), line("other"))
        self.write(line("new"))
        self.assertEqual(follower.next_line(), line("new"))

    def test_records_are_chosen(self):
        self.write(line("old", level="ERROR"), *lines("old", 30))
        follower = self.follow("--level", "ERROR", self.log)
        self.assertEqual(follower.next_line(), line("old", level="ERROR"))
        self.write(line("no"), line("yes", level="FATAL"))
        self.assertEqual(follower.next_line(), line("yes", level="FATAL"))

    def test_half_a_line_is_not_shown_until_the_rest_is_there(self):
        self.write(line("old"))
        other = self.path("other.log")
        self.write(line("old"), path=other)
        follower = self.follow("-q", self.log, other)
        follower.next_lines(2)
        whole = line("in two parts")
        self.write_raw(whole[:40])
        # Both are looked at in turn: when the second one's record comes, the first one's part is
        # read.
        self.write(line("other"), path=other)
        self.assertEqual(follower.next_line(), line("other"))
        self.write_raw(whole[40:] + "\n")
        self.assertEqual(follower.next_line(), whole)

    def test_half_a_line_at_the_start_is_not_shown_either(self):
        whole = line("in two parts")
        self.write_raw(text_of(line("old")) + whole[:40])
        follower = self.follow(self.log)
        self.assertEqual(follower.next_line(), line("old"))
        self.write_raw(whole[40:] + "\n")
        self.assertEqual(follower.next_line(), whole)

    def test_characters_may_be_cut_between_two_writes(self):
        self.write(line("old"))
        follower = self.follow(self.log)
        follower.next_line()
        whole = line("\u00fc\u20ac").encode()
        self.write_raw(whole[:-1])
        self.write_raw(whole[-1:] + b"\n")
        self.assertEqual(follower.next_line(), whole.decode())

    def test_lines_of_one_message_stay_together(self):
        self.write(line("old"))
        follower = self.follow("--grep", "third|old", self.log)
        follower.next_line()
        self.write(line("first"), "second", "third", line("other"))
        self.assertEqual(follower.next_lines(3), [line("first"), "second", "third"])

    def test_a_line_that_comes_late_has_the_columns_of_its_record(self):
        self.write(line("old", process=1))
        follower = self.follow("--json", "--process", "1", self.log)
        follower.next_line()
        self.write("late")
        self.assertRegex(follower.next_line(), '"process": 1,.*"message": "late"')

    def test_a_log_that_does_not_exist_is_waited_for(self):
        follower = self.follow(self.log)
        self.assertIn("waiting for this file", follower.next_notice())
        self.write(*lines("new", 20))
        self.assertEqual(follower.next_lines(20), lines("new", 20))

    def test_a_folder_that_does_not_exist_is_waited_for(self):
        log = self.path("folder/CRN.log")
        follower = self.follow(log)
        self.assertIn("waiting for this file", follower.next_notice())
        os.mkdir(self.path("folder"))
        self.write(line("new"), path=log)
        self.assertEqual(follower.next_line(), line("new"))

    def test_several_logs_have_headers(self):
        other = self.path("other.log")
        self.write(line("a"))
        self.write(line("b"), path=other)
        follower = self.follow(self.log, other)
        self.assertEqual(follower.next_lines(5), [
            f"==> {self.log} <==", line("a"), "", f"==> {other} <==", line("b")])
        self.write(line("c"), path=other)
        self.assertEqual(follower.next_line(), line("c"))
        self.write(line("d"))
        self.assertEqual(follower.next_lines(3), ["", f"==> {self.log} <==", line("d")])


class EndTest(LogtailTest):
    def setUp(self):
        super().setUp()
        self.write(line("old"))
        self.follower = self.follow(self.log)
        self.follower.next_line()

    def test_an_interrupt_ends_it_quietly(self):
        self.follower.interrupt()
        self.assertEqual(self.follower.wait(), -signal.SIGINT)
        self.assertEqual(self.follower.rest(), ("", ""))

    def test_it_ends_when_its_reader_has_ended_though_nothing_is_written(self):
        self.follower.close_output()
        self.assertEqual(self.follower.wait(), -signal.SIGPIPE)


if __name__ == "__main__":
    unittest.main()
