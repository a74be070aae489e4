"""The command line, and the statuses."""

import os
import signal
import subprocess
import unittest

from support import DEFAULT_LOG, LOGTAIL, LogtailTest, environment, line


class ArgumentsTest(LogtailTest):
    def test_the_users_log_is_read_by_default(self):
        log = self.path(DEFAULT_LOG)
        os.makedirs(os.path.dirname(log))
        self.write(line("mine"), path=log)
        self.assertEqual(self.messages(environ=environment(HOME=self.folder)), ["mine"])

    def test_it_runs_by_itself_and_by_a_link(self):
        self.write(line("m"))
        os.symlink(LOGTAIL, self.path("link"))
        for program in (LOGTAIL, self.path("link")):
            self.assertEqual(subprocess.check_output([program, self.log], env=environment()),
                             (line("m") + "\n").encode())

    def test_it_has_the_name_by_which_it_was_called(self):
        os.symlink(LOGTAIL, self.path("velmora-logtail"))
        for program in (LOGTAIL, self.path("velmora-logtail")):
            shown = subprocess.check_output([program, "--help"], env=environment()).decode()
            self.assertTrue(shown.startswith(f"usage: {os.path.basename(program)} "), shown)

    def test_standard_input_is_read(self):
        text = line("m") + "\n"
        self.assertEqual(self.run_logtail("-", input=text.encode()), text.encode())
        many = "".join(line(f"m {number}") + "\n" for number in range(5000))
        self.assertEqual(self.messages("-n2", "-", input=many.encode()), ["m 4998", "m 4999"])

    def test_a_named_pipe_is_read(self):
        pipe = self.path("pipe")
        os.mkfifo(pipe)
        with subprocess.Popen(["sh", "-c", 'echo "$1" >"$2"', "sh", line("m"), pipe]):
            self.assertEqual(self.messages(pipe), ["m"])

    def test_the_help_names_every_option(self):
        text = self.run_logtail("--help").decode()
        for option in ("--lines", "--follow", "--rotated", "--interval", "--level", "--process",
                       "--thread", "--component", "--since", "--until", "--grep", "--json",
                       "--color", "--quiet"):
            self.assertIn(option, text)

    def test_mistakes_end_it_with_status_2_and_a_reason(self):
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

    def test_unknown_and_shortened_options_are_mistakes(self):
        for option in ("--nonsense", "--foll"):
            self.run_logtail(option, self.log, status=2)
            self.assertIn(option, self.errors)

    def test_standard_input_cannot_be_followed(self):
        self.run_logtail("--follow", "-", status=2, stdin=subprocess.DEVNULL)
        self.assertIn("standard input cannot be followed", self.errors)

    def test_a_missing_log_is_an_error_and_the_others_are_shown(self):
        self.write(line("m"))
        shown = self.run_logtail("-q", self.path("none.log"), self.log, status=1)
        self.assertEqual(shown.decode(), line("m") + "\n")
        self.assertEqual(self.errors,
                         f"logtail: {self.path('none.log')}: No such file or directory\n")

    def test_a_folder_is_an_error(self):
        for options in ([], ["--follow"]):
            self.run_logtail(*options, self.folder, status=1)
            self.assertTrue(self.errors.startswith(f"logtail: {self.folder}: "), self.errors)
            self.assertNotIn("Traceback", self.errors)

    def test_an_interrupt_before_the_first_output_is_quiet(self):
        pipe = self.path("pipe")
        os.mkfifo(pipe)
        with subprocess.Popen([LOGTAIL, pipe], stderr=subprocess.PIPE,
                              env=environment()) as process:
            writer = os.open(pipe, os.O_WRONLY)  # returns when the program reads
            process.send_signal(signal.SIGINT)
            self.assertEqual(process.stderr.read(), b"")
            os.close(writer)
        self.assertEqual(process.returncode, -signal.SIGINT)


if __name__ == "__main__":
    unittest.main()
