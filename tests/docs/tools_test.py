"""The options of the project's scripts that the documents name."""

import os
import re
import subprocess
import unittest

import documents
from surroundings import SOURCE, environment

TEST = documents.take("README.md", "tools/test")
TEST_A_PART = documents.take("CONTRIBUTING.md", "tools/test")
FORMAT = documents.take("CONTRIBUTING.md", "tools/lint")


def help_of(script):
    return subprocess.check_output([os.path.join(SOURCE, script), "--help"],
                                   env=environment("/nonexistent")).decode()


class ToolsTest(unittest.TestCase):
    def test_the_usage_is_what_the_script_says(self):
        self.assertEqual(help_of("tools/test").splitlines()[0], "usage: " + TEST)

    def test_a_pattern_is_what_the_script_takes(self):
        script, *arguments = TEST_A_PART.split()
        self.assertEqual((script, len(arguments)), ("tools/test", 1))
        self.assertIn("[PATTERN]", help_of(script))

    def test_options_are_ones_that_the_scripts_take(self):
        script, option = FORMAT.split()
        self.assertIn(f"[{option}]", help_of(script))

    def test_each_option_in_a_text_about_the_log_is_one_of_logtail(self):
        options = re.findall(r"--[a-z-]+", help_of("tools/logtail"))
        named = [word for span in documents.spans("docs/logging.md") for word in span.split()
                 if word.startswith("--")]
        self.assertEqual([option for option in named if option not in options], [])


if __name__ == "__main__":
    unittest.main()
