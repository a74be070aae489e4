"""Tests of the program that writes numbered lines, and of its clock."""

import os
import pathlib
import sys
import tempfile
import time
import unittest

import machine
from log_lines import classify
from log_model import LogModel
from processes import wait_until
from writer import LogWriter

LINES = 200  # includes lines with a password and lines with a token


class LogWriterTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.model = LogModel()
        self.writer = LogWriter(BUILD, self.folder, {**os.environ, "HOME": folder.name}, self.model)

    def wait_for_lines(self, count):
        self.assertTrue(wait_until(lambda: self.writer.written() >= count, 60))

    def lines(self):
        text = (self.folder / "Library/Logs/Cirrane/CRN/CRN.log").read_text(encoding="utf-8")
        return [classify(line) for line in text.split("\n")[:-1]]

    def test_writes_every_line_until_its_end(self):
        self.wait_for_lines(LINES)
        self.assertEqual(self.writer.stop(), 0)
        written = self.model.writers[1].written
        self.assertGreaterEqual(written, LINES)
        self.assertEqual([(line.kind, line.number) for line in self.lines()],
                         [("numbered", number) for number in range(1, written + 1)])

    def test_killed_writer_has_written_acknowledged_lines(self):
        self.wait_for_lines(LINES)
        self.writer.kill()
        numbers = [line.number for line in self.lines()]
        self.assertGreaterEqual(len(numbers), self.model.writers[1].written)
        self.writer.start()
        self.wait_for_lines(1)
        self.assertEqual(self.writer.stop(), 0)
        self.assertIn(("numbered", 2, 1), {(line.kind, line.writer, line.number)
                                           for line in self.lines()})

    def test_shifts_clock_of_writer_alone(self):
        self.wait_for_lines(1)
        self.writer.shift_clock()
        self.wait_for_lines(self.writer.written() + 5)
        self.assertEqual(self.writer.stop(), 0)
        hours = {time.strptime(line.time, "%m/%d/%y %H:%M:%S").tm_hour for line in self.lines()}
        self.assertEqual(len(hours), 2)

    def test_suspends_writer_that_holds_lock(self):
        self.wait_for_lines(1)
        self.assertTrue(self.writer.suspend_with_lock(30))
        self.assertEqual(self.writer.stop(), 0)


if __name__ == "__main__":
    BUILD = pathlib.Path(sys.argv.pop(1))
    try:
        machine.enter_own_objects()  # killed writers leave lock objects
    except OSError as error:
        print(f"skipped, because this system does not allow namespaces: {error}")
        sys.exit(77)
    unittest.main()
