"""Parses lines of the log, and assembles them to records."""

import re

SEPARATOR = " | "

# The levels by their names in the log. The log contains NONE and ALL only for numbers without a
# name.
LEVELS = {
    "ALL": 0,
    "TRACE": 10,
    "DEBUG": 20,
    "INFO": 30,
    "WARN": 40,
    "ERROR": 50,
    "FATAL": 60,
    "NONE": 70,
}

_COLUMNS = 10
_LEVEL_COLUMNS = {"[" + name + "]": name for name in LEVELS}
_TIME = re.compile(
    r"(0[1-9]|1[0-2])/(0[1-9]|[12][0-9]|3[01])/([0-9]{2}) "
    r"([01][0-9]|2[0-3]):([0-5][0-9]):([0-5][0-9]|60):([0-9]{3})"
)


def iso_time(text):
    """Converts a time of the log to ISO 8601, which sorts by time. Returns None for other texts."""
    match = _TIME.fullmatch(text)
    if not match:
        return None
    month, day, year, hour, minute, second, millisecond = match.groups()
    return f"20{year}-{month}-{day}T{hour}:{minute}:{second}.{millisecond}"


class Record:
    """One message of the log with its columns, or a line that does not belong to a message.

    The columns of such a line are None. `lines` are as in the file, without newlines; Python's
    surrogate escapes represent bytes that are not UTF-8.
    """

    __slots__ = (
        "lines", "time", "level", "process", "domain", "sub_domain", "component", "detail1",
        "detail2", "thread", "_text",
    )

    def __init__(self, line, columns):
        self.lines = [line]
        (self.time, self.level, self.process, self.domain, self.sub_domain, self.component,
         self.detail1, self.detail2, self.thread, self._text) = columns

    @classmethod
    def parse(cls, line):
        """Returns the record that begins with the line, or None."""
        columns = line.split(SEPARATOR, _COLUMNS - 1)
        if len(columns) != _COLUMNS or columns[1] not in _LEVEL_COLUMNS:
            return None
        columns[0] = iso_time(columns[0])
        if columns[0] is None:
            return None
        columns[1] = _LEVEL_COLUMNS[columns[1]]
        return cls(line, columns)

    @classmethod
    def stray(cls, line, owner=None):
        """Returns a line as its own record, with the columns of the record that it belongs to."""
        names = cls.__slots__[1:-1]
        return cls(line, [getattr(owner, name) if owner else None for name in names] + [line])

    @property
    def message(self):
        """The text of the message, including its other lines."""
        return "\n".join([self._text] + self.lines[1:])


class Assembler:
    """Assembles records from the pieces of a file.

    A record is complete when the next record begins, because more lines may belong to it. flush()
    completes the last record when no more lines are expected.
    """

    def __init__(self, mid_file=False):
        """If the first piece is from the middle of a file, drops everything before the first line
        that begins a record."""
        self._partial = bytearray()
        self._in_torn_line = mid_file
        self._before_record = mid_file
        self._pending = None
        self._last = None

    def feed(self, piece):
        """Yields the records that the piece completes."""
        end = piece.rfind(b"\n")
        if end < 0:
            self._partial += piece
            return
        block = bytes(self._partial) + piece[:end]
        self._partial = bytearray(piece[end + 1:])
        lines = block.decode("utf-8", "surrogateescape").split("\n")
        if self._in_torn_line:
            self._in_torn_line = False
            del lines[0]
        for line in lines:
            finished = self._add(line)
            if finished:
                yield finished

    def flush(self):
        """Returns the pending record in a list, which is empty without one.

        A line of this record that arrives later becomes a separate record.
        """
        pending, self._pending = self._pending, None
        return [pending] if pending else []

    def end_file(self):
        """Returns the last records of a file, whose last line may lack a newline."""
        records = list(self.feed(b"\n")) if self._partial else []
        records += self.flush()
        self._last = None
        self._in_torn_line = self._before_record = False
        return records

    def _add(self, line):
        record = Record.parse(line)
        if record:
            self._before_record = False
        elif self._before_record:
            return None
        elif self._pending and self._pending.time:
            self._pending.lines.append(line)
            return None
        else:
            record = Record.stray(line, self._last)
        finished, self._pending = self._pending, record
        if record.time:
            self._last = record
        return finished
