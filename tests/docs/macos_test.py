"""The commands for macOS. Only a Mac can run them: here they are read by the shell, and what they
name of this project has to be there."""

import os
import re
import subprocess
import unittest

import documents
from surroundings import SOURCE

PACKAGES = "docs/packaging.md"
BUILDING = [documents.take(PACKAGES, beginning) for beginning in (
    "cmake -G Ninja", "cmake --build build\n", "cmake --install build --prefix Suite.app")]
SIGNING = [documents.take(PACKAGES, "codesign " + beginning) for beginning in (
    '--force --timestamp --options runtime --sign "$IDENTITY" \\\n  "Suite.app/Contents/CEF',
    '--force --timestamp --options runtime --sign "$IDENTITY" \\\n  --entitlements',
    '--force --timestamp --options runtime --sign "$IDENTITY" Suite.app',
    "--verify", "--display")]
LINKED = documents.take(PACKAGES, "otool -L")


def arguments(command):
    """As the shell takes the command apart, with IDENTITY set."""
    script = "set -- " + command.strip() + "; printf '%s\\n' \"$@\""
    done = subprocess.check_output(["bash", "-c", script],
                                   env=dict(os.environ, IDENTITY="nobody"))
    return done.decode().splitlines()


class MacCommandsTest(unittest.TestCase):
    def test_the_shell_understands_them(self):
        for command in (*BUILDING, *SIGNING, LINKED):
            subprocess.check_call(["bash", "-n", "-c", command])

    def test_files_of_this_project_that_they_name_are_there(self):
        named = [word for command in BUILDING + SIGNING for word in arguments(command)
                 if word.startswith("packaging/")]
        self.assertEqual(named, ["packaging/macos/HexHelper.entitlements"])
        for name in named:
            self.assertTrue(os.path.exists(os.path.join(SOURCE, name)), name)

    def test_variables_are_cmakes_own_or_this_projects(self):
        names = re.findall(r"-D(\w+)=", "".join(BUILDING))
        known = subprocess.check_output(["cmake", "--help-variable-list"]).decode().split()
        unknown = [name for name in names if name not in known]
        self.assertEqual(unknown, ["CEF_ROOT"])
        self.assertIn("set(CEF_ROOT ", documents.read("CMakeLists.txt"))

    def test_what_is_signed_is_what_the_layout_has(self):
        layout = documents.prose(PACKAGES)
        signed = [arguments(command)[-1] for command in SIGNING]
        for path in signed:
            inside = path.replace("Suite.app/Contents/", "")
            self.assertTrue(path == "Suite.app" or f"`{inside}`" in layout, path)


if __name__ == "__main__":
    unittest.main()
