"""Where records come from: a log that can be followed, or a stream that is read once."""

import os
from collections import deque

from .following import CHUNK, FILE_END
from .records import Assembler

# What is read first when only the last records are wanted, in bytes.
_FIRST_WINDOW = 1 << 16
_WINDOW_GROWTH = 8


class LogSource:
    """Records of a log, which a Follower reads."""

    def __init__(self, follower, goes_on, with_copies):
        """Unless the log goes on to be read, a last line without its newline counts as a line."""
        self.path = follower.path
        self._follower = follower
        self._goes_on = goes_on
        self._with_copies = with_copies
        self._assembler = Assembler()
        self._file_ended = False

    def open(self):
        """Raises OSError when the log is not there. It can be read nevertheless: then there is
        nothing until it comes, but for copies."""
        self._follower.open()

    def history(self, count, matches):
        """The last records that match, or all when the count is None, up to the end of the log."""
        if count is None:
            return filter(matches, self._to_end())
        if self._with_copies:
            return deque(filter(matches, self._to_end()), maxlen=count)
        return self._last(count, matches)

    def news(self):
        """What has come since. The last record is held back until a call finds nothing more."""
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
            # After a rotation the window of before is not to be had again.
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
    """Records of what can only be read from its beginning to its end, as a pipe."""

    def __init__(self, path, descriptor):
        self.path = path
        self._descriptor = descriptor

    def open(self):
        """Does nothing: the stream is open."""

    def history(self, count, matches):
        """As a LogSource's."""
        records = filter(matches, self._to_end())
        return records if count is None else deque(records, maxlen=count)

    def _to_end(self):
        assembler = Assembler()
        for piece in iter(lambda: os.read(self._descriptor, CHUNK), b""):
            yield from assembler.feed(piece)
        yield from assembler.end_file()
