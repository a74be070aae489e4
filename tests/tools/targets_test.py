"""Tests which targets tools/lib/targets_of_tests selects."""

import json
import os
import pathlib
import subprocess
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parents[2] / "tools/lib/targets_of_tests"
BUILD = os.environ["BUILD"]


def targets(pattern):
    return subprocess.check_output([SCRIPT, BUILD, pattern]).decode().split()


def known_tests():
    shown = subprocess.check_output(["ctest", "--test-dir", BUILD, "--show-only=json-v1"])
    return [test["name"] for test in json.loads(shown)["tests"]]


class TargetsTest(unittest.TestCase):
    def test_selects_one_program_for_its_test(self):
        self.assertEqual(targets("^utils.OSBitnessTest"), ["utils_os_bitness_test"])

    def test_prefix_is_part_of_name(self):
        self.assertEqual(targets(r"^bridge\."), ["bridge_tests"])

    def test_selects_targets_whose_files_script_uses(self):
        self.assertEqual(targets(r"^cmake\.install$"), ["own_root"])
        self.assertEqual(targets(r"^logtail\.arguments$"), [])

    def test_selects_programs_with_parameterized_tests(self):
        self.assertIn("platform_tests", targets(r"XmlAcceptance\.IsSameEverywhere/"))

    def test_reports_invalid_pattern(self):
        run = subprocess.run([SCRIPT, BUILD, "("], stderr=subprocess.PIPE, check=False)
        self.assertEqual(run.returncode, 1)
        self.assertIn("( is not a regular expression", run.stderr.decode())

    def test_every_test_of_ctest_is_declared(self):
        declared = [line.split("|")[1] for line in
                    pathlib.Path(BUILD, "test_targets.txt").read_text().splitlines()]
        self.assertEqual([name for name in known_tests() if not name.endswith("_NOT_BUILT")
                          and not name.startswith(tuple(declared))], [])


if __name__ == "__main__":
    unittest.main()
