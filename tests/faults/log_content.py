"""Compares every line of a log and its rotated copies with the lines that were written."""

import collections
import pathlib
import re

from log_texts import HEADER, numbered_text

MAX_TEXT = 40
TIME = r"\d\d/\d\d/\d\d \d\d:\d\d:\d\d:\d{3}"
NUMBERED = re.compile(TIME + r" \| \[INFO\] \| \d+ \| D(\d+) \| S\1 \| C\1 \| a\1 \| b\1 \| \d* \| "
                      r"M\1 (\d+) ([a-z]*)\.")
HELPER = re.compile(TIME + r" \| \[[A-Z]+\] \| \d+ \| HXPL \| [^|]* \| [^|]* \| [^|]* \| [^|]* \| "
                    r"\d* \| (.*)")
BANNER = re.compile(r"\*+ (START|END) Velmora CEF Helper")
# The version is missing without an installed suite.
HEADER_NAMES = [None, "Bit", "OS Locale", "OS Name", "OS Version", None]


class LogContent:
    """The content of all files of a log. `problems` lists unexpected lines and other deviations."""

    def __init__(self, live, initial=(), with_fault=False):
        live = pathlib.Path(live)
        self._with_fault = with_fault
        self.problems = []
        self.torn = 0
        self.numbers = collections.defaultdict(list)  # the numbers of each writer's lines
        self.banners = collections.Counter()
        self.initial = collections.Counter()
        self._known = set(initial)
        for path in sorted(live.parent.glob(live.stem + " *.log")) + [live]:
            self._read(path)

    def _read(self, path):
        try:
            lines = path.read_bytes().decode(errors="replace").split("\n")
        except OSError:
            return
        if lines[-1]:
            self.torn += 1
            self.problems.append(f"{path.name} ends within the line {lines[-1]!r}")
        header = []
        last = {}
        for line in lines[:-1]:
            self._take(line, header, last)
        if not self._is_good(header):
            self.problems.append(f"{path.name} has the header {header}")

    def _is_good(self, header):
        """A header is written again after a failure, and after a failed rotation."""
        last = header[-len(HEADER_NAMES):] if self._with_fault else header
        return last in ([], HEADER_NAMES)

    def _take(self, line, header, last):
        is_header = HEADER.fullmatch(line[line.rfind(" | ") + 3:])
        if is_header:
            header.append(is_header[1])
            return
        numbered = NUMBERED.fullmatch(line)
        helper = HELPER.fullmatch(line)
        if numbered and numbered[3] == numbered_text(
                int(numbered[1]), int(numbered[2]), MAX_TEXT):
            self._take_number(int(numbered[1]), int(numbered[2]), last)
        elif line in self._known:
            self.initial[line] += 1
        elif helper:
            banner = BANNER.match(helper[1])
            self.banners[banner[1] if banner else "other"] += 1
        else:
            self.torn += 1
            self.problems.append(f"no program writes the line {line!r}")

    def _take_number(self, writer, number, last):
        if number in self.numbers[writer]:
            self.problems.append(f"line {number} of writer {writer} occurs twice")
        if number < last.get(writer, 0):
            self.problems.append(f"line {number} of writer {writer} comes after a later one")
        last[writer] = number
        self.numbers[writer].append(number)

    def require(self, writer, numbers):
        """Reports missing lines as a problem."""
        missing = [number for number in numbers if number not in self.numbers[writer]]
        if missing:
            self.problems.append(f"lines {missing} of writer {writer} are missing")
