"""Checks what the programs for macOS need: programs_test.py PROGRAM..."""

import pathlib
import re
import subprocess
import sys
import unittest

PROGRAMS = sys.argv[1:]
FOLDER = pathlib.Path(__file__).parent


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def undefined_names(program):
    """Returns the names that no available library has, without parameters."""
    symbols = re.findall(r'^ *\(undefined\).* external (\S+)(?: \(dynamically looked up\))?$',
                         output_of('llvm-nm', '-m', '-u', program), re.MULTILINE)
    names = output_of('llvm-cxxfilt', '--strip-underscore', *symbols) if symbols else ''
    return {re.sub(r'\(.*', '', name).removeprefix('_') for name in names.splitlines()}


class ProgramsTest(unittest.TestCase):
    maxDiff = None

    def test_each_program_is_for_macos_10_7_on_x86_64(self):
        for program in PROGRAMS:
            headers = output_of('llvm-objdump', '--macho', '--private-headers', program)
            self.assertRegex(headers, r'X86_64 .* EXECUTE', program)
            self.assertRegex(headers, r'cmd LC_VERSION_MIN_MACOSX\n.*\n +version 10\.7\n', program)

    def test_run_path_is_cef_folder_next_to_program_folder(self):
        for program in PROGRAMS:
            headers = output_of('llvm-objdump', '--macho', '--rpaths', program)
            self.assertIn('@executable_path/../CEF', headers.splitlines(), program)

    def test_only_names_from_macos_and_cef_are_undefined(self):
        allowed = (FOLDER / 'left_to_macos.txt').read_text().split()
        missing = set().union(*(undefined_names(program) for program in PROGRAMS))
        self.assertCountEqual(allowed, missing)


if __name__ == '__main__':
    unittest.main(argv=sys.argv[:1])
