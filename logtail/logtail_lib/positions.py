"""Where a reader is in a file, in a way that survives the file's being copied or emptied."""

import os
import stat

# Enough for several lines with their times: two files that agree in them are the same log.
FINGERPRINT = 1024


def open_file(path):
    """A descriptor for reading. Raises OSError, also for what has no positions, as a pipe."""
    # A pipe without a writer would block here for ever.
    descriptor = os.open(path, os.O_RDONLY | os.O_NONBLOCK | os.O_CLOEXEC)
    if not stat.S_ISREG(os.fstat(descriptor).st_mode):
        os.close(descriptor)
        raise OSError(0, "Not a regular file", path)
    return descriptor


def read_at(descriptor, offset, size):
    """As many bytes as there are; pread() alone may give less."""
    pieces = []
    while size > 0:
        piece = os.pread(descriptor, size, offset)
        if not piece:
            break
        pieces.append(piece)
        offset += len(piece)
        size -= len(piece)
    return b"".join(pieces)


def head_of(descriptor):
    return read_at(descriptor, 0, FINGERPRINT)


class Position:
    """An offset, with the bytes at the beginning of the file and those in front of the offset."""

    def __init__(self, offset=0, head=b"", tail=b""):
        self.offset = offset
        self._head = head
        self._tail = tail

    @classmethod
    def in_file(cls, descriptor, offset):
        """The offset is cut to the size of the file."""
        while True:
            end = min(offset, os.fstat(descriptor).st_size)
            begin = max(0, end - FINGERPRINT)
            tail = read_at(descriptor, begin, end - begin)
            position = cls(begin + len(tail), head_of(descriptor)[:end], tail)
            # Else the file was emptied while it was looked at.
            if position.is_in(descriptor):
                return position

    def advance(self, piece):
        self.offset += len(piece)
        if len(self._head) < FINGERPRINT:
            self._head = (self._head + piece[:FINGERPRINT])[:FINGERPRINT]
        self._tail = (self._tail + piece[-FINGERPRINT:])[-FINGERPRINT:]

    def is_in(self, descriptor):
        """Whether the file holds what was read up to this position. It may hold more."""
        tail = read_at(descriptor, self.offset - len(self._tail), len(self._tail))
        return tail == self._tail and read_at(descriptor, 0, len(self._head)) == self._head

    def began_as(self, descriptor):
        """Whether the file is the one of this position, perhaps a shorter state of it."""
        head = head_of(descriptor)
        return head[:len(self._head)] == self._head[:len(head)]
