"""Tests of following a log that is rotated or emptied."""

import os
import subprocess
import sys
import unittest

from support import LogtailTest, line, lines

FIRST = "2026-11-15 21-05-07"
SECOND = "2026-11-15 21-20-07"
THIRD = "2026-11-16 06-00-00"

WRITER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "rotating_writer.py")


class RotationTest(LogtailTest):
    """Begins with a follower that has shown a log with five records."""

    def setUp(self):
        super().setUp()
        self.write(*lines("old", 5))
        self.follower = self.follow(self.log)
        self.follower.next_lines(5)

    def expect(self, *texts):
        self.assertEqual(self.follower.next_lines(len(texts)), list(texts))

    def test_continues_with_emptied_log(self):
        self.rotate(FIRST)
        self.write(line("new"))
        self.expect(line("new"))

    def test_follows_consecutive_rotations(self):
        for number, stamp in enumerate((FIRST, SECOND, THIRD)):
            self.write(line(f"before {number}"))
            self.rotate(stamp)
            self.write(line(f"after {number}"))
            self.expect(line(f"before {number}"), line(f"after {number}"))

    def test_reads_unread_lines_from_copy(self):
        self.follower.stop()
        self.write(*lines("burst", 1000))
        self.rotate(FIRST)
        self.write(line("new"))
        self.follower.go_on()
        self.expect(*lines("burst", 1000), line("new"))

    def test_detects_emptied_log_that_has_grown_past_old_position(self):
        self.follower.stop()
        self.write(line("missed"))
        self.rotate(FIRST)
        self.write(*lines("more than before", 100))
        self.follower.go_on()
        self.expect(line("missed"), *lines("more than before", 100))

    def test_detects_emptied_log_that_has_grown_to_old_position(self):
        self.follower.stop()
        self.rotate(FIRST)
        self.write(*lines("OLD", 5))
        self.follower.go_on()
        self.expect(*lines("OLD", 5))

    def test_distinguishes_logs_with_same_beginning(self):
        # The same header block, which is longer than a fingerprint, followed by other records.
        header = lines("*" * 78, 20)
        self.rotate(FIRST)
        self.write(*header, line("first"))
        self.expect(*header, line("first"))
        self.follower.stop()
        self.write(line("missed"))
        self.rotate(SECOND)
        self.write(*header, *lines("second", 20))
        self.follower.go_on()
        self.expect(line("missed"), *header, *lines("second", 20))

    def test_distinguishes_logs_with_same_last_lines(self):
        same = lines("same", 20)
        self.rotate(FIRST)
        self.write(line("first"), *same)
        self.expect(line("first"), *same)
        self.follower.stop()
        self.rotate(SECOND)
        self.write(line("FIRST"), *same, line("new"))
        self.follower.go_on()
        self.expect(line("FIRST"), *same, line("new"))

    def test_reads_copies_of_several_rotations(self):
        self.follower.stop()
        self.write(line("first"))
        self.rotate(FIRST)
        self.write(*lines("second", 50))
        self.rotate(SECOND)
        self.write(line("third"))
        self.rotate(THIRD)
        self.write(line("fourth"))
        self.follower.go_on()
        self.expect(line("first"), *lines("second", 50), line("third"), line("fourth"))

    def test_reads_copies_of_same_second_in_order_of_numbers(self):
        self.follower.stop()
        for number, suffix in enumerate(("", "_002", "_003", "_010")):
            self.write(line(f"part {number}"))
            self.rotate(FIRST + suffix)
        self.write(line("new"))
        self.follower.go_on()
        self.expect(*lines("part", 4), line("new"))

    def test_reads_copy_of_log_that_was_empty(self):
        self.rotate(FIRST)
        self.write(line("seen"))
        self.expect(line("seen"))
        os.truncate(self.log, 0)
        self.assertIn("no copy of it was kept", self.follower.next_notice())
        self.follower.stop()
        self.write(line("whole"))
        self.rotate(SECOND)
        self.write(line("new"))
        self.follower.go_on()
        self.expect(line("whole"), line("new"))

    def test_ignores_existing_copies(self):
        self.write(line("ancient"), path=self.path("CRN 2026-11-01 00-00-00.log"))
        follower = self.follow(self.log)
        follower.next_lines(5)
        follower.stop()
        self.write(line("missed"))
        self.rotate(FIRST)
        self.write(line("new"))
        follower.go_on()
        self.assertEqual(follower.next_lines(2), [line("missed"), line("new")])

    def test_ignores_other_files_in_folder(self):
        self.follower.stop()
        self.rotate(FIRST)
        for name in ("CRN.log.1", "CRNextra.log", "Other 2026-11-15 21-05-08.log",
                     "CRN 2026-11-15.log", f"CRN {SECOND}.txt", f"CRN {SECOND} copy.log"):
            self.write(line(name), path=self.path(name))
        self.write(line("new"))
        self.follower.go_on()
        self.expect(line("new"))

    def test_shows_copy_that_is_being_made_once(self):
        other = self.path("other.log")
        self.write(line("other"), path=other)
        follower = self.follow("-q", self.log, other)
        follower.next_lines(6)
        self.write(line("before"))
        self.copy_log(FIRST)
        # Each round reads both logs, so the copy exists during at least one complete round.
        for number in range(3):
            self.write(line(f"other {number}"), path=other)
            if number == 0:
                both = sorted(follower.next_lines(2))
                self.assertEqual(both, sorted([line("before"), line("other 0")]))
            else:
                self.assertEqual(follower.next_line(), line(f"other {number}"))
        os.truncate(self.log, 0)
        self.write(line("after"))
        self.assertEqual(follower.next_line(), line("after"))

    def test_ignores_incomplete_copy(self):
        self.follower.stop()
        self.write(line("missed"))
        os.truncate(self.copy_log(FIRST), 200)
        self.write(line("more"))
        self.rotate(SECOND)
        self.write(line("new"))
        self.follower.go_on()
        self.expect(line("missed"), line("more"), line("new"))

    def test_ignores_incomplete_copy_of_unread_log(self):
        self.rotate(FIRST)
        self.write(line("seen"))
        self.expect(line("seen"))
        self.follower.stop()
        self.rotate(SECOND)
        self.write(*lines("unread", 10))
        os.truncate(self.copy_log("2026-11-15 23-00-00"), 300)
        self.write(line("more"))
        self.rotate(THIRD)
        self.write(line("new"))
        self.follower.go_on()
        self.expect(*lines("unread", 10), line("more"), line("new"))

    def test_completes_incomplete_line_from_copy(self):
        whole = line("in two parts")
        self.write_raw(whole[:40])
        self.follower.stop()
        self.write_raw(whole[40:] + "\n")
        self.rotate(FIRST)
        self.write(line("new"))
        self.follower.go_on()
        self.expect(whole, line("new"))

    def test_does_not_join_incomplete_last_line_with_next_log(self):
        self.follower.stop()
        for stamp in (FIRST, SECOND, THIRD):
            self.write_raw("torn " + stamp)
            self.rotate(stamp)
        self.write(line("new"))
        self.follower.go_on()
        self.expect("torn " + FIRST, "torn " + SECOND, "torn " + THIRD, line("new"))

    def test_reports_log_emptied_without_copy(self):
        os.truncate(self.log, 0)
        self.assertIn("no copy of it was kept", self.follower.next_notice())
        self.write(line("new"))
        self.expect(line("new"))

    def test_ignores_incomplete_copy_of_log_emptied_without_copy(self):
        self.follower.stop()
        os.truncate(self.copy_log(FIRST), 200)
        os.truncate(self.log, 0)
        self.write(line("new"))
        self.follower.go_on()
        self.expect(line("new"))

    def test_shows_each_line_once_during_concurrent_rotations(self):
        with subprocess.Popen([sys.executable, WRITER, self.log]) as writer:
            seen = self.follower.next_lines(6000)
        self.assertEqual(writer.returncode, 0)
        self.assertEqual(seen, [f"{line(number)} {'x' * 200}" for number in range(6000)])


if __name__ == "__main__":
    unittest.main()
