"""Tests of the output to files and pipes."""

import json
import os
import subprocess
import sys
import unittest

from support import LOGTAIL, LogtailTest, environment, line, lines, text_of

# A lone lead byte, an escape sequence, a NUL byte, and a control character with two bytes in UTF-8.
WILD = b"\xff\xc3 \x1b[31m \x00 \xc2\x9b \xe2\x82\xac"


class PipeTest(LogtailTest):
    def test_writes_any_bytes_unchanged_to_pipe(self):
        data = line("").encode() + WILD + b"\n" + WILD + b"\n" + line("end").encode() + b"\n"
        self.write_raw(data)
        self.assertEqual(self.run_logtail(self.log), data)
        self.assertEqual(self.run_logtail("-n", "all", "--grep", "[31]m", self.log),
                         data[:data.rindex(b"11/15")])

    def test_adds_missing_last_newline(self):
        self.write_raw(line("end"))
        self.assertEqual(self.run_logtail(self.log), text_of(line("end")).encode())

    def test_writes_large_log_completely(self):
        self.write(*lines("m", 30000))
        with open(self.log, "rb") as file:
            self.assertEqual(self.run_logtail("-n", "all", self.log), file.read())

    def test_writes_colors_to_pipe_only_on_request(self):
        self.write(line("bad", level="ERROR"))
        self.assertNotIn(b"\x1b", self.run_logtail(self.log))
        self.assertEqual(self.run_logtail("--color=always", self.log).decode(),
                         f"\x1b[31m{line('bad', level='ERROR')}\x1b[0m\n")

    def test_requested_colors_escape_control_characters(self):
        self.write_raw(line("").encode() + b"\x1b[2J\n")
        self.assertEqual(self.run_logtail("--color=always", self.log).decode(),
                         line("") + "\\x1b[2J\n")

    def test_ends_without_error_when_reader_ends(self):
        self.write(*lines("m", 30000))
        with subprocess.Popen([sys.executable, LOGTAIL, "-n", "all", self.log],
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              env=environment()) as process:
            process.stdout.readline()
            process.stdout.close()
            self.assertEqual(process.stderr.read(), b"")
        self.assertEqual(process.returncode, -13)

    def test_reports_failed_write(self):
        if not os.path.exists("/dev/full"):
            self.skipTest("this system has no full device")
        self.write(line("m"))
        with open("/dev/full", "wb") as full:
            done = subprocess.run([sys.executable, LOGTAIL, self.log], stdout=full,
                                  stderr=subprocess.PIPE, env=environment(), check=False)
        self.assertEqual(done.returncode, 1)
        self.assertRegex(done.stderr.decode(), "^logtail: standard output: .*\n$")


class HeadersTest(LogtailTest):
    def setUp(self):
        super().setUp()
        self.other = self.path("other.log")
        self.write(line("a"))
        self.write(line("b"), path=self.other)

    def test_shows_headers_for_several_logs(self):
        self.assertEqual(self.shown(self.log, self.other), [
            f"==> {self.log} <==", line("a"), "", f"==> {self.other} <==", line("b")])

    def test_quiet_omits_headers(self):
        self.assertEqual(self.messages("--quiet", self.log, self.other), ["a", "b"])

    def test_objects_of_several_logs_contain_their_file(self):
        objects = [json.loads(text) for text in self.shown("--json", self.log, self.other)]
        self.assertEqual([each["file"] for each in objects], [self.log, self.other])


class JsonTest(LogtailTest):
    def objects(self):
        return [json.loads(text) for text in self.run_logtail("--json", self.log).split(b"\n")[:-1]]

    def test_record_is_one_object(self):
        self.write(line("one"), "two", line("three"))
        self.assertEqual([each["message"] for each in self.objects()], ["one\ntwo", "three"])

    def test_escapes_bytes_that_are_not_utf8(self):
        self.write_raw(line("").encode() + WILD + b"\n")
        self.assertEqual(self.objects()[0]["message"], "\\xff\\xc3 \x1b[31m \x00 \x9b \u20ac")

    def test_accepts_process_and_thread_that_are_not_numbers(self):
        self.write(line("m", process="session 1", thread=""))
        self.assertEqual(self.objects()[0]["process"], "session 1")
        self.assertIsNone(self.objects()[0]["thread"])

    def test_objects_have_no_colors(self):
        self.write(line("bad", level="FATAL"))
        plain = self.run_logtail("--json", self.log)
        self.assertEqual(self.run_logtail("--json", "--color=always", self.log), plain)


if __name__ == "__main__":
    unittest.main()
