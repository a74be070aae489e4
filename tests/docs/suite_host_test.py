"""Checks the documented usage of the example browser, and runs the commands that start it."""

import os
import re
import shlex
import subprocess
import unittest

import documents
from environment import BUILD, LOG, HelperTest, messages

USAGE = documents.take("docs/suite-host.md", "suite_host [--helper=PATH]")
SHORT = documents.take("docs/suite-host.md", "xvfb-run -a suite_host")
DEMO = documents.take("README.md", "xvfb-run -a build/release/bin/suite_host")
SANDBOX = documents.take("docs/security.md", "suite_host --sandbox")
ZYGOTE = documents.take("docs/security.md", "suite_host --zygote")


class SuiteHostTest(HelperTest):
    def test_program_prints_documented_usage(self):
        done = subprocess.run([os.path.join(BUILD, "bin", "suite_host")], check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        usage = done.stderr.decode().partition("usage: ")[2]
        self.assertEqual((done.returncode, usage.split()), (2, USAGE.split()))

    def test_table_has_row_for_each_option(self):
        rows = [line for line in documents.prose("docs/suite-host.md").splitlines()
                if line.startswith("| `--")]
        options = [row.split("`")[1] for row in rows]
        # The usage without brackets and dots.
        in_usage = [word.rstrip(".")[1:-1] for word in USAGE.split()[1:-1]]
        self.assertEqual(options, in_usage + ["--help", "--version"])
        shown = subprocess.check_output([os.path.join(BUILD, "bin", "suite_host"), "--help"])
        self.assertEqual(options, re.findall(r"^  (--\S+)", shown.decode(), re.MULTILINE))

    def test_demo_runs(self):
        visit = self.show(DEMO)
        self.assertEqual(messages(visit, "host.quit"), [[0]])
        with open(self.path(LOG), encoding="utf-8") as log:
            self.assertIn("START Velmora CEF Helper", log.read())

    def test_program_runs_with_display_alone(self):
        page = os.path.join(documents.SOURCE, "examples", "pages", "demo.html")
        visit = self.show(SHORT.replace("…", shlex.quote(page)),
                          path=os.path.join(BUILD, "bin") + ":")
        self.assertEqual(messages(visit, "host.quit"), [[0]])

    def test_ways_to_start_child_processes_are_options(self):
        for command in (SANDBOX, ZYGOTE):
            program, option = command.split()
            self.assertEqual(program, "suite_host")
            self.assertIn(f"[{option}]", USAGE)


if __name__ == "__main__":
    unittest.main()
