"""Runs the program that writes numbered lines, and shifts its clock."""

import itertools
import mmap
import signal
import struct
import subprocess
import time

import machine
import processes

LINES_PER_SECOND = 1000
# Successive offsets of the clock, in seconds. A writer that is stopped during two shifts
# still sees a change.
SHIFTS = [3600, -3600, 0]
SECONDS_TO_END = 10
# A check of the file depends on the time of the previous line, so the first lines after a shift may
# still be dropped.
LINES_UNTIL_CHECK = 5
GETPID, GETVAL, LOCK = 11, 12, 1


class SharedNumber:
    """A number in a file that another process maps."""

    def __init__(self, path):
        self.path = path
        path.write_bytes(bytes(8))
        with open(path, "r+b") as file:
            self._memory = mmap.mmap(file.fileno(), 8)

    def get(self):
        return struct.unpack("<q", self._memory)[0]

    def set(self, number):
        self._memory[:] = struct.pack("<q", number)


def holds_lock(pid):
    """Returns whether the process holds one of the log's locks."""
    return any(machine.LIBC.semctl(number, LOCK, GETVAL) == 0 and
               machine.LIBC.semctl(number, LOCK, GETPID) == pid
               for number in machine.numbers_of("sem"))


class LogWriter:
    """Runs one writer after the other, numbered from 1. Records the number of lines of each in
    `model`."""

    def __init__(self, build, folder, environment, model):
        self._program = build / "bin/soak_log_writer"
        self._clock = SharedNumber(folder / "clock")
        self._shifts = itertools.cycle(SHIFTS)
        self._folder = folder
        self._environment = dict(
            environment, SHIFTED_CLOCK=str(self._clock.path),
            LD_PRELOAD=str(build / "tests/soak/libshifted_clock.so"))
        self._model = model
        self._mute_from = None  # the first line that a full disk may suppress, or None
        self._disk_is_full = False
        self._before = 0  # the number of lines of previous writers
        self.number = 0
        self.start()

    def start(self):
        self.number += 1
        self._progress = SharedNumber(self._folder / f"progress{self.number}")
        self.process = subprocess.Popen(
            [self._program, str(self.number), self._progress.path, str(LINES_PER_SECOND)],
            env=self._environment, preexec_fn=machine.die_with_parent)
        self._mute_from = 1 if self._disk_is_full else None

    @property
    def pid(self):
        return self.process.pid

    def written(self):
        return self._progress.get()

    def total(self):
        """Returns the number of lines of all writers."""
        return self._before + self.written()

    def _end(self):
        record = self._model.writers[self.number]
        record.written = self.written()
        self._before += record.written
        if self._mute_from is not None:
            record.mute.append((self._mute_from, record.written + 1))

    def kill(self):
        self.process.kill()
        self.process.wait()
        self._end()
        self._model.kills += 1

    def stop(self):
        """Ends the writer. Returns its exit status."""
        self.process.send_signal(signal.SIGCONT)
        self.process.terminate()
        status = self.process.wait(SECONDS_TO_END)
        self._end()
        return status

    def shift_clock(self):
        """Moves the clock by an hour or two, which makes the writer check its file."""
        self._clock.set(next(self._shifts))

    def begin_full_disk(self):
        self._disk_is_full = True
        self._mute_from = self.written() + 1

    def end_full_disk(self):
        """Makes the writer check its file. The writer drops lines until then."""
        self._disk_is_full = False
        self.shift_clock()
        last = self.written() + LINES_UNTIL_CHECK
        self._model.writers[self.number].mute.append((self._mute_from, last))
        self._mute_from = None

    def suspend_with_lock(self, seconds):
        """Suspends the writer. Tries for some seconds to do so while the writer holds the lock, and
        returns whether it holds the lock."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            self.process.send_signal(signal.SIGSTOP)
            processes.wait_until(lambda: processes.is_stopped(self.pid), 1, 0)
            if holds_lock(self.pid):
                return True
            self.process.send_signal(signal.SIGCONT)
        self.process.send_signal(signal.SIGSTOP)
        return False
