"""Parses the command line."""

import argparse
import math
import os
import re
import sys

from .records import LEVELS
from .times import parse_time

DEFAULT_LOG = "Library/Logs/Cirrane/CRN/CRN.log"
DEFAULT_LINES = 10
_BY_DEFAULT = -1

_EPILOG = """\
TIME is an ISO 8601 date or date-time, a time of today (21:05 or 21:05:07), how long ago (30s, 10m,
2h, 1d), or a time as it stands in the log. Options that choose records must all be met; of one that
is given several times, one value. The manual page has more.

  logtail -f --level WARN           what goes wrong, as it happens
  logtail -a --process 4242         all that there is of one process
  logtail --since 10m --grep 'Memory Limit|START'
  logtail -n all --json | jq -r 'select(.thread == 77120).message'
"""


def parse_options(arguments):
    """Parses the arguments. Exits with status 2 on an error, and with 0 after the help."""
    parser = _parser()
    options = parser.parse_args(arguments)
    options.files = options.files or [os.path.expanduser("~/" + DEFAULT_LOG)]
    if options.follow and "-" in options.files:
        parser.error("standard input cannot be followed; it is read to its end anyway")
    if options.lines == _BY_DEFAULT:
        whole = options.since or options.until or options.rotated
        options.lines = None if whole else DEFAULT_LINES
    return options


def _parser():
    parser = argparse.ArgumentParser(
        prog=os.path.basename(sys.argv[0]), allow_abbrev=False, epilog=_EPILOG,
        formatter_class=argparse.RawDescriptionHelpFormatter,
        description="Shows, follows and searches the log that the programs of the suite share.")
    parser.add_argument("files", nargs="*", metavar="FILE",
                        help=f"a log, or - for standard input (default: ~/{DEFAULT_LOG})")
    _add_reading(parser.add_argument_group("what to read"))
    _add_choosing(parser.add_argument_group("what to choose of it"))
    _add_showing(parser.add_argument_group("how to show it"))
    return parser


def _add_reading(group):
    group.add_argument("-n", "--lines", metavar="N", type=_count, default=_BY_DEFAULT,
                       help="the last N records of each log that are chosen, or 'all' (default: "
                       f"{DEFAULT_LINES}; all with --since, --until or --rotated)")
    group.add_argument("-f", "--follow", action="store_true",
                       help="go on with what is written, across rotations, and wait for a log that "
                       "does not exist yet")
    group.add_argument("-a", "--rotated", action="store_true",
                       help="read the dated copies beside a log first, the oldest in front")
    group.add_argument("--interval", metavar="SECONDS", type=_interval, default=0.2,
                       help="how often a log that is followed is looked at (default: 0.2)")


def _add_choosing(group):
    group.add_argument("-l", "--level", type=_level,
                       help="that level and higher: TRACE, DEBUG, INFO, WARN, ERROR, FATAL, or a "
                       "number from 10 to 60")
    group.add_argument("-p", "--process", metavar="PID", type=_identifier, action="append",
                       help="this process; may be given several times")
    group.add_argument("-t", "--thread", metavar="TID", type=_identifier, action="append",
                       help="this thread; may be given several times")
    group.add_argument("-c", "--component", metavar="NAME", action="append",
                       help="this component, or those that fit a pattern with *, ? and []; may be "
                       "given several times")
    group.add_argument("--since", metavar="TIME", type=_time, help="at this time and later")
    group.add_argument("--until", metavar="TIME", type=_time, help="at this time and earlier")
    group.add_argument("-g", "--grep", metavar="REGEX", type=_pattern, action="append",
                       help="messages in which this Python expression is found; may be given "
                       "several times")


def _add_showing(group):
    group.add_argument("--json", action="store_true", help="a JSON object for each record")
    group.add_argument("--color", metavar="WHEN", choices=("auto", "always", "never"),
                       default="auto", help="auto (on a terminal, unless NO_COLOR is set; the "
                       "default), always or never")
    group.add_argument("-q", "--quiet", action="store_true",
                       help="no headers with the names of several logs")


def _count(text):
    if text == "all":
        return None
    if not re.fullmatch("[0-9]{1,18}", text):
        raise argparse.ArgumentTypeError(f"neither a number nor 'all': {text!r}")
    return int(text)


def _interval(text):
    try:
        seconds = float(text)
    except ValueError:
        seconds = 0
    if not 0 < seconds <= 3600 or math.isnan(seconds):
        raise argparse.ArgumentTypeError(f"not a number of seconds from 0.001 to 3600: {text!r}")
    return max(seconds, 0.001)


def _level(text):
    if text.upper() in LEVELS:
        return LEVELS[text.upper()]
    if not re.fullmatch("[0-9]{1,9}", text):
        raise argparse.ArgumentTypeError(f"no such level: {text!r}")
    return int(text)


def _identifier(text):
    if not re.fullmatch("[0-9]{1,20}", text):
        raise argparse.ArgumentTypeError(f"not a number: {text!r}")
    return str(int(text))


def _time(text):
    try:
        return parse_time(text)
    except (ValueError, OverflowError):
        raise argparse.ArgumentTypeError(f"not a time: {text!r}") from None


def _pattern(text):
    try:
        re.compile(text)
    except (re.error, OverflowError, RecursionError) as error:
        raise argparse.ArgumentTypeError(f"{error} in {text!r}") from None
    return text
