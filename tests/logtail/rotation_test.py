"""A log that is rotated or emptied while it is followed."""

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
    """The follower has shown all of a log with five records."""

    def setUp(self):
        super().setUp()
        self.write(*lines("old", 5))
        self.follower = self.follow(self.log)
        self.follower.next_lines(5)

    def expect(self, *texts):
        self.assertEqual(self.follower.next_lines(len(texts)), list(texts))

    def test_it_goes_on_with_the_emptied_log(self):
        self.rotate(FIRST)
        self.write(line("new"))
        self.expect(line("new"))

    def test_one_rotation_after_the_other_is_followed(self):
        for number, stamp in enumerate((FIRST, SECOND, THIRD)):
            self.write(line(f"before {number}"))
            self.rotate(stamp)
            self.write(line(f"after {number}"))
            self.expect(line(f"before {number}"), line(f"after {number}"))

    def test_what_was_written_just_before_the_rotation_comes_from_the_copy(self):
        self.follower.stop()
        self.write(*lines("burst", 1000))
        self.rotate(FIRST)
        self.write(line("new"))
        self.follower.go_on()
        self.expect(*lines("burst", 1000), line("new"))

    def test_an_emptied_log_that_has_grown_past_the_old_place_is_noticed(self):
        self.follower.stop()
        self.write(line("missed"))
        self.rotate(FIRST)
        self.write(*lines("more than before", 100))
        self.follower.go_on()
        self.expect(line("missed"), *lines("more than before", 100))

    def test_an_emptied_log_that_has_grown_to_the_old_place_is_noticed(self):
        self.follower.stop()
        self.rotate(FIRST)
        self.write(*lines("OLD", 5))
        self.follower.go_on()
        self.expect(*lines("OLD", 5))

    def test_a_log_with_the_same_beginning_is_known_by_what_was_read_last(self):
        # The same header block of more bytes than one fingerprint, then other records.
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

    def test_a_log_with_the_same_last_lines_is_known_by_its_beginning(self):
        same = lines("same", 20)
        self.rotate(FIRST)
        self.write(line("first"), *same)
        self.expect(line("first"), *same)
        self.follower.stop()
        self.rotate(SECOND)
        self.write(line("FIRST"), *same, line("new"))
        self.follower.go_on()
        self.expect(line("FIRST"), *same, line("new"))

    def test_several_rotations_are_caught_up_with(self):
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

    def test_copies_of_one_second_are_read_in_the_order_of_their_numbers(self):
        self.follower.stop()
        for number, suffix in enumerate(("", "_002", "_003", "_010")):
            self.write(line(f"part {number}"))
            self.rotate(FIRST + suffix)
        self.write(line("new"))
        self.follower.go_on()
        self.expect(*lines("part", 4), line("new"))

    def test_rotations_of_an_empty_log_that_is_followed_are_caught_up_with(self):
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

    def test_copies_that_were_there_before_are_not_shown(self):
        self.write(line("ancient"), path=self.path("CRN 2026-11-01 00-00-00.log"))
        follower = self.follow(self.log)
        follower.next_lines(5)
        follower.stop()
        self.write(line("missed"))
        self.rotate(FIRST)
        self.write(line("new"))
        follower.go_on()
        self.assertEqual(follower.next_lines(2), [line("missed"), line("new")])

    def test_other_files_beside_the_log_are_not_shown(self):
        self.follower.stop()
        self.rotate(FIRST)
        for name in ("CRN.log.1", "CRNextra.log", "Other 2026-11-15 21-05-08.log",
                     "CRN 2026-11-15.log", f"CRN {SECOND}.txt", f"CRN {SECOND} copy.log"):
            self.write(line(name), path=self.path(name))
        self.write(line("new"))
        self.follower.go_on()
        self.expect(line("new"))

    def test_a_copy_that_is_just_being_made_is_not_shown_twice(self):
        other = self.path("other.log")
        self.write(line("other"), path=other)
        follower = self.follow("-q", self.log, other)
        follower.next_lines(6)
        self.write(line("before"))
        self.copy_log(FIRST)
        # Each round looks at both logs: afterwards the copy has been there in a round.
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

    def test_a_copy_that_could_not_be_completed_is_not_shown(self):
        self.follower.stop()
        self.write(line("missed"))
        os.truncate(self.copy_log(FIRST), 200)
        self.write(line("more"))
        self.rotate(SECOND)
        self.write(line("new"))
        self.follower.go_on()
        self.expect(line("missed"), line("more"), line("new"))

    def test_an_incomplete_copy_of_a_log_that_was_not_read_yet_is_not_shown(self):
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

    def test_half_a_line_before_a_rotation_is_completed_from_the_copy(self):
        whole = line("in two parts")
        self.write_raw(whole[:40])
        self.follower.stop()
        self.write_raw(whole[40:] + "\n")
        self.rotate(FIRST)
        self.write(line("new"))
        self.follower.go_on()
        self.expect(whole, line("new"))

    def test_half_a_line_at_the_end_of_a_copy_is_not_joined_to_the_next_log(self):
        self.follower.stop()
        for stamp in (FIRST, SECOND, THIRD):
            self.write_raw("torn " + stamp)
            self.rotate(stamp)
        self.write(line("new"))
        self.follower.go_on()
        self.expect("torn " + FIRST, "torn " + SECOND, "torn " + THIRD, line("new"))

    def test_a_log_emptied_without_a_copy_is_told(self):
        os.truncate(self.log, 0)
        self.assertIn("no copy of it was kept", self.follower.next_notice())
        self.write(line("new"))
        self.expect(line("new"))

    def test_an_incomplete_copy_of_a_log_emptied_without_one_is_not_shown(self):
        self.follower.stop()
        os.truncate(self.copy_log(FIRST), 200)
        os.truncate(self.log, 0)
        self.write(line("new"))
        self.follower.go_on()
        self.expect(line("new"))

    def test_nothing_is_lost_or_doubled_when_rotations_meet_reads(self):
        with subprocess.Popen([sys.executable, WRITER, self.log]) as writer:
            seen = self.follower.next_lines(6000)
        self.assertEqual(writer.returncode, 0)
        self.assertEqual(seen, [f"{line(number)} {'x' * 200}" for number in range(6000)])


if __name__ == "__main__":
    unittest.main()
