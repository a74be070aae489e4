"""Tests of the output on a terminal."""

import os
import pty
import subprocess
import sys
import unittest

from support import LOGTAIL, LogtailTest, environment, line


def output_on_terminal(*arguments, **changes):
    """Runs the program on a new terminal. Returns its exit status and output."""
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
        except OSError:  # Linux reports the end of a terminal's last program so
            return output
        if not piece:
            return output
        output += piece


class TerminalTest(LogtailTest):
    def on_terminal(self, *arguments, **changes):
        status, output = output_on_terminal(*arguments, self.log, **changes)
        self.assertEqual(status, 0)
        return output.decode().replace("\r\n", "\n")

    def test_levels_have_colors(self):
        colors = {"TRACE": "2", "DEBUG": "36", "INFO": None, "WARN": "33", "ERROR": "31",
                   "FATAL": "1;31"}
        for level, color in colors.items():
            text = line("m", level=level)
            self.write(text, mode="w")
            expected = f"\x1b[{color}m{text}\x1b[0m\n" if color else text + "\n"
            self.assertEqual(self.on_terminal(), expected)

    def test_all_lines_of_message_have_color(self):
        self.write(line("one", level="ERROR"), "two")
        self.assertTrue(self.on_terminal().endswith("\n\x1b[31mtwo\x1b[0m\n"))

    def test_colors_can_be_disabled(self):
        text = line("m", level="ERROR")
        self.write(text)
        self.assertEqual(self.on_terminal("--color=never"), text + "\n")
        self.assertEqual(self.on_terminal(NO_COLOR="1"), text + "\n")
        self.assertEqual(self.on_terminal(TERM="dumb"), text + "\n")

    def test_empty_no_color_is_ignored(self):
        self.write(line("m", level="ERROR"))
        self.assertIn("\x1b[31m", self.on_terminal(NO_COLOR=""))

    def test_color_option_overrides_no_color(self):
        self.write(line("m", level="ERROR"))
        self.assertIn("\x1b[31m", self.on_terminal("--color", "always", NO_COLOR="1"))

    def test_escapes_control_characters(self):
        self.write_raw(line("").encode() + b"\x1b]0;title\x07 \x08 \x00 \r \x7f \xc2\x9b1m \x9b1m "
                       b"\xe2\x80\xae \xff\ttab\n")
        self.assertEqual(self.on_terminal(),
                         line("") + r"\x1b]0;title\x07 \x08 \x00 \x0d \x7f \x9b1m \x9b1m \u202e "
                         "\\xff\ttab\n".replace("\t", self.tabulator()))

    def test_shows_letters_of_all_languages(self):
        text = line("Gr\u00fc\u00dfe, \u65e5\u672c\u8a9e, \U0001f600")
        self.write(text)
        self.assertEqual(self.on_terminal(), text + "\n")

    def test_escapes_control_characters_in_columns_and_stray_lines(self):
        self.write("\x1b[2J", line("m", component="\x1b[3J"))
        self.assertEqual(self.on_terminal(), "\\x1b[2J\n" + line("m", component="\\x1b[3J") + "\n")

    def tabulator(self):
        """Returns a tab as a new terminal transmits it; some terminals replace it with spaces."""
        ours, its = pty.openpty()
        os.write(its, b"\tx")
        seen = os.read(ours, 100).decode()
        os.close(its)
        os.close(ours)
        return seen[:-1]


if __name__ == "__main__":
    unittest.main()
