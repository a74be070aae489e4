"""The sources of records: a log that can be followed, or a stream that is read once."""

import os
from collections import deque

from .following import CHUNK, FILE_END
from .records import Assembler

# The first part to read, in bytes, if only the last records are required.
_FIRST_WINDOW = 1 << 16
_WINDOW_GROWTH = 8


class LogSource:
    """The records of a log, which a Follower reads."""

    def __init__(self, follower, goes_on, with_copies):
        """Without `goes_on`, a last line without a newline counts as a line."""
        self.path = follower.path
        self._follower = follower
        self._goes_on = goes_on
        self._with_copies = with_copies
        self._assembler = Assembler()
        self._file_ended = False

    def open(self):
        """Opens the log. Raises OSError if that fails. The source can still be read: it then has
        only the records of copies until the log exists."""
        self._follower.open()

    def history(self, count, matches):
        """Returns the last `count` matching records up to the end of the log, or all for None."""
        if count is None:
            return filter(matches, self._to_end())
        if self._with_copies:
            return deque(filter(matches, self._to_end()), maxlen=count)
        return self._last(count, matches)

    def news(self):
        """Yields new records. Holds back the last record until a call finds no more content."""
        idle = True
        for piece in self._follower.read():
            idle = False
            yield from self._records(piece)
        if idle:
            yield from self._assembler.flush()

    def _last(self, count, matches):
        size = _FIRST_WINDOW
        while True:
            log_is_longer = self._follower.go_back(size)
            self._assembler = Assembler(mid_file=log_is_longer)
            last = deque(filter(matches, self._to_end()), maxlen=count)
            # After a rotation, a larger window of the same file is no longer available.
            if len(last) == count or not log_is_longer or self._file_ended:
                return last
            size *= _WINDOW_GROWTH

    def _to_end(self):
        for piece in self._follower.read():
            yield from self._records(piece)
        yield from self._assembler.flush() if self._goes_on else self._assembler.end_file()

    def _records(self, piece):
        if piece is not FILE_END:
            return self._assembler.feed(piece)
        self._file_ended = True
        return self._assembler.end_file()


class StreamSource:
    """The records of a stream that can be read only once, such as a pipe."""

    def __init__(self, path, descriptor):
        self.path = path
        self._descriptor = descriptor

    def open(self):
        """Does nothing: the stream is open."""

    def history(self, count, matches):
        """Returns records like LogSource.history()."""
        records = filter(matches, self._to_end())
        return records if count is None else deque(records, maxlen=count)

    def _to_end(self):
        assembler = Assembler()
        for piece in iter(lambda: os.read(self._descriptor, CHUNK), b""):
            yield from assembler.feed(piece)
        yield from assembler.end_file()
