"""Runs the programs of a case, and reports programs that hang."""

import os
import pathlib
import select
import struct
import subprocess

import machine

# The errors to inject into the calls of each family. The families are in the order of FAULT_FAMILIES
# in fault_plan.h.
ERRORS = {
    "open": ["EMFILE", "EACCES", "ENOSPC"],
    "read": ["EIO", "EINTR", "SHORT"],
    "write": ["ENOSPC", "EIO", "EINTR", "SHORT"],
    "stat": ["EACCES", "ENOENT"],
    "rename": ["EACCES", "ENOSPC"],
    "link": ["EPERM"],
    "unlink": ["EACCES", "EBUSY"],
    "close": ["EIO", "EINTR"],
    "copy": ["ENOSPC", "EIO", "EXDEV", "EINTR", "SHORT"],
    "truncate": ["EIO", "EINTR"],
    "sync": ["EIO"],
    "mode": ["EPERM", "EROFS"],
    "semaphore": ["ENOMEM", "EACCES", "EINTR"],
    "semaphore-set": ["ENOSPC", "EACCES"],
    "shared": ["ENOSPC", "EACCES"],
    "allocation": ["ENOMEM"],
    "map": ["ENOMEM"],
    "time": ["EINVAL"],
    "directory": ["EACCES", "ENOSPC", "EMFILE"],
    "thread": ["EAGAIN", "ENOMEM"],
    "socket": ["EMFILE", "ECONNREFUSED", "ECONNRESET", "EINTR"],
}
# Much longer than a program needs on a busy machine.
HANG_SECONDS = 60


class Hang(Exception):
    """A program made no progress."""


class Report:
    """The numbers of calls that a program made with the preloaded library."""

    def __init__(self, folder):
        self.path = pathlib.Path(folder, "calls")
        self.path.write_bytes(bytes(8 * (1 + len(ERRORS))))

    def _numbers(self):
        return struct.unpack(f"{1 + len(ERRORS)}Q", self.path.read_bytes())

    def failed(self):
        return self._numbers()[0] != 0

    def calls(self):
        return dict(zip(ERRORS, self._numbers()[1:]))


class Program:
    """A running log_workload, or a program without steps."""

    def __init__(self, command, environment, limits=None):
        def prepare():
            machine.die_with_parent()
            if limits:
                limits()

        self.calm = []          # numbers of the lines written before any fault
        self.written = []       # numbers of the lines whose call returned
        self.late = []          # numbers of the lines written while attached, after the faults
        self.attached = False
        self.stopped = False    # the faults have ended
        self.process = subprocess.Popen([str(word) for word in command], env=environment,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE, preexec_fn=prepare)

    def step(self, step):
        """Executes a step. Returns its result, or None if the program has ended."""
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
        """Waits for the end. Returns the exit status, or the negative number of a signal."""
        try:
            self.process.communicate(timeout=HANG_SECONDS)
        except subprocess.TimeoutExpired as error:
            raise Hang("its end") from error
        return self.process.returncode

    def kill(self):
        self.process.kill()
        self.process.communicate()
