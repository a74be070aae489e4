"""Formats and writes records."""

import json
import os
import re

_RESET = "\x1b[0m"
_COLORS = {
    "TRACE": "\x1b[2m",
    "DEBUG": "\x1b[36m",
    "WARN": "\x1b[33m",
    "ERROR": "\x1b[31m",
    "FATAL": "\x1b[1;31m",
}

# Characters that control a terminal or change the order of text: control characters except the tab,
# direction marks, and bytes that are not UTF-8.
_UNSAFE = re.compile("[\x00-\x08\x0a-\x1f\x7f-\x9f\u200e\u200f\u2028-\u202e\u2066-\u2069"
                     "\ud800-\udfff]")

_BUFFER_SIZE = 1 << 16


def harmless(line):
    """Returns the line with escapes for characters that could affect other output of a terminal."""
    return _UNSAFE.sub(_escaped, line)


def _escaped(match):
    code = ord(match[0])
    if 0xDC80 <= code <= 0xDCFF:
        code -= 0xDC00  # the byte that the surrogate represents
    return f"\\x{code:02x}" if code < 0x100 else f"\\u{code:04x}"


class TextFormat:
    """Formats records as in the log, or for a terminal."""

    def __init__(self, safe, colored):
        self._safe = safe
        self._colors = _COLORS if colored else {}

    def __call__(self, record, _path):
        lines = map(harmless, record.lines) if self._safe else record.lines
        color = self._colors.get(record.level)
        if color:
            lines = (color + line + _RESET for line in lines)
        return "\n".join(lines)

    def header(self, path):
        path = os.fsdecode(path)
        return f"==> {harmless(path) if self._safe else path} <=="


class JsonFormat:
    """Formats each record as one object."""

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
    """Returns the text with escapes for bytes that are not UTF-8, which JSON cannot represent."""
    if text is None:
        return None
    return text.encode("utf-8", "surrogateescape").decode("utf-8", "backslashreplace")


def _number(text):
    """Returns an int if the text is a number, and None for an empty column."""
    if text and text.isascii() and text.isdigit():
        return int(text)
    return _text(text) or None


class OutputError(Exception):
    """The records cannot be written. The text is the reason."""


class Output:
    """Writes records to a descriptor. Records may be buffered until flush().

    Python's stdout is not suitable because it repeats failed writes at exit.
    """

    def __init__(self, descriptor, record_format, with_headers):
        self._descriptor = descriptor
        self._format = record_format
        self._with_headers = with_headers
        self._headed = None
        self._waiting = []
        self._size = 0

    def write(self, path, record):
        """Writes a record. Raises OutputError, like flush()."""
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
