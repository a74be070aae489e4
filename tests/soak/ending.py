"""The end of a day: all work completes, all programs end in time, and nothing is left."""

import os
import re
import time

import machine
import processes

SECONDS = 10
# Files of Chromium and its libraries, including temporary files of killed browsers.
OTHERS_FILES = re.compile(r"(cef_user_data|\.pki|dconf)(/.*)?|"
                          r"tmp(/\.org\.chromium\.Chromium\..*)?")
OWN_FILES = re.compile(r"Library(/.*)?|drawer(/.*)?|rule|state")


def settle(day):
    """Waits until all messages are confirmed and all pages over the memory limit are gone."""
    def is_settled():
        day.poll_events()
        return not day.documents.unconfirmed() and not day.documents.overfull()
    processes.wait_until(is_settled, SECONDS)
    day.documents.close()


def others(day):
    """Returns the processes of all browsers, including killed ones."""
    processes.reap_orphans(day.own_children())
    own = day.own_children() - {suite.pid for suite in day.suites.values()}
    return [pid for pid in processes.descendants(os.getpid()) if pid not in own]


def end_browsers(day):
    """Ends the browsers. Returns the number of seconds until all of their processes have ended."""
    begin = time.monotonic()
    for suite in day.suites.values():
        suite.expected_status = 0
        suite.is_last = True
        suite.send(quit=0)
    if not processes.wait_until(lambda: not others(day), SECONDS):
        left = [f"{pid} ({processes.name(pid)})" for pid in others(day)]
        day.problems.append(f"after {SECONDS} s there are still {', '.join(left)}")
    seconds = time.monotonic() - begin
    processes.wait_until(day.has_seen_ends, SECONDS)
    return seconds


def end_rest(day):
    if (status := day.writer.stop()) != 0:
        day.problems.append(f"the writer ended with {status}")
    day.end_environment()
    day.log_files.close()


def check_leftovers(day):
    for path in sorted(day.home.folder.rglob("*")):
        name = str(path.relative_to(day.home.folder))
        if not OWN_FILES.fullmatch(name) and not OTHERS_FILES.fullmatch(name):
            day.problems.append(f"the file {name} is left")
    objects = machine.lock_objects()
    # Killed processes leave the lock objects of the log file that they had open. Each run of
    # logrotate creates one more such file.
    files = 1 + day.home.logrotate_runs
    for kind in ("sem", "shm"):
        count = sum(object_[0] == kind for object_ in objects)
        if count > files:
            day.problems.append(f"{count} objects of the kind {kind} are left, for {files} files")
    day.lock_objects_left = len(objects)
    machine.remove_lock_objects()
