"""How records are shown."""

import json
import os
import re

_RESET = "\x1b[0m"
_COLOURS = {
    "TRACE": "\x1b[2m",
    "DEBUG": "\x1b[36m",
    "WARN": "\x1b[33m",
    "ERROR": "\x1b[31m",
    "FATAL": "\x1b[1;31m",
}

# What a terminal would obey, or what would show a text in another order: control characters but the
# tabulator, marks of writing direction, bytes that are not UTF-8.
_UNSAFE = re.compile("[\x00-\x08\x0a-\x1f\x7f-\x9f\u200e\u200f\u2028-\u202e\u2066-\u2069"
                     "\ud800-\udfff]")

_BUFFER_SIZE = 1 << 16


def harmless(line):
    """The line with the characters escaped that could change what else a terminal shows."""
    return _UNSAFE.sub(_escaped, line)


def _escaped(match):
    code = ord(match[0])
    if 0xDC80 <= code <= 0xDCFF:
        code -= 0xDC00  # the byte that Python's escape stands for
    return f"\\x{code:02x}" if code < 0x100 else f"\\u{code:04x}"


class TextFormat:
    """The lines as they are in the log, or for a terminal."""

    def __init__(self, safe, coloured):
        self._safe = safe
        self._colours = _COLOURS if coloured else {}

    def __call__(self, record, _path):
        lines = map(harmless, record.lines) if self._safe else record.lines
        colour = self._colours.get(record.level)
        if colour:
            lines = (colour + line + _RESET for line in lines)
        return "\n".join(lines)

    def header(self, path):
        path = os.fsdecode(path)
        return f"==> {harmless(path) if self._safe else path} <=="


class JsonFormat:
    """One object for each record."""

    def __init__(self, with_file):
        self._with_file = with_file

    def __call__(self, record, path):
        columns = {"file": _text(path)} if self._with_file else {}
        columns.update(
            time=record.time,
            level=record.level,
            process=_number(record.process),
            domain=_text(record.domain),
            sub_domain=_text(record.sub_domain),
            component=_text(record.component),
            detail1=_text(record.detail1),
            detail2=_text(record.detail2),
            thread=_number(record.thread),
            message=_text(record.message),
        )
        return json.dumps(columns)


def _text(text):
    """With escapes in the place of bytes that are not UTF-8, as JSON has nothing for these."""
    if text is None:
        return None
    return text.encode("utf-8", "surrogateescape").decode("utf-8", "backslashreplace")


def _number(text):
    """A number where the text is one; null for an empty column."""
    if text and text.isascii() and text.isdigit():
        return int(text)
    return _text(text) or None


class OutputError(Exception):
    """The records cannot be written. The text says why."""


class Output:
    """Writes records to a descriptor. What is written may wait for flush().

    Not Python's stdout: that tries once more at the exit what could not be written before.
    """

    def __init__(self, descriptor, record_format, with_headers):
        self._descriptor = descriptor
        self._format = record_format
        self._with_headers = with_headers
        self._headed = None
        self._waiting = []
        self._size = 0

    def write(self, path, record):
        """Raises OutputError; so does flush()."""
        if self._with_headers and path != self._headed:
            self._put(("\n" if self._headed else "") + self._format.header(path))
            self._headed = path
        self._put(self._format(record, path))
        if self._size >= _BUFFER_SIZE:
            self.flush()

    def flush(self):
        data = memoryview(b"".join(self._waiting))
        self._waiting, self._size = [], 0
        try:
            while data:
                data = data[os.write(self._descriptor, data):]
        except OSError as error:
            raise OutputError(error.strerror) from None

    def _put(self, text):
        self._waiting.append((text + "\n").encode("utf-8", "surrogateescape"))
        self._size += len(self._waiting[-1])
