"""Tests the output and commands of tools/lib/install_packages on a system without any package.

Scripts stand in for dpkg-query, id and apt-get, so the tests install nothing.
"""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

SOURCE = pathlib.Path(__file__).resolve().parents[2]
# The programs of a system without sudo and without programs from the packages.
PROGRAMS = ("basename", "bash", "dirname", "env", "grep", "mkdir", "sed", "sh", "tee")
APT = r"""#!/bin/bash
case " $* " in
  *" update "*) echo 'Get:1 lists' ;;
  *" --assume-no "*)
    echo '0 upgraded, 152 newly installed, 0 to remove and 0 not upgraded.'
    echo 'Need to get 114 MB of archives.'
    echo 'After this operation, 449 MB of additional disk space will be used.'
    exit 1 ;;
  *)
    echo "$*" >installed
    for ((i = 0; i <= 100; ++i)); do
      echo "Unpacking number $i"
      echo "dlstatus:$i:$i.5:Retrieving file $i of 100" >&3
    done
    for ((i = 0; i <= 100; ++i)); do echo "pmstatus:libx11-6:amd64:$i.00:Preparing" >&3; done
    [ -z "${APT_ERROR:-}" ] || { echo "E: $APT_ERROR"; exit 100; } ;;
esac
"""


class SetupTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="setup-"))
        self.addCleanup(shutil.rmtree, self.folder)
        (self.folder / "tools").symlink_to(SOURCE / "tools")
        (self.folder / "bin").mkdir()
        for name in PROGRAMS:
            (self.folder / "bin" / name).symlink_to(shutil.which(name))
        self.stand_in("dpkg-query", "#!/bin/sh\nexit 1\n")
        self.stand_in("apt-get", APT)

    def stand_in(self, name, text):
        path = self.folder / "bin" / name
        path.write_text(text)
        path.chmod(0o755)

    def install(self, user, packages="demo", **variables):
        self.stand_in("id", f"#!/bin/sh\necho {user}\n")
        run = subprocess.run([self.folder / "tools/lib/install_packages", packages],
                             cwd=self.folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                             stderr=subprocess.STDOUT, check=False,
                             env=dict(os.environ, PATH=str(self.folder / "bin"), **variables))
        return run.returncode, run.stdout.decode().splitlines()

    def installed(self):
        return (self.folder / "installed").read_text().split()

    def test_prints_sizes_and_then_progress_by_quarters(self):
        status, lines = self.install(user=0)
        self.assertEqual(status, 0)
        self.assertEqual(lines[1], "install_packages: installing 152 Debian packages: "
                                   "114 MB to download, 449 MB on disk")
        self.assertEqual([line.split(": ")[1:] for line in lines[2:]],
                         [[action, f"{percent} %"] for action in ("downloading", "installing")
                          for percent in (0, 25, 50, 75, 100)])

    def test_writes_output_of_apt_to_file(self):
        self.install(user=0)
        log = (self.folder / "build/apt.log").read_text()
        self.assertIn("Get:1 lists", log)
        self.assertIn("Unpacking number 100", log)

    def test_error_contains_path_of_file(self):
        status, lines = self.install(user=0, APT_ERROR="no space left")
        self.assertEqual(status, 1)
        self.assertEqual(lines[-2:], [
            "E: no space left", "install_packages: apt-get could not install the packages; "
            f"apt's output is in {self.folder}/build/apt.log"])

    def test_set_includes_previous_sets_alone(self):
        self.install(user=0, packages="tests")
        self.assertIn("--no-install-recommends", self.installed())
        self.assertIn("libxml2-dev", self.installed())
        self.assertIn("libgtest-dev", self.installed())
        self.assertNotIn("clang-tidy", self.installed())

    def test_prints_command_and_runs_nothing_without_root(self):
        status, lines = self.install(user=1000)
        self.assertEqual(status, 1)
        self.assertEqual(len(lines), 1)
        self.assertRegex(lines[0], "^install_packages: Debian packages are missing; run as root: "
                                   "apt-get update && apt-get install -y --no-install-recommends "
                                   ".*libxml2-dev")
        self.assertFalse((self.folder / "installed").exists())


if __name__ == "__main__":
    unittest.main()
