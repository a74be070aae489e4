"""Tests that the log viewer lnav reads the log with the format file in logtail/."""

import json
import os
import shutil
import subprocess
import tempfile
import unittest

from support import SOURCE, environment, line, text_of

LNAV = os.environ.get("LNAV", "lnav")
FORMAT = os.path.join(SOURCE, "logtail", "velmora_helper_log.json")
STARS = "*" * 78

LOG = [
    line(STARS, component="ApplicationContext"),
    line("Bit: 64", component="ApplicationContext"),
    line(STARS, component="ApplicationContext"),
    line("traced", level="TRACE", time="21:05:08:001", detail="detail"),
    line("a | b", level="DEBUG", time="21:05:08:002", process=7),
    line("told\nthe second line\n  and the third", time="21:05:08:003"),
    line("warned", level="WARN", time="21:05:08:004", thread=""),
    line("failed", level="ERROR", time="21:05:08:005"),
    line("", level="FATAL", time="21:05:08:999"),
]


class LnavTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.home = tempfile.mkdtemp(prefix="lnav-")
        self.addCleanup(shutil.rmtree, self.home)
        self.log = os.path.join(self.home, "sample.log")
        with open(self.log, "w", encoding="utf-8") as file:
            file.write(text_of(*LOG))
        self.lnav("-i", FORMAT)

    def lnav(self, *arguments):
        """Runs lnav, which must report no problem. Returns its output."""
        variables = environment(HOME=self.home, XDG_CONFIG_HOME=None, TERM="dumb",
                                TMPDIR=self.home)
        done = subprocess.run([LNAV, *arguments], stdin=subprocess.DEVNULL, check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, env=variables)
        errors = [text for text in done.stderr.decode().splitlines() if "installed" not in text]
        self.assertEqual((done.returncode, errors), (0, []))
        return done.stdout.decode()

    def select(self, columns):
        rows = json.loads(self.lnav("-n", "-c", f";SELECT {columns} FROM velmora_helper_log",
                                    "-c", ":write-json-to -", self.log))
        names = columns.split(", ")
        return [tuple(row[name] for name in names) for row in rows]

    def test_format_has_no_errors(self):
        self.assertEqual(self.lnav("-C"), "")
        self.assertEqual(self.lnav("-W", "-n", "-q", self.log), "")

    def test_parses_times_and_levels(self):
        second = "2026-11-15 21:05:"
        self.assertEqual(self.select("log_time, log_level"),
                         3 * [(second + "07.042", "info")] + [
                             (second + "08.001", "trace"), (second + "08.002", "debug"),
                             (second + "08.003", "info"), (second + "08.004", "warning"),
                             (second + "08.005", "error"), (second + "08.999", "fatal")])

    def test_separates_columns(self):
        rows = self.select("process, domain, sub_domain, component, detail1, detail2, thread")
        usual = ("4242", "HXPL", "HexHelper", "AppHandler", "", "HexHelper", "77120")
        header = usual[:3] + ("ApplicationContext",) + usual[4:]
        self.assertEqual(rows, 3 * [header] + [
            usual[:4] + ("detail",) + usual[5:], ("7",) + usual[1:], usual, usual[:6] + ("",),
            usual, usual])

    def test_messages_contain_separators_and_all_lines(self):
        self.assertEqual(self.select("log_body"), [
            (STARS,), ("Bit: 64",), (STARS,), ("traced",), ("a | b",),
            ("told\nthe second line\n  and the third",), ("warned",), ("failed",), ("",)])

    def test_process_identifies_operation(self):
        self.assertEqual(set(self.select("log_opid")), {("4242",), ("7",)})


if __name__ == "__main__":
    unittest.main()
