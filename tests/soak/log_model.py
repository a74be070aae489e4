"""The model of the log: the lines that its files must contain, and those that may be missing.

docs/logging.md lists the possible losses. Two of them occur here: lines that a process writes after
the disk is full and before the process next checks the file, and the last line of a killed process,
which may be cut.
"""

import collections
import time

from log_lines import classify

MEBIBYTE = 1 << 20
LIMIT = 10 * MEBIBYTE
LIMIT_WITH_DEBUG = 20 * MEBIBYTE
# Other processes write this much between the size check of a process and its first line.
SLACK = 2 * MEBIBYTE
# Each process that writes while the disk is full can cut one line.
MAX_CUT_BY_FULL_DISK = 20
SECRET = b"SECRET"


class Writer:
    """A process that writes numbered lines, beginning with 1."""

    def __init__(self):
        self.seen = set()
        self.written = 0     # the number of the last line whose call has returned
        self.mute = []       # first and last numbers of lines that a full disk may suppress


class Period:
    """A period of time, in seconds since the epoch. It lasts until finish()."""

    def __init__(self):
        self.begin = time.time()
        self.end = float("inf")

    def finish(self):
        self.end = time.time()


def within(second, periods, margin=2):
    """Returns whether the time is in a period. The margin is for times in whole seconds."""
    return any(period.begin - margin <= second <= period.end + margin for period in periods)


def is_now_within(periods):
    return within(time.time(), periods, 0)


class LogModel:
    def __init__(self):
        self.problems = []
        self.writers = collections.defaultdict(Writer)
        self._helpers = collections.defaultdict(collections.Counter)
        self.started_at = {}  # times of the START lines by process
        self.lines = self.torn = self.kills = self.cost_of_full_disks = 0
        self.full = []        # periods with a full disk
        self.more = []        # periods with a marker for level DEBUG

    def take_file(self, name, content):
        if SECRET in content:
            at = content.index(SECRET)
            self.problems.append(f"{name} shows a secret: {content[at - 80:at + 40]!r}")
        texts = content.decode(errors="replace").split("\n")
        offset = 0
        last = collections.Counter()
        for i, text in enumerate(texts):
            # The last text is empty unless a process was killed during a write.
            if i < len(texts) - 1 or text:
                self._take_line(name, text, offset, last)
            offset += len(text) + 1

    def _take_line(self, name, text, offset, last):
        line = classify(text)
        self.lines += 1
        if line.kind == "unknown":
            self.problems.append(f"{name}: no program writes the line {text!r}")
        elif line.kind == "torn":
            self.torn += 1
        elif line.kind == "numbered":
            self._take_numbered(name, line, last)
        elif line.kind != "header":
            self.note_helper_line(line.process, line.kind)
            if line.kind == "START":
                self._take_start(name, line, offset)

    def _take_numbered(self, name, line, last):
        seen = self.writers[line.writer].seen
        if line.number in seen:
            self.problems.append(
                f"{name}: line {line.number} of writer {line.writer} occurs twice")
        if line.number < last[line.writer]:
            self.problems.append(f"{name}: line {line.number} of writer {line.writer} comes after "
                                 f"{last[line.writer]}")
        last[line.writer] = line.number
        seen.add(line.number)

    def _take_start(self, name, line, offset):
        """A process that opens a log at or above the limit rotates it before its first line."""
        started = time.mktime(time.strptime(line.time, "%m/%d/%y %H:%M:%S"))
        self.started_at[line.process] = started
        limit = LIMIT_WITH_DEBUG if within(started, self.more) else LIMIT
        if offset > limit + SLACK and not within(started, self.full):
            self.problems.append(f"{name}: process {line.process} opened the log at {offset} bytes "
                                 f"and did not rotate it")

    def note_helper_line(self, helper, kind):
        self._helpers[helper][kind] += 1

    def lines_of(self, helper):
        """Returns the number of lines of each kind that the process has written."""
        return self._helpers.get(helper, collections.Counter())

    def processes(self):
        """Returns the processes that have lines of a helper."""
        return set(self._helpers)

    def missing(self, number):
        """Returns the lines that a writer lost without a reason, and the number that a full disk
        explains."""
        writer = self.writers[number]
        lost = [line for line in range(1, writer.written + 1) if line not in writer.seen]
        explained = [line for line in lost
                     if any(first <= line <= end for first, end in writer.mute)]
        return sorted(set(lost) - set(explained)), len(explained)

    def check_writers(self):
        for number, writer in sorted(self.writers.items()):
            lost, explained = self.missing(number)
            self.cost_of_full_disks += explained
            if lost:
                self.problems.append(f"{len(lost)} lines of writer {number} are lost, from "
                                     f"{lost[0]} to {lost[-1]}")
            if writer.seen and max(writer.seen) > writer.written + 1:
                self.problems.append(f"writer {number} has lines after its last one")
        if self.torn > self.kills + len(self.full) * MAX_CUT_BY_FULL_DISK:
            self.problems.append(f"{self.torn} lines are cut, with {self.kills} killed processes "
                                 f"and {len(self.full)} full disks")
