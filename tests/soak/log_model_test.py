"""Tests that the model of the log finds lines that are lost, duplicated, torn or not masked."""

import time
import unittest

from log_lines import classify, expected_message
from log_model import LIMIT, SLACK, LogModel, Period

START = "************************* START Velmora CEF Helper *************************"
WHEN = "11/22/26 10:00:00"


def numbered(number, writer=1):
    message = expected_message(writer, number)
    return (f"{WHEN}:123 | [INFO] | 42 | D{writer} | S{writer} | C{writer} | {number} | b{writer}"
            f" | 43 | {message}")


def helper_line(process, message):
    return (f"{WHEN}:000 | [INFO] | {process} | HXPL | HexHelper | ApplicationContext |  | "
            f"HexHelper | 7 | {message}")


class LogModelTest(unittest.TestCase):
    def setUp(self):
        self.log = LogModel()

    def take(self, *lines, name="CRN.log"):
        self.log.take_file(name, "".join(line + "\n" for line in lines).encode())

    def take_numbered(self, *numbers):
        self.take(*[numbered(number) for number in numbers])

    def take_long(self, length):
        """Takes a file in which the START line comes after `length` bytes."""
        self.take("1" * length, helper_line(7, START))

    def assert_problem(self, text):
        self.log.check_writers()
        self.assertEqual(len(self.log.problems), 1, self.log.problems)
        self.assertIn(text, self.log.problems[0])

    def assert_no_problem(self):
        self.log.check_writers()
        self.assertEqual(self.log.problems, [])

    def test_accepts_complete_log(self):
        self.take_numbered(*range(1, 101))
        self.take_numbered(101)
        self.log.writers[1].written = 101
        self.assert_no_problem()

    def test_finds_lost_line(self):
        self.take_numbered(1, 3)
        self.log.writers[1].written = 3
        self.assert_problem("1 lines of writer 1 are lost, from 2 to 2")

    def test_finds_lost_last_line(self):
        self.take_numbered(1)
        self.log.writers[1].written = 2
        self.assert_problem("from 2 to 2")

    def test_finds_writer_without_lines(self):
        self.log.writers[1].written = 2
        self.assert_problem("2 lines of writer 1 are lost")

    def test_finds_duplicated_line_in_another_file(self):
        self.take_numbered(1)
        self.take_numbered(1)
        self.log.writers[1].written = 1
        self.assert_problem("occurs twice")

    def test_finds_lines_out_of_order(self):
        self.take_numbered(2, 1)
        self.log.writers[1].written = 2
        self.assert_problem("comes after 2")

    def test_full_disk_explains_its_lines_alone(self):
        self.take_numbered(1, 5)
        self.log.writers[1].written = 6
        self.log.writers[1].mute.append((2, 4))
        self.assertEqual(self.log.missing(1), ([6], 3))

    def test_accepts_one_more_line_of_killed_writer(self):
        self.take_numbered(1, 2)
        self.log.writers[1].written = 1
        self.assert_no_problem()
        self.take_numbered(3)
        self.assert_problem("has lines after its last one")

    def test_accepts_one_cut_line_for_each_kill(self):
        self.log.kills = 1
        self.take(numbered(1)[:60])
        self.assert_no_problem()
        self.take(numbered(2)[:60])
        self.assert_problem("2 lines are cut")

    def test_finds_interleaved_lines(self):
        self.take(numbered(1)[:60] + numbered(2))
        self.assert_problem("no program writes")

    def test_finds_changed_text(self):
        self.take(numbered(3)[:-2] + "X.")
        self.assert_problem("no program writes")

    def test_finds_secret(self):
        self.take(numbered(20).replace("****", "SECRET20"))
        self.log.check_writers()
        self.assertIn("shows a secret", self.log.problems[0])

    def test_finds_process_that_does_not_rotate(self):
        self.take_long(LIMIT + SLACK - 1)
        self.assertEqual(self.log.problems, [])
        self.take_long(LIMIT + SLACK)
        self.assertIn("did not rotate it", self.log.problems[0])

    def test_accepts_large_log_on_full_disk_and_at_level_debug(self):
        now = time.mktime(time.strptime(WHEN, "%m/%d/%y %H:%M:%S"))
        period = Period()
        period.begin = period.end = now
        for periods in (self.log.full, self.log.more):
            periods.append(period)
            self.take_long(LIMIT + SLACK)
            periods.clear()
        self.assertEqual(self.log.problems, [])

    def test_counts_lines_of_helpers(self):
        self.take(helper_line(7, START), helper_line(8, START),
                  helper_line(7, "Memory Limit Reached: 560 MB. Quitting !!"))
        self.assertEqual(self.log.lines_of(7), {"START": 1, "LIMIT": 1})
        self.assertEqual(self.log.processes(), {7, 8})
        self.assert_no_problem()


class ClassifyTest(unittest.TestCase):
    def test_masked_lines_keep_their_numbers(self):
        for number in (1, 20, 50):
            self.assertEqual(classify(numbered(number)).kind, "numbered")
            self.assertEqual(classify(numbered(number)).number, number)

    def test_unknown_text_of_helper_is_unknown(self):
        self.assertEqual(classify(helper_line(7, "another text")).kind, "unknown")

    def test_cut_line_of_helper_or_header_is_torn(self):
        for message in ("", START[:50], "Memory Limit Reached: 56", "Memory Limit Reached: 560 MB.",
                        "Error in initWith", "*" * 77, "OS Loc"):
            self.assertEqual(classify(helper_line(7, message)).kind, "torn", message)

    def test_line_that_another_line_interrupts_is_unknown(self):
        for message in (START[:50], "OS Loc", "OS Locale: de_DE", "Memory Limit Reached: 56"):
            text = helper_line(7, message + helper_line(8, START))
            self.assertEqual(classify(text).kind, "unknown", message)

    def test_header_line_is_header(self):
        self.assertEqual(classify(helper_line(7, "OS Locale: de_DE")).kind, "header")


if __name__ == "__main__":
    unittest.main()
