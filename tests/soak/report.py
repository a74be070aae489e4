"""Prints the summary of a run, and keeps the evidence of a failure."""

import shutil

MAX_PROBLEMS = 30
MAX_PROBLEM_LENGTH = 400


def say(text):
    print(f"soak: {text}", flush=True)


def listed(counts):
    return ", ".join(f"{count} {name}" for name, count in sorted(counts.items()))


def summarize(day, ends, seconds, end_seconds):
    documents, log = day.documents, day.log
    say(f"messages: {documents.up} up, {documents.down} down, "
        f"{(documents.up + documents.down) / seconds:.0f} a second; {documents.lost} to documents "
        f"that were ended; {len(documents.by_id)} documents")
    median, late = day.figures.latencies_in_milliseconds()
    say(f"message and answer: median {median:.1f} ms, 99th percentile {late:.1f} ms")
    say(f"log: {log.lines} lines, {log.lines / seconds:.0f} a second, "
        f"{day.log_files.bytes >> 20} MiB, {day.log_files.rotations} rotations")
    say(f"lines that a full disk cost: {log.cost_of_full_disks}; lines cut: {log.torn}")
    say(f"helpers: {listed(ends.counts)}")
    say(f"actions: {listed(day.counts)}; {day.refreshes.sent} refreshes")
    say(f"lock objects that killed processes left: {day.lock_objects_left}; "
        f"the end took {end_seconds:.1f} s")
    for name, figure, slope in day.figures.slopes():
        say(f"{figure} of {name}: {slope}")


def keep(day, folder):
    """Copies the files that can explain a failure."""
    shutil.rmtree(folder, ignore_errors=True)
    for source in (day.home.logs, day.traces):
        if source.exists():  # the run may have failed early
            shutil.copytree(source, folder / source.name)
    for path in day.scratch.glob("errors*"):
        shutil.copy(path, folder)
    say(f"the log (Logs) and the ends of the helpers (traces) are in {folder}")


def conclude(problems, last_events, command):
    """Returns the exit status."""
    if not problems:
        say("everything is accounted for")
        return 0
    say("the last events:")
    for event in last_events:
        print(f"  {event}")
    for problem in problems[:MAX_PROBLEMS]:
        say(f"PROBLEM: {problem[:MAX_PROBLEM_LENGTH]}")
    say(f"FAILED with {len(problems)} problems; to repeat it: {command}")
    return 1
