"""Runs logtail/logtail on logs in temporary folders."""

import faulthandler
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
LOGTAIL = os.path.join(SOURCE, "logtail", "logtail")
DEFAULT_LOG = "Library/Logs/Cirrane/CRN/CRN.log"

# Reads of a follower's output have no timeout, so this limit ends a test that hangs.
faulthandler.dump_traceback_later(110, exit=True)


def line(message, level="INFO", time="21:05:07:042", process=4242, component="AppHandler",
         thread=77120, detail=""):
    """Returns a line of the log without its newline. A time without a date gets a fixed date."""
    if "/" not in time:
        time = "11/15/26 " + time
    return (f"{time} | [{level}] | {process} | HXPL | HexHelper | {component} | {detail} | "
            f"HexHelper | {thread} | {message}")


def lines(prefix, count):
    return [line(f"{prefix} {number}") for number in range(count)]


def text_of(*texts):
    return "".join(text + "\n" for text in texts)


def environment(**changes):
    """Returns an environment independent of the user's settings. None removes a variable."""
    result = {name: value for name, value in os.environ.items() if name != "NO_COLOR"}
    result.update(TZ="UTC", LC_ALL="C", PYTHONDONTWRITEBYTECODE="1", TERM="xterm")
    for name, value in changes.items():
        result.pop(name, None)
        if value is not None:
            result[name] = value
    return result


class LogtailTest(unittest.TestCase):
    """Provides a temporary folder, a log in it, and the program."""

    maxDiff = None

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="logtail-")
        self.addCleanup(shutil.rmtree, self.folder)
        self.log = self.path("CRN.log")

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, *texts, path=None, mode="a"):
        """Writes complete lines in one write, like the log library."""
        self.write_raw(text_of(*texts), path, mode)

    def write_raw(self, text, path=None, mode="a"):
        data = text if isinstance(text, bytes) else text.encode()
        with open(path or self.log, mode + "b", buffering=0) as file:
            file.write(data)

    def copy_log(self, stamp):
        """Executes the first half of a rotation. Returns the path of the copy."""
        copy = self.path(f"CRN {stamp}.log")
        shutil.copyfile(self.log, copy)
        return copy

    def rotate(self, stamp):
        """Rotates the log in place, like the log library. Returns the path of the copy."""
        copy = self.copy_log(stamp)
        os.truncate(self.log, 0)
        return copy

    def run_logtail(self, *arguments, status=0, environ=None, **options):
        """Returns the output as bytes. Standard error must be empty unless the program fails."""
        done = subprocess.run([sys.executable, LOGTAIL, *arguments], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, check=False, env=environ or environment(),
                              cwd=self.folder, **options)
        self.assertEqual(done.returncode, status, done.stderr.decode())
        self.errors = done.stderr.decode()
        if status == 0:
            self.assertEqual(self.errors, "")
        return done.stdout

    def shown(self, *arguments, **options):
        """Returns the lines of the output."""
        return self.run_logtail(*arguments, **options).decode().splitlines()

    def messages(self, *arguments, **options):
        """Returns the messages in the lines of the output."""
        return [text.split(" | ", 9)[-1] for text in self.shown(*arguments, **options)]

    def follow(self, *arguments):
        follower = Running("--follow", "--interval", "0.01", *arguments)
        self.addCleanup(follower.end)
        return follower


class Running:
    """A running program that follows a log."""

    def __init__(self, *arguments):
        self._process = subprocess.Popen([sys.executable, LOGTAIL, *arguments],
                                         stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                         env=environment())

    @property
    def pid(self):
        return self._process.pid

    def next_line(self):
        """Waits for the next line of the output and returns it."""
        text = self._process.stdout.readline().decode()
        if not text.endswith("\n"):
            raise AssertionError(f"no further line: {self._process.stderr.read().decode()}")
        return text[:-1]

    def next_lines(self, count):
        return [self.next_line() for _ in range(count)]

    def next_notice(self):
        """Waits for a line on standard error."""
        return self._process.stderr.readline().decode()

    def stop(self):
        """Suspends the program until go_on(). Returns when it is suspended."""
        os.kill(self.pid, signal.SIGSTOP)
        os.waitpid(self.pid, os.WUNTRACED)

    def go_on(self):
        os.kill(self.pid, signal.SIGCONT)

    def interrupt(self):
        os.kill(self.pid, signal.SIGINT)

    def close_output(self):
        self._process.stdout.close()

    def wait(self):
        """Waits for the end. Returns the exit status, or the negative number of a signal."""
        return self._process.wait()

    def rest(self):
        """Returns the rest of the output and of standard error. The program must have ended."""
        return self._process.stdout.read().decode(), self._process.stderr.read().decode()

    def end(self):
        if self._process.poll() is None:
            self._process.kill()
            self._process.wait()
        self._process.stdout.close()
        self._process.stderr.close()
