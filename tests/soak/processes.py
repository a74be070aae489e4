"""Reads /proc, and sends signals. An ended process has no children and no figures."""

import os
import pathlib
import re
import signal
import time


def _read(pid, name):
    try:
        return pathlib.Path("/proc", str(pid), name).read_bytes()
    except (FileNotFoundError, ProcessLookupError, PermissionError):
        return b""


def _state_and_parent(pid):
    # The name is in parentheses and can contain any character.
    fields = _read(pid, "stat").rpartition(b")")[2].split()
    return (fields[0].decode(), int(fields[1])) if fields else ("", 0)


def is_stopped(pid):
    """Returns whether the process is stopped or has ended."""
    return _state_and_parent(pid)[0] not in ("R", "S", "D")


def _all():
    return [int(name) for name in os.listdir("/proc") if name.isdigit()]


def children(parent):
    return [pid for pid in _all() if _state_and_parent(pid)[1] == parent]


def descendants(parent):
    found = []
    for child in children(parent):
        found += [child] + descendants(child)
    return found


def reap_orphans(own):
    """Waits for ended children of this process, except for those in `own`."""
    for pid in set(children(os.getpid())) - own:
        try:
            os.waitpid(pid, os.WNOHANG)
        except ChildProcessError:
            pass


def helper_type(pid):
    """Returns the value of --type. Chromium joins the arguments of a child process with spaces."""
    match = re.search(rb"--type=([a-z-]+)", _read(pid, "cmdline"))
    return match[1].decode() if match else ""


def name(pid):
    return _read(pid, "comm").decode().strip()


def helpers(suite, kind):
    return sorted(pid for pid in children(suite) if helper_type(pid) == kind)


def private_dirty(pid):
    """Returns kilobytes, or None if the process has ended."""
    match = re.search(rb"^Private_Dirty: *(\d+)", _read(pid, "smaps_rollup"), re.MULTILINE)
    return int(match[1]) if match else None


def descriptors(pid):
    try:
        return len(os.listdir(f"/proc/{pid}/fd"))
    except OSError:
        return None


def threads(pid):
    match = re.search(rb"^Threads:\s*(\d+)", _read(pid, "status"), re.MULTILINE)
    return int(match[1]) if match else None


def send_signal(pid, number):
    """Sends a signal. Returns whether the process existed."""
    try:
        os.kill(pid, number)
        return True
    except ProcessLookupError:
        return False


def kill_with_helpers(suite):
    """Kills a browser and its helpers. Returns the helpers."""
    send_signal(suite, signal.SIGSTOP)  # so that it starts no other helper
    killed = children(suite)
    for pid in [suite] + killed:
        send_signal(pid, signal.SIGKILL)
    return killed


def kill_descendants():
    """Kills all processes below this one, which must have called machine.adopt_orphans()."""
    while left := descendants(os.getpid()):
        for pid in left:
            send_signal(pid, signal.SIGKILL)
        reap_orphans(set())
        time.sleep(0.01)


def wait_until(condition, seconds, pause=0.01):
    """Waits until the condition is true. Returns False after a timeout."""
    end = time.monotonic() + seconds
    while not condition():
        if time.monotonic() > end:
            return False
        time.sleep(pause)
    return True
