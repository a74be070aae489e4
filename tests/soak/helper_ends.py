"""Compares the exit status of each helper with its lines in the log."""

import collections
import dataclasses
import re
import time

from log_model import within

WITHOUT_LOG = "gpu-process"
# The groups are the process, its exit status, and the signal that killed it.
END = re.compile(r"^(\d+) +\+\+\+ (?:exited with (\d+)|killed by (SIG\w+)(?: \(core dumped\))?) "
                 r"\+\+\+$", re.MULTILINE)


@dataclasses.dataclass
class Helper:
    pid: int
    kind: str
    started: float      # seconds since the epoch
    status: object      # a number, the name of a signal, or None if it has not ended


def read_helpers(traces):
    boot = time.time() - time.clock_gettime(time.CLOCK_BOOTTIME)
    for path in sorted(traces.iterdir()):
        pid, uptime, kind = path.name.split("-", 2)
        ends = {int(match[1]): int(match[2]) if match[2] else match[3]
                for match in END.finditer(path.read_text(encoding="utf-8", errors="replace"))}
        yield Helper(int(pid), kind, boot + float(uptime), ends.get(int(pid)))


class HelperEnds:
    def __init__(self, day):
        self._day = day
        self.problems = []
        self.counts = collections.Counter()
        self.helpers = list(read_helpers(day.traces))

    def check(self):
        for helper in self.helpers:
            self.counts[helper.kind] += 1
            self._check_status(helper)
            if helper.kind != WITHOUT_LOG:
                self._check_configuration(helper)
        self._check_starts()
        self._check_limits()
        self._check_reports()

    def _check_status(self, helper):
        limit = self._day.log.lines_of(helper.pid)["LIMIT"] > 0
        if helper.status == "SIGKILL" and helper.pid in self._day.killed:
            self.counts["killed"] += 1
        elif helper.status == "SIGKILL" and helper.pid in self._day.stopped:
            self.counts["killed by the browser"] += 1  # SIGTERM has no effect while it is stopped
        elif helper.status == "SIGTERM":  # Chromium ends a renderer without pages with SIGTERM
            self.counts["ended by the browser"] += 1
        elif helper.status not in (0, 1):
            self.problems.append(f"helper {helper.pid} ({helper.kind}) ended with {helper.status}")
        elif helper.status == 1 and not limit and not self._was_mute(helper):
            self.problems.append(f"helper {helper.pid} ended with 1 and was not over the limit")
        elif helper.status == 0 and limit:
            self.problems.append(f"helper {helper.pid} was over the limit and ended with 0")

    def _was_mute(self, helper):
        """After a write to a full disk fails, a process drops its lines for 900 seconds."""
        return any(helper.started <= period.end + 2 for period in self._day.log.full)

    def _check_starts(self):
        """Each process with a log has one START line, unless it was killed early."""
        by_pid = collections.defaultdict(list)
        for helper in self.helpers:
            if helper.kind != WITHOUT_LOG:
                by_pid[helper.pid].append(helper)
        for pid, helpers in by_pid.items():
            count = self._day.log.lines_of(pid)["START"]
            excused = [helper for helper in helpers
                       if isinstance(helper.status, str) or self._was_mute(helper)]
            if not len(helpers) - len(excused) <= count <= len(helpers):
                self.problems.append(f"helper {pid} has {count} START lines")
        for pid in self._day.log.processes() - set(by_pid):
            self.problems.append(f"lines of process {pid}, which is not a helper with a log")

    def _check_limits(self):
        over = [helper for helper in self.helpers if helper.status == 1]
        self.counts["over the limit"] = len(over)
        for helper in over:
            lines = self._day.log.lines_of(helper.pid)
            if lines["LIMIT"] and not lines["END"] and not self._was_mute(helper):
                self.problems.append(f"helper {helper.pid} wrote no END line after its warning")

    def _check_reports(self):
        """Each end over the limit is reported on the bus, unless the bus was down."""
        self.counts["reports"] = self._day.refreshes.reports
        lost = self.counts["over the limit"] - self._day.refreshes.reports
        if not 0 <= lost <= self._day.counts["bus restarts"]:
            self.problems.append(f"{lost} reports of too much memory are missing")

    def _check_configuration(self, helper):
        """A process that starts at level DEBUG with a broken configuration logs the error."""
        started = self._day.log.started_at.get(helper.pid)
        if started is None:
            return
        lines = self._day.log.lines_of(helper.pid)["CONFIGURATION"]
        self.counts["lines about the configuration"] += lines
        may = within(started, self._day.broken) and within(started, self._day.log.more)
        if lines and not may:
            self.problems.append(f"helper {helper.pid} reports a valid configuration as broken")
        must = within(started, self._day.broken, -2) and within(started, self._day.log.more, -2)
        if must and not lines and helper.status == 0 and not self._was_mute(helper):
            self.problems.append(f"helper {helper.pid} does not report a broken configuration")
