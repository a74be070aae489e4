#!/usr/bin/env python3
"""Plays a suite's working day in ten minutes: two browsers with many pages, one log, and many kinds
of failures.

    tests/soak/run [--minutes=N] [--seed=S] [--plot=FILE.svg] [--other-helper=PATH] [--schedule]

The seed determines the schedule (schedule.py), which --schedule prints. --other-helper gives the
second browser another version of the helper, so that two versions share the log. At the end,
messages, log lines, exit statuses and leftovers are compared with the models (documents.py,
log_model.py, log_files.py, helper_ends.py). The growth of memory, descriptors and threads is
checked for processes that live at least four minutes. Their first two minutes do not count.

Exit status: 0 without problems; 1 with problems; 2 on wrong usage; 77 if the system does not allow
namespaces.
"""

import argparse
import pathlib
import random
import signal
import sys
import tempfile
import traceback

import ending
import machine
import processes
from day import Day
from disk import Home
from helper_ends import HelperEnds
from play import Play
from plot import draw
from report import conclude, keep, say, summarize
from schedule import make_schedule

SKIPPED = 77


def end(day):
    """Ends the day. Returns the number of seconds that the browsers took to end."""
    ending.settle(day)
    seconds = ending.end_browsers(day)
    ending.end_rest(day)
    ending.check_leftovers(day)
    day.log.check_writers()
    return seconds


def run(arguments, scratch):
    """Plays the day. Returns the problems and the last events."""
    seconds = arguments.minutes * 60
    helper = arguments.build / "bin/HexHelper"
    helpers = {"A": helper, "B": arguments.other_helper or helper}
    with Home(scratch / "home", arguments.top / "docs") as home:
        day = Day(arguments.build, helpers, home, scratch, random.Random(arguments.seed))
        play = Play(day, make_schedule(arguments.seed, seconds), seconds)
        try:
            day.start()
            play.play()
            play.finish()
            end_seconds = end(day)
        except Exception:
            # The problems that the models find in an incomplete run would hide the cause.
            keep(day, arguments.build / "soak")
            return day.problems + [traceback.format_exc()], play.last
        finally:
            processes.kill_descendants()  # only a failed run has any
        ends = HelperEnds(day)
        ends.check()
        summarize(day, ends, seconds, end_seconds)
        if arguments.plot:
            draw(arguments.plot, day.figures, f"Seed {arguments.seed}")
        problems = (day.problems + day.documents.problems + day.log.problems +
                    day.log_files.problems + ends.problems + day.figures.problems())
        if problems:
            keep(day, arguments.build / "soak")
    return problems, play.last


def parse_arguments():
    parser = argparse.ArgumentParser(
        prog="tests/soak/run", formatter_class=argparse.RawDescriptionHelpFormatter,
        usage=__doc__.split("\n\n")[1].strip(), description=__doc__.split("\n\n")[2])
    for folder in ("caller", "top", "build"):
        parser.add_argument(folder, type=pathlib.Path, help=argparse.SUPPRESS)
    parser.add_argument("--minutes", type=float, default=10, help="default: 10")
    parser.add_argument("--seed", type=int, default=random.randrange(10**6), help="default: random")
    parser.add_argument("--plot", type=pathlib.Path, help="draw a picture of the run")
    parser.add_argument("--other-helper", type=pathlib.Path, help="default: the same version")
    parser.add_argument("--schedule", action="store_true", help="print the schedule only")
    arguments = parser.parse_args()
    if not 0.5 <= arguments.minutes <= 24 * 60:
        parser.error("--minutes must be from 0.5 to 1440")
    # This program has its own root folder, and with it another working folder.
    if arguments.plot:
        arguments.plot = arguments.caller / arguments.plot
    if arguments.other_helper:
        arguments.other_helper = arguments.caller / arguments.other_helper
        if not arguments.other_helper.is_file():
            parser.error(f"there is no helper {arguments.other_helper}")
    return arguments


def print_schedule(arguments):
    signal.signal(signal.SIGPIPE, signal.SIG_DFL)  # the reader may stop early
    for event in make_schedule(arguments.seed, arguments.minutes * 60):
        print(event)


def main():
    arguments = parse_arguments()
    if arguments.schedule:
        print_schedule(arguments)
        return 0
    try:
        machine.enter_own_objects()
    except OSError as error:
        say(f"skipped, because this system does not allow namespaces: {error}")
        return SKIPPED
    machine.adopt_orphans()
    say(f"seed {arguments.seed}, {arguments.minutes:g} minutes")
    with tempfile.TemporaryDirectory(prefix="soak-") as scratch:
        problems, last_events = run(arguments, pathlib.Path(scratch))
    other = f" --other-helper={arguments.other_helper}" if arguments.other_helper else ""
    return conclude(problems, last_events, f"tests/soak/run --minutes={arguments.minutes:g} "
                                           f"--seed={arguments.seed}{other}")


if __name__ == "__main__":
    sys.exit(main())
