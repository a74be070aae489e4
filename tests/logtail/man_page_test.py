"""Tests that the manual page is well-formed and complete."""

import os
import re
import subprocess
import sys
import unittest

from support import DEFAULT_LOG, LOGTAIL, SOURCE, environment

MANDOC = os.environ.get("MANDOC", "mandoc")
PAGE = os.path.join(SOURCE, "logtail", "logtail.1")


def rendered():
    text = subprocess.check_output([MANDOC, "-T", "utf8", PAGE]).decode()
    return re.sub(".\b", "", text)  # bold and underlined


class ManPageTest(unittest.TestCase):
    def test_page_is_well_formed(self):
        done = subprocess.run([MANDOC, "-T", "lint", "-W", "warning", PAGE], check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.assertEqual((done.returncode, done.stdout.decode()), (0, ""))

    def test_page_has_same_options_as_help(self):
        usage = subprocess.check_output([sys.executable, LOGTAIL, "--help"], env=environment())
        options = re.compile(r"(?<![\w-])--[a-z]+")
        offered = set(options.findall(usage.decode())) - {"--help"}
        self.assertEqual(set(options.findall(rendered())), offered)

    def test_page_contains_path_of_log(self):
        self.assertIn("~/" + DEFAULT_LOG, rendered())


if __name__ == "__main__":
    unittest.main()
