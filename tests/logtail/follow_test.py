"""Tests of following a log while it is written."""

import os
import signal
import unittest

from support import LogtailTest, line, lines, text_of


class FollowTest(LogtailTest):
    def test_shows_last_ten_records_and_then_new_ones(self):
        self.write(*lines("old", 12))
        follower = self.follow(self.log)
        self.assertEqual(follower.next_lines(10), lines("old", 12)[2:])
        self.write(*lines("new", 3))
        self.assertEqual(follower.next_lines(3), lines("new", 3))

    def test_shows_only_new_records_with_count_of_zero(self):
        self.write(*lines("old", 12))
        other = self.path("other.log")
        follower = self.follow("-q", "-n", "0", self.log, other)
        # The content of a file that is created later is new. When it is shown, the log is open.
        follower.next_notice()
        self.write(line("other"), path=other)
        self.assertEqual(follower.next_line(), line("other"))
        self.write(line("new"))
        self.assertEqual(follower.next_line(), line("new"))

    def test_selects_records(self):
        self.write(line("old", level="ERROR"), *lines("old", 30))
        follower = self.follow("--level", "ERROR", self.log)
        self.assertEqual(follower.next_line(), line("old", level="ERROR"))
        self.write(line("no"), line("yes", level="FATAL"))
        self.assertEqual(follower.next_line(), line("yes", level="FATAL"))

    def test_shows_incomplete_line_only_when_complete(self):
        self.write(line("old"))
        other = self.path("other.log")
        self.write(line("old"), path=other)
        follower = self.follow("-q", self.log, other)
        follower.next_lines(2)
        whole = line("in two parts")
        self.write_raw(whole[:40])
        # The logs are read in turn, so the incomplete line has been read when the record of the
        # second log is shown.
        self.write(line("other"), path=other)
        self.assertEqual(follower.next_line(), line("other"))
        self.write_raw(whole[40:] + "\n")
        self.assertEqual(follower.next_line(), whole)

    def test_shows_incomplete_line_at_start_only_when_complete(self):
        whole = line("in two parts")
        self.write_raw(text_of(line("old")) + whole[:40])
        follower = self.follow(self.log)
        self.assertEqual(follower.next_line(), line("old"))
        self.write_raw(whole[40:] + "\n")
        self.assertEqual(follower.next_line(), whole)

    def test_accepts_character_split_between_writes(self):
        self.write(line("old"))
        follower = self.follow(self.log)
        follower.next_line()
        whole = line("\u00fc\u20ac").encode()
        self.write_raw(whole[:-1])
        self.write_raw(whole[-1:] + b"\n")
        self.assertEqual(follower.next_line(), whole.decode())

    def test_keeps_lines_of_message_together(self):
        self.write(line("old"))
        follower = self.follow("--grep", "third|old", self.log)
        follower.next_line()
        self.write(line("first"), "second", "third", line("other"))
        self.assertEqual(follower.next_lines(3), [line("first"), "second", "third"])

    def test_late_line_has_columns_of_its_record(self):
        self.write(line("old", process=1))
        follower = self.follow("--json", "--process", "1", self.log)
        follower.next_line()
        self.write("late")
        self.assertRegex(follower.next_line(), '"process": 1,.*"message": "late"')

    def test_waits_for_missing_log(self):
        follower = self.follow(self.log)
        self.assertIn("waiting for this file", follower.next_notice())
        self.write(*lines("new", 20))
        self.assertEqual(follower.next_lines(20), lines("new", 20))

    def test_waits_for_missing_folder(self):
        log = self.path("folder/CRN.log")
        follower = self.follow(log)
        self.assertIn("waiting for this file", follower.next_notice())
        os.mkdir(self.path("folder"))
        self.write(line("new"), path=log)
        self.assertEqual(follower.next_line(), line("new"))

    def test_shows_headers_for_several_logs(self):
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

    def test_interrupt_ends_program_without_output(self):
        self.follower.interrupt()
        self.assertEqual(self.follower.wait(), -signal.SIGINT)
        self.assertEqual(self.follower.rest(), ("", ""))

    def test_ends_when_reader_ends_although_log_is_idle(self):
        self.follower.close_output()
        self.assertEqual(self.follower.wait(), -signal.SIGPIPE)


if __name__ == "__main__":
    unittest.main()
