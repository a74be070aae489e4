"""Runs the commands of docs/logging.md, docs/security.md and the manual pages that read the log."""

import datetime
import os
import re
import shlex
import subprocess
import unittest

import documents
from environment import BUILD, LOG, SOURCE, DocumentTest, HelperTest, environment

LINE = documents.take("docs/logging.md", "11/15/26")
FOLLOW = documents.take("docs/logging.md", "logtail/logtail -f")
OF_A_PROCESS = documents.take("docs/logging.md", "logtail/logtail -a")
RECENT = documents.take("docs/logging.md", "logtail/logtail --since")
AS_JSON = documents.take("docs/logging.md", "logtail/logtail -n all")
MANUAL = documents.take("docs/logging.md", "man -l")
LNAV = documents.take("docs/logging.md", "lnav -i")
SETS = documents.take("docs/logging.md", "ipcs -s")
ONE_SET = documents.take("docs/security.md", "ipcs -s -i")

PAGE = "logtail/logtail.1"
PAGE_FOLLOW = documents.take(PAGE, "logtail -f")
PAGE_OF_A_PROCESS = documents.take(PAGE, "logtail -a --process")
PAGE_OF_A_THREAD = documents.take(PAGE, "logtail -n all")
PAGE_COLORS = documents.take(PAGE, "logtail -a --color")
FORMAT_PAGE = "docs/man/velmora-helper-log.5"
STARTED = documents.take(FORMAT_PAGE, "awk")
# The messages of the first and of the last line of a process.
BANNERS = re.findall(r"^\.Dl (\*.*)$", documents.read(FORMAT_PAGE), re.MULTILINE)
IN_ORDER = documents.take("docs/man/HexHelper.1", "./HexHelper &&")


def line(message, level="INFO", process=4242, minutes_ago=0, thread=77120):
    """Returns a line in the form of the document's line."""
    moment = datetime.datetime.now(datetime.timezone.utc) - datetime.timedelta(minutes=minutes_ago)
    columns = LINE.rstrip("\n").split(" | ")
    columns[0] = moment.strftime("%m/%d/%y %H:%M:%S:000")
    columns[1:3] = [f"[{level}]", str(process)]
    columns[8:] = [str(thread), message]
    return " | ".join(columns) + "\n"


class ReadingTest(DocumentTest):
    """Provides a log at its usual path, with a rotated copy."""

    def setUp(self):
        super().setUp()
        self.folder = os.path.dirname(self.path(LOG))
        os.makedirs(self.folder)
        os.mkdir(self.path("programs"))
        os.symlink(os.path.join(SOURCE, "logtail", "logtail"), self.path("programs", "logtail"))
        self.environ = environment(self.home,
                                   PATH=self.path("programs") + ":" + os.environ["PATH"])
        self.write("CRN 2026-11-15 21-05-07.log", line("rotated", minutes_ago=1530),
                   line("of another", process=7, minutes_ago=1520))
        self.write("CRN.log", line("an early Memory Limit", minutes_ago=1500),
                   line("a late Memory Limit", minutes_ago=1, thread=1), line("late", process=7))

    def write(self, name, *lines, mode="a"):
        with open(os.path.join(self.folder, name), mode, encoding="utf-8") as log:
            log.write("".join(lines))

    def run_here(self, command, folder=SOURCE):
        return self.run_command(command, folder, self.environ)

    def messages(self, command):
        return [text.split(" | ")[-1] for text in self.run_here(command).splitlines()]

    def test_line_has_columns_of_table(self):
        with open(self.path("one"), "w", encoding="utf-8") as file:
            file.write(LINE)
        name = shlex.quote(self.path("one"))
        shown = self.run_here(f"logtail/logtail --json {name} | jq -c 'to_entries[].value'")
        self.assertEqual(shown.split("\n"), [
            '"2026-11-15T21:05:07.042"', '"INFO"', "4242", '"HXPL"', '"HexHelper"',
            '"ApplicationContext"', '""', '"HexHelper"', "77120", '"text"', ""])

    def test_shows_all_records_of_one_process(self):
        for command in (OF_A_PROCESS, PAGE_OF_A_PROCESS):
            self.assertEqual(self.messages(command),
                             ["rotated", "an early Memory Limit", "a late Memory Limit"])

    def test_shows_last_day(self):
        self.assertEqual(self.messages(RECENT), ["a late Memory Limit"])

    def test_prints_objects_for_other_programs(self):
        self.assertEqual(self.messages(AS_JSON),
                         ["an early Memory Limit", "a late Memory Limit", "late"])
        self.assertEqual(self.messages(PAGE_OF_A_THREAD), ["an early Memory Limit", "late"])

    def test_shows_warnings_and_errors_as_they_happen(self):
        for command in (FOLLOW, PAGE_FOLLOW):
            self.write("CRN.log", line("before", level="WARN"), mode="w")
            with subprocess.Popen(["bash", "-c", "exec " + command], cwd=SOURCE, env=self.environ,
                                  stdout=subprocess.PIPE) as follower:
                self.addCleanup(follower.kill)
                self.assertEqual(self.next_message(follower), "before")
                self.write("CRN.log", line("well"), line("then", level="ERROR"))
                self.assertEqual(self.next_message(follower), "then")
                follower.kill()

    def next_message(self, follower):
        return follower.stdout.readline().decode().rstrip("\n").split(" | ")[-1]

    def test_prints_colors_for_pager(self):
        self.write("CRN.log", line("wrong", level="ERROR"))
        self.assertIn("\x1b[31m", self.run_here(PAGE_COLORS))

    def test_lists_processes_that_started(self):
        start, _ = BANNERS
        self.write("CRN.log", line(start, process=11), line("else"), line(start, process=12))
        self.assertEqual(self.run_here(STARTED, self.folder), "11\n12\n")

    def test_shows_manual_page(self):
        shown = re.sub(".\b", "", self.run_here(MANUAL + " | cat"))
        self.assertIn("logtail", shown)
        self.assertIn("--process", shown)

    def test_installs_format_for_lnav(self):
        self.run_here(LNAV)
        shown = self.run_here("lnav -n -c ';SELECT DISTINCT process, domain, sub_domain, component,"
                              " detail1, detail2, thread, log_body FROM velmora_helper_log LIMIT 1'"
                              f" -c ':write-json-to -' {LOG}", self.home)
        self.assertIn('"log_body": "an early Memory Limit"', shown)


class LockTest(DocumentTest):
    def test_lists_sets_with_processes_that_used_them(self):
        made = subprocess.check_output(["ipcmk", "-S", "2"]).decode()
        number = made.split()[-1]
        try:
            listed = [row.split()[1] for row in self.run_command(SETS, SOURCE).splitlines()
                      if row.startswith("0x")]
            self.assertIn(number, listed)
            shown = self.run_command(ONE_SET.replace("NUMBER", number), SOURCE)
            self.assertIn("pid", shown.split())
        finally:
            subprocess.check_call(["ipcrm", "-s", number])


class InstallationTest(HelperTest):
    def test_helper_without_type_writes_banners(self):
        shown, _ = self.run_with_helpers(IN_ORDER, os.path.join(BUILD, "bin"))
        self.assertEqual([text.split(" | ")[-1] for text in shown.splitlines()], BANNERS)


if __name__ == "__main__":
    unittest.main()
