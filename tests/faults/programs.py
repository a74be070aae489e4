"""Runs the programs that a case consists of, and ends those that hang."""

import os
import pathlib
import select
import struct
import subprocess

import machine

# In the order of faults::Family.
FAMILIES = ["open", "read", "write", "stat", "rename", "link", "unlink", "close", "copy",
            "truncate", "sync", "mode", "semaphore", "semaphore-set", "shared", "allocation",
            "map", "time", "directory", "thread", "socket"]
# Far beyond what a program needs on a busy machine.
HANG_SECONDS = 60


class Hang(Exception):
    """A program made no progress."""


class Report:
    """The numbers of calls that a program made under the library."""

    def __init__(self, folder):
        self.path = pathlib.Path(folder, "calls")
        self.path.write_bytes(bytes(8 * (1 + len(FAMILIES))))

    def _numbers(self):
        return struct.unpack(f"{1 + len(FAMILIES)}Q", self.path.read_bytes())

    def failed(self):
        return self._numbers()[0] != 0

    def calls(self):
        return dict(zip(FAMILIES, self._numbers()[1:]))


class Program:
    """A log_workload, or a program without steps."""

    def __init__(self, command, environment, limits=None):
        def prepare():
            machine.die_with_parent()
            if limits:
                limits()

        self.calm = []          # numbers of the lines that it wrote before any fault
        self.written = []       # numbers of the lines whose call returned
        self.late = []          # numbers of those it wrote, attached, after the end of the faults
        self.attached = False
        self.stopped = False    # the faults have ended
        self.process = subprocess.Popen([str(word) for word in command], env=environment,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE, preexec_fn=prepare)

    def step(self, step):
        """Returns the result, None when the program has ended."""
        try:
            os.write(self.process.stdin.fileno(), step.encode())
        except BrokenPipeError:
            return None
        if not select.select([self.process.stdout], [], [], HANG_SECONDS)[0]:
            raise Hang(f"step {step}")
        answer = os.read(self.process.stdout.fileno(), 100).decode().split()
        if not answer:
            return None
        self._note(step, *answer)
        return answer[1]

    def _note(self, step, fault, result, number):
        if step == "s":
            self.stopped = True
        elif step == "a":
            self.attached = result == "done"
        elif step == "w" and result == "done":
            self.written.append(int(number))
            if fault == "calm":
                self.calm.append(int(number))
            if self.stopped and self.attached:
                self.late.append(int(number))

    def end(self):
        """Returns the exit status, the negative number of a signal."""
        try:
            self.process.communicate(timeout=HANG_SECONDS)
        except subprocess.TimeoutExpired as error:
            raise Hang("its end") from error
        return self.process.returncode

    def kill(self):
        self.process.kill()
        self.process.communicate()
