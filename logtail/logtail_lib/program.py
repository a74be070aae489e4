"""Executes the command."""

import os
import select
import signal
import stat
import sys

from .following import Follower
from .options import parse_options
from .output import JsonFormat, Output, OutputError, TextFormat
from .selection import Selection
from .sources import LogSource, StreamSource

_STDIN = 0
_STDOUT = 1


def main(arguments):
    """Returns the exit status: 1 when reading a log or writing the output failed."""
    options = parse_options(arguments)
    matches = Selection(options)
    output = _output(options)
    try:
        return (_follow if options.follow else _show)(options, matches, output)
    except OutputError as error:
        return _complain(f"standard output: {error}")


def _complain(text):
    print(f"logtail: {text}", file=sys.stderr, flush=True)
    return 1


def _output(options):
    several = len(options.files) > 1
    if options.json:
        return Output(_STDOUT, JsonFormat(with_file=several), with_headers=False)
    on_terminal = os.isatty(_STDOUT)
    colored = options.color == "always" or (
        options.color == "auto" and on_terminal and not os.environ.get("NO_COLOR")
        and os.environ.get("TERM") != "dumb")
    # Colors are for a terminal, possibly behind a pager.
    text_format = TextFormat(safe=on_terminal or colored, colored=colored)
    return Output(_STDOUT, text_format, with_headers=several and not options.quiet)


def _show(options, matches, output):
    status = 0
    for path in options.files:
        try:
            source = _source(path, options)
            _write(source, source.history(options.lines, matches), output)
            source.open()  # after the history, because copies are shown even for a missing log
        except OSError as error:
            status = _complain(f"{path}: {error.strerror}")
    return status


def _source(path, options):
    if path == "-":
        return StreamSource(path, _STDIN)
    if os.path.exists(path) and not os.path.isfile(path):
        return StreamSource(path, os.open(path, os.O_RDONLY | os.O_CLOEXEC))
    source = LogSource(Follower(path, _complain, options.rotated), False, options.rotated)
    if not options.rotated:
        source.open()
    return source


def _follow(options, matches, output):
    sources = []
    counts = []
    for path in options.files:
        source = LogSource(Follower(path, _complain, options.rotated), True, options.rotated)
        counts.append(options.lines)
        try:
            source.open()
        except FileNotFoundError:
            counts[-1] = None  # its whole content will be new
            _complain(f"{path}: waiting for this file")
        except OSError as error:
            return _complain(f"{path}: {error.strerror}")
        sources.append(source)
    for source, count in zip(sources, counts):
        _write(source, source.history(count, matches), output)
    wait = _Pause(options.interval)
    while True:
        wait()
        for source in sources:
            _write(source, filter(matches, source.news()), output)


def _write(source, records, output):
    for record in records:
        output.write(source.path, record)
    output.flush()


class _Pause:
    """A pause that ends the program when its output pipe has no reader.

    Otherwise, a follower would outlive its reader until the next write to a log.
    """

    def __init__(self, seconds):
        self._milliseconds = seconds * 1000
        self._poll = select.poll()
        mode = os.fstat(_STDOUT).st_mode
        if stat.S_ISFIFO(mode) or stat.S_ISSOCK(mode):
            self._poll.register(_STDOUT, 0)

    def __call__(self):
        if self._poll.poll(self._milliseconds):
            os.kill(os.getpid(), signal.SIGPIPE)  # like a write to the pipe
