"""Tests that wrong exit statuses and missing log lines of helpers are found."""

import collections
import pathlib
import tempfile
import time
import types
import unittest

from helper_ends import HelperEnds
from log_model import LogModel, Period


class HelperEndsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.day = types.SimpleNamespace(
            traces=pathlib.Path(folder.name), log=LogModel(), killed=set(), stopped=set(),
            broken=[],
            counts=collections.Counter(), refreshes=types.SimpleNamespace(reports=0))

    def add(self, pid, end, *lines, kind="renderer"):
        uptime = time.clock_gettime(time.CLOCK_BOOTTIME)
        trace = f"{pid + 1} +++ exited with 0 +++\n{pid} +++ {end} +++\n"
        (self.day.traces / f"{pid}-{uptime:.2f}-{kind}").write_text(trace, encoding="utf-8")
        for line in lines:
            self.day.log.note_helper_line(pid, line)
        if "START" in lines:
            self.day.log.started_at[pid] = time.time()

    def problems(self):
        ends = HelperEnds(self.day)
        ends.check()
        return "\n".join(ends.problems)

    def test_accepts_usual_ends(self):
        self.day.killed.add(3)
        self.day.stopped.add(6)
        self.day.refreshes.reports = 1
        self.add(1, "exited with 0", "START")
        self.add(2, "exited with 1", "START", "LIMIT", "END")
        self.add(3, "killed by SIGKILL")
        self.add(4, "killed by SIGTERM", "START")
        self.add(5, "exited with 0", kind="gpu-process")
        self.add(6, "killed by SIGKILL", "START")
        self.assertEqual(self.problems(), "")

    def test_finds_crash(self):
        self.add(1, "killed by SIGSEGV (core dumped)", "START")
        self.assertEqual(self.problems(), "helper 1 (renderer) ended with SIGSEGV")

    def test_finds_kill_outside_of_schedule(self):
        self.add(1, "killed by SIGKILL", "START")
        self.assertEqual(self.problems(), "helper 1 (renderer) ended with SIGKILL")

    def test_finds_helper_that_has_not_ended(self):
        self.add(1, "attached", "START")
        self.assertEqual(self.problems(), "helper 1 (renderer) ended with None")

    def test_finds_status_of_limit_without_warning(self):
        self.day.refreshes.reports = 1
        self.add(1, "exited with 1", "START", "END")
        self.assertEqual(self.problems(), "helper 1 ended with 1 and was not over the limit")

    def test_finds_warning_without_status_of_limit(self):
        self.add(1, "exited with 0", "START", "LIMIT")
        self.assertEqual(self.problems(), "helper 1 was over the limit and ended with 0")

    def test_finds_missing_end_line_and_missing_report(self):
        self.add(1, "exited with 1", "START", "LIMIT")
        self.assertEqual(self.problems(), "helper 1 wrote no END line after its warning\n"
                                          "1 reports of too much memory are missing")

    def test_accepts_report_lost_by_restarted_bus(self):
        self.day.counts["bus restarts"] = 1
        self.add(1, "exited with 1", "START", "LIMIT", "END")
        self.assertEqual(self.problems(), "")

    def test_finds_helper_without_start(self):
        self.add(1, "exited with 0")
        self.assertEqual(self.problems(), "helper 1 has 0 START lines")

    def test_finds_second_start_of_helper(self):
        self.add(1, "exited with 0", "START", "START")
        self.assertEqual(self.problems(), "helper 1 has 2 START lines")

    def test_accepts_start_lost_on_full_disk(self):
        self.day.log.full.append(Period())
        self.add(1, "exited with 0")
        self.assertEqual(self.problems(), "")

    def test_finds_lines_of_unknown_process(self):
        self.day.log.note_helper_line(9, "START")
        self.assertEqual(self.problems(), "lines of process 9, which is not a helper with a log")

    def test_finds_missing_and_wrong_reports_of_configuration(self):
        for periods in (self.day.broken, self.day.log.more):
            period = Period()
            period.begin -= 60
            periods.append(period)
        self.add(1, "exited with 0", "START")
        self.assertEqual(self.problems(), "helper 1 does not report a broken configuration")
        self.add(1, "exited with 0", "CONFIGURATION")
        self.day.log.more.clear()
        self.assertIn("helper 1 reports a valid configuration as broken", self.problems())


if __name__ == "__main__":
    unittest.main()
