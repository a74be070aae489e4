"""Provides what the commands of the documents need: a tree like that of the sources, a home folder,
and a real browser."""

import collections
import ctypes
import faulthandler
import json
import os
import shlex
import shutil
import subprocess
import tempfile
import unittest
import urllib.parse

from documents import SOURCE

BUILD = os.environ.get("BUILD", "")
LOG = "Library/Logs/Cirrane/CRN/CRN.log"

_PR_SET_CHILD_SUBREAPER = 36

# Waits have no time limits. This ends a test whose event never comes.
faulthandler.dump_traceback_later(110, exit=True)

# `events` are the objects that the example browser printed.
Visit = collections.namedtuple("Visit", "events errors home")


def make_tree(folder, *presets):
    """Fills `folder` with links to the sources, and to this build as the builds of the presets.

    Paths of the documents work in the folder. Builds and installations in it do not change the
    source tree. Returns the folder.
    """
    for name in os.listdir(SOURCE):
        if name not in ("build", ".git"):
            os.symlink(os.path.join(SOURCE, name), os.path.join(folder, name))
    os.mkdir(os.path.join(folder, "build"))
    for preset in presets:
        os.symlink(BUILD, os.path.join(folder, "build", preset))
    return folder


def environment(home, **changes):
    """Returns an environment without the user's settings, display and session bus."""
    no_bus = urllib.parse.quote(home + "/no-bus").replace("~", "%7E")
    result = dict(os.environ, HOME=home, TMPDIR=home, XDG_RUNTIME_DIR=home, XDG_CACHE_HOME=home,
                  XDG_CONFIG_HOME=home, XDG_DATA_HOME=home, TZ="UTC", TERM="dumb",
                  PYTHONDONTWRITEBYTECODE="1",
                  DBUS_SESSION_BUS_ADDRESS=f"unix:path={no_bus}", **changes)
    for name in ("DISPLAY", "NO_COLOR"):
        result.pop(name, None)
    return result


class DocumentTest(unittest.TestCase):
    """Provides a new folder for each test, the home folder of the programs that it runs."""

    maxDiff = None

    def setUp(self):
        self.home = tempfile.mkdtemp(prefix="documents-")
        self.addCleanup(shutil.rmtree, self.home)

    def path(self, *names):
        return os.path.join(self.home, *names)

    def make_tree(self, *presets):
        os.mkdir(self.path("tree"))
        return make_tree(self.path("tree"), *presets)

    def run_command(self, command, folder, environ=None):
        """Runs a shell command of a document. Returns its output."""
        done = subprocess.run(["bash", "-o", "pipefail", "-c", command], cwd=folder, check=False,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, env=environ or environment(self.home))
        output = done.stdout.decode()
        self.assertEqual(done.returncode, 0, f"{command}\n{output}")
        return output


class HelperTest(DocumentTest):
    """Runs commands that start helpers."""

    def run_with_helpers(self, command, folder, configuration="-", path="", temporary=None):
        """Runs a command in a private root folder until its last process has ended.

        Returns its output and its errors."""
        # Processes that the browser leaves behind become children of this process.
        self.assertEqual(ctypes.CDLL(None).prctl(_PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0), 0)
        os.mkdir(self.path("root"))
        environ = environment(self.home, PATH=path + os.environ["PATH"])
        environ["TMPDIR"] = temporary or self.home
        done = subprocess.run([os.environ["OWN_ROOT"], self.path("root"), configuration, "bash",
                               "-c", 'cd "$1" && eval "$2"', "bash", folder, command],
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, check=False,
                              stderr=subprocess.PIPE, env=environ)
        _wait_for_orphans()
        # A renderer does not detach from its log's lock when it ends.
        if os.path.exists(self.path(LOG)):
            subprocess.check_call([os.path.join(SOURCE, "tools/lib/remove_lock"), self.path(LOG)],
                                  stdout=subprocess.DEVNULL)
        errors = done.stderr.decode(errors="replace")
        if "no root folders for single programs" in errors:
            self.skipTest("this system does not let a process see another /Library")
        self.assertEqual(done.returncode, 0, f"{command}\n{done.stdout.decode()}{errors}")
        return done.stdout.decode(), errors

    def show(self, command, **options):
        """Returns the visit of the example browser that the command starts."""
        tree = self.make_tree("release")
        # A path without blanks, because xvfb-run does not quote the path of its folder.
        output, errors = self.run_with_helpers(command, tree, temporary="/proc/self/cwd", **options)
        return Visit([json.loads(line) for line in output.splitlines()], errors, self.home)

    def show_page(self, *scripts, options="", **others):
        """Returns the visit of a page with these scripts, one of which must end the run.

        `options` are words for the shell."""
        elements = "".join(f"<script>\n{script}</script>\n" for script in scripts)
        with open(self.path("page.html"), "w", encoding="utf-8") as page:
            page.write('<!DOCTYPE html>\n<meta charset="utf-8">\n' + elements)
        program = f"xvfb-run -a build/release/bin/suite_host --timeout=60 {options}"
        return self.show(f"{program} {shlex.quote(self.path('page.html'))}", **others)


def _wait_for_orphans():
    try:
        while True:
            os.wait()
    except ChildProcessError:
        pass


def messages(visit, name):
    """Returns the arguments of each message of that name."""
    return [event["args"] for event in visit.events
            if event["event"] == "message" and event["name"] == name]


def console(visit):
    return [event["text"] for event in visit.events if event["event"] == "console"]
