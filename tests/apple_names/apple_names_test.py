"""Compares Apple's names, types and values in platform/apple/ and in the declarations of
tests/darwin/sdk/ with data from Apple's SDK:

    apple_names_test.py BUILD_FOLDER CRATES_FOLDER
"""

import concurrent.futures
import json
import pathlib
import shlex
import sys
import unittest

import clang_dump
import crates
from checks import Checks
from comparison import Exceptions

BUILD, CRATES = map(pathlib.Path, sys.argv[1:])
FOLDER = pathlib.Path(__file__).resolve().parent
SOURCE = FOLDER.parent.parent
SOURCES = sorted((SOURCE / "platform/apple").glob("*.mm"))
HEADERS = sorted((SOURCE / "tests/darwin/sdk").glob("**/*.h"))


def compilers_of_sources():
    """Returns the compiler for each source of the preset."""
    found = {}
    for entry in json.loads((BUILD / "compile_commands.json").read_text()):
        command = shlex.split(entry["command"])
        del command[command.index("-o"):]
        found[pathlib.Path(entry["file"])] = clang_dump.Compiler(command, entry["directory"])
    return found


class AppleNamesTest(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        if not CRATES.is_dir():
            raise FileNotFoundError(f"There is no {CRATES}: run tools/lib/fetch_apple_names first.")
        cls.exceptions = Exceptions((FOLDER / "exceptions.txt").read_text())
        cls.checks = Checks(crates.read(CRATES), cls.exceptions)

    def test_sources_and_declarations_agree_with_sdk(self):
        compilers = compilers_of_sources()
        self.assertGreater(len(SOURCES), 5)
        self.assertGreater(len(HEADERS), 1)
        with concurrent.futures.ThreadPoolExecutor(2) as pool:
            found = [
                *pool.map(lambda source: self.checks.problems_of_source(compilers[source], source),
                          SOURCES),
                *pool.map(self.checks.problems_of_header, HEADERS)]
        self.assertEqual([problem for problems in found for problem in problems], [])
        self.assertEqual(self.exceptions.unused(), [], "exceptions that are not needed")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
