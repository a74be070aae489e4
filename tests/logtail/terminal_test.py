"""What people see on a terminal."""

import os
import pty
import subprocess
import sys
import unittest

from support import LOGTAIL, LogtailTest, environment, line


def output_on_terminal(*arguments, **changes):
    """What the program writes to a terminal of its own."""
    ours, its = pty.openpty()
    try:
        with subprocess.Popen([sys.executable, LOGTAIL, *arguments], stdout=its,
                              env=environment(**changes)) as process:
            os.close(its)
            output = read_all(ours)
        return process.returncode, output
    finally:
        os.close(ours)


def read_all(descriptor):
    output = b""
    while True:
        try:
            piece = os.read(descriptor, 4096)
        except OSError:  # how a terminal without a program ends on Linux
            return output
        if not piece:
            return output
        output += piece


class TerminalTest(LogtailTest):
    def on_terminal(self, *arguments, **changes):
        status, output = output_on_terminal(*arguments, self.log, **changes)
        self.assertEqual(status, 0)
        return output.decode().replace("\r\n", "\n")

    def test_levels_have_colours(self):
        colours = {"TRACE": "2", "DEBUG": "36", "INFO": None, "WARN": "33", "ERROR": "31",
                   "FATAL": "1;31"}
        for level, colour in colours.items():
            text = line("m", level=level)
            self.write(text, mode="w")
            expected = f"\x1b[{colour}m{text}\x1b[0m\n" if colour else text + "\n"
            self.assertEqual(self.on_terminal(), expected)

    def test_each_line_of_a_message_has_the_colour(self):
        self.write(line("one", level="ERROR"), "two")
        self.assertTrue(self.on_terminal().endswith("\n\x1b[31mtwo\x1b[0m\n"))

    def test_colours_can_be_switched_off(self):
        text = line("m", level="ERROR")
        self.write(text)
        self.assertEqual(self.on_terminal("--color=never"), text + "\n")
        self.assertEqual(self.on_terminal(NO_COLOR="1"), text + "\n")
        self.assertEqual(self.on_terminal(TERM="dumb"), text + "\n")

    def test_an_empty_wish_for_no_colours_is_none(self):
        self.write(line("m", level="ERROR"))
        self.assertIn("\x1b[31m", self.on_terminal(NO_COLOR=""))

    def test_an_explicit_wish_for_colours_wins(self):
        self.write(line("m", level="ERROR"))
        self.assertIn("\x1b[31m", self.on_terminal("--color", "always", NO_COLOR="1"))

    def test_what_a_terminal_would_obey_is_shown_as_escapes(self):
        self.write_raw(line("").encode() + b"\x1b]0;title\x07 \x08 \x00 \r \x7f \xc2\x9b1m \x9b1m "
                       b"\xe2\x80\xae \xff\ttab\n")
        self.assertEqual(self.on_terminal(),
                         line("") + r"\x1b]0;title\x07 \x08 \x00 \x0d \x7f \x9b1m \x9b1m \u202e "
                         "\\xff\ttab\n".replace("\t", self.tabulator()))

    def test_letters_of_all_languages_are_shown(self):
        text = line("Gr\u00fc\u00dfe, \u65e5\u672c\u8a9e, \U0001f600")
        self.write(text)
        self.assertEqual(self.on_terminal(), text + "\n")

    def test_other_columns_and_stray_lines_are_harmless_as_well(self):
        self.write("\x1b[2J", line("m", component="\x1b[3J"))
        self.assertEqual(self.on_terminal(), "\\x1b[2J\n" + line("m", component="\\x1b[3J") + "\n")

    def tabulator(self):
        """As a new terminal passes it on: some make blanks of it."""
        ours, its = pty.openpty()
        os.write(its, b"\tx")
        seen = os.read(ours, 100).decode()
        os.close(its)
        os.close(ours)
        return seen[:-1]


if __name__ == "__main__":
    unittest.main()
