"""Positions in a file that remain valid when the file is copied or emptied."""

import os
import stat

# Covers several lines with their times, so that two files with the same bytes are the same log.
FINGERPRINT = 1024


def open_file(path):
    """Opens a file for reading. Raises OSError, also for files without positions, such as pipes."""
    # Without O_NONBLOCK, opening a pipe without a writer would block.
    descriptor = os.open(path, os.O_RDONLY | os.O_NONBLOCK | os.O_CLOEXEC)
    if not stat.S_ISREG(os.fstat(descriptor).st_mode):
        os.close(descriptor)
        raise OSError(0, "Not a regular file", path)
    return descriptor


def read_at(descriptor, offset, size):
    """Returns up to `size` bytes; fewer only at the end of the file. pread() may return fewer."""
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
    """An offset, with the bytes at the beginning of the file and the bytes before the offset."""

    def __init__(self, offset=0, head=b"", tail=b""):
        self.offset = offset
        self._head = head
        self._tail = tail

    @classmethod
    def in_file(cls, descriptor, offset):
        """Returns the position at `offset`, or at the end of a shorter file."""
        while True:
            end = min(offset, os.fstat(descriptor).st_size)
            begin = max(0, end - FINGERPRINT)
            tail = read_at(descriptor, begin, end - begin)
            position = cls(begin + len(tail), head_of(descriptor)[:end], tail)
            # Otherwise the file was emptied in the meantime.
            if position.is_in(descriptor):
                return position

    def advance(self, piece):
        self.offset += len(piece)
        if len(self._head) < FINGERPRINT:
            self._head = (self._head + piece[:FINGERPRINT])[:FINGERPRINT]
        self._tail = (self._tail + piece[-FINGERPRINT:])[-FINGERPRINT:]

    def is_in(self, descriptor):
        """Returns whether the file contains the content up to this position, and possibly more."""
        tail = read_at(descriptor, self.offset - len(self._tail), len(self._tail))
        return tail == self._tail and read_at(descriptor, 0, len(self._head)) == self._head

    def began_as(self, descriptor):
        """Returns whether the file could be that of this position, or an earlier state of it."""
        head = head_of(descriptor)
        return head[:len(self._head)] == self._head[:len(head)]
