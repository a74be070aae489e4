"""Tests of the command line and the exit statuses."""

import os
import signal
import subprocess
import unittest

from support import DEFAULT_LOG, LOGTAIL, LogtailTest, environment, line


class ArgumentsTest(LogtailTest):
    def test_reads_log_of_user_by_default(self):
        log = self.path(DEFAULT_LOG)
        os.makedirs(os.path.dirname(log))
        self.write(line("mine"), path=log)
        self.assertEqual(self.messages(environ=environment(HOME=self.folder)), ["mine"])

    def test_runs_directly_and_through_link(self):
        self.write(line("m"))
        os.symlink(LOGTAIL, self.path("link"))
        for program in (LOGTAIL, self.path("link")):
            self.assertEqual(subprocess.check_output([program, self.log], env=environment()),
                             (line("m") + "\n").encode())

    def test_usage_contains_name_of_called_file(self):
        os.symlink(LOGTAIL, self.path("velmora-logtail"))
        for program in (LOGTAIL, self.path("velmora-logtail")):
            shown = subprocess.check_output([program, "--help"], env=environment()).decode()
            self.assertTrue(shown.startswith(f"usage: {os.path.basename(program)} "), shown)

    def test_reads_standard_input(self):
        text = line("m") + "\n"
        self.assertEqual(self.run_logtail("-", input=text.encode()), text.encode())
        many = "".join(line(f"m {number}") + "\n" for number in range(5000))
        self.assertEqual(self.messages("-n2", "-", input=many.encode()), ["m 4998", "m 4999"])

    def test_reads_named_pipe(self):
        pipe = self.path("pipe")
        os.mkfifo(pipe)
        with subprocess.Popen(["sh", "-c", 'echo "$1" >"$2"', "sh", line("m"), pipe]):
            self.assertEqual(self.messages(pipe), ["m"])

    def test_help_contains_every_option(self):
        text = self.run_logtail("--help").decode()
        for option in ("--lines", "--follow", "--rotated", "--interval", "--level", "--process",
                       "--thread", "--component", "--since", "--until", "--grep", "--json",
                       "--color", "--quiet"):
            self.assertIn(option, text)

    def test_invalid_values_end_with_status_2_and_reason(self):
        self.write(line("m"))
        mistakes = [
            ["--lines", "many"], ["--lines", "-1"], ["--level", "LOUD"], ["--level", "1.5"],
            ["--process", "me"], ["--thread", "0x10"], ["--since", "tomorrow"],
            ["--until", "2026-13-01"], ["--since", "25:00"], ["--since", "99999999999999d"],
            ["--grep", "("], ["--color", "red"], ["--interval", "0"], ["--interval", "nan"],
            ["--interval", "soon"], ["--json=1"],
        ]
        for option, *value in mistakes:
            self.run_logtail(option, *value, self.log, status=2)
            self.assertIn(option.split("=")[0], self.errors)
            self.assertNotIn("Traceback", self.errors)

    def test_rejects_unknown_and_abbreviated_options(self):
        for option in ("--nonsense", "--foll"):
            self.run_logtail(option, self.log, status=2)
            self.assertIn(option, self.errors)

    def test_rejects_following_standard_input(self):
        self.run_logtail("--follow", "-", status=2, stdin=subprocess.DEVNULL)
        self.assertIn("standard input cannot be followed", self.errors)

    def test_reports_missing_log_and_shows_others(self):
        self.write(line("m"))
        shown = self.run_logtail("-q", self.path("none.log"), self.log, status=1)
        self.assertEqual(shown.decode(), line("m") + "\n")
        self.assertEqual(self.errors,
                         f"logtail: {self.path('none.log')}: No such file or directory\n")

    def test_reports_folder(self):
        for options in ([], ["--follow"]):
            self.run_logtail(*options, self.folder, status=1)
            self.assertTrue(self.errors.startswith(f"logtail: {self.folder}: "), self.errors)
            self.assertNotIn("Traceback", self.errors)

    def test_interrupt_before_first_output_prints_nothing(self):
        pipe = self.path("pipe")
        os.mkfifo(pipe)
        with subprocess.Popen([LOGTAIL, pipe], stderr=subprocess.PIPE,
                              env=environment()) as process:
            writer = os.open(pipe, os.O_WRONLY)  # returns when the program opens the pipe
            process.send_signal(signal.SIGINT)
            self.assertEqual(process.stderr.read(), b"")
            os.close(writer)
        self.assertEqual(process.returncode, -signal.SIGINT)


if __name__ == "__main__":
    unittest.main()
