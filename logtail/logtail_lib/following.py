"""Reads a log to its end repeatedly, across the log's rotations."""

import os

from .copies import Opened, continues, copies_of
from .positions import Position, head_of, open_file

CHUNK = 1 << 18

# Separates pieces of different files.
FILE_END = None


class Follower:
    """A reader of one log that identifies its position by content, not only by the offset.

    The suite rotates a log by copying it to a dated file and emptying it in place. Before the next
    read, the emptied file may have grown past the reader's offset, and it may have been rotated
    more than once. After each read, the reader therefore compares the file with the content that it
    read before. If the file differs, the reader finds the copy with this content and reads it to
    its end, followed by all newer copies. If another program renames, removes or replaces the log,
    the reader reads the old file to its end before the new one.
    """

    def __init__(self, path, notice, with_copies=False):
        """Calls `notice` with messages for the user. `with_copies` reads existing copies first."""
        self.path = path
        self._notice = notice
        # Copies whose content precedes the position. They are listed before the log is opened, so
        # that a copy made in between counts as unread, and its content decides.
        self._known = set() if with_copies else set(copies_of(path))
        self._descriptor = None
        self._position = Position()

    def open(self):
        """Opens the log. Raises OSError on failure; the next read tries again."""
        self.close()
        self._descriptor = open_file(self.path)

    def close(self):
        if self._descriptor is not None:
            os.close(self._descriptor)
        self._descriptor = None

    def go_back(self, size):
        """Moves to `size` bytes before the end of the log. Returns whether the log is longer."""
        if self._descriptor is None:
            return False
        begin = max(0, os.fstat(self._descriptor).st_size - size)
        self._position = Position.in_file(self._descriptor, begin)
        return self._position.offset > 0

    def read(self):
        """Yields the unread content in pieces, and FILE_END at the end of each file."""
        while True:
            # Check first, so that the read below includes all content of a replaced log.
            replaced = self._is_replaced()
            emptied = yield from self._read_log()
            if not emptied and not replaced:
                return
            with Opened(self._unread_copies()) as copies:
                yield from self._read_copies(copies.files, emptied)
            yield FILE_END
            self._begin_log()

    def _is_replaced(self):
        if self._descriptor is None:
            self._begin_log()
            return False
        try:
            now = os.stat(self.path)
        except OSError:
            return False  # programs may still write to a removed log until a new one exists
        return not os.path.samestat(now, os.fstat(self._descriptor))

    def _begin_log(self):
        self._position = Position()
        try:
            self.open()
        except OSError:
            pass  # removed and not yet created; a later read tries again

    def _read_log(self):
        """Yields the rest of the open log. Returns whether it was emptied since the last read."""
        while True:
            piece = b""
            if self._descriptor is not None:
                piece = os.pread(self._descriptor, CHUNK, self._position.offset)
            # Check after the read, because the log may have been emptied just before it.
            if not self._is_current(piece):
                return True
            if not piece:
                return False
            self._position.advance(piece)
            yield piece

    def _is_current(self, piece):
        if self._position.offset > 0:
            return self._position.is_in(self._descriptor)
        # Nothing has been read that could be compared. However, a rotation makes a copy before it
        # empties the log. If each unread copy could be an incomplete copy of this log, no rotation
        # has occurred.
        with Opened(self._unread_copies()) as copies:
            heads = [head_of(copy) for _, copy in copies.files]
        return all(piece.startswith(head) for head in heads)

    def _unread_copies(self):
        return [path for path in copies_of(self.path) if path not in self._known]

    def _read_copies(self, files, emptied):
        """Yields the content between the position and the current log."""
        if self._position.offset > 0:
            files = yield from self._read_rest(files, emptied)
        for index, (_, copy) in enumerate(files):
            if self._is_incomplete(copy, files[index + 1:]):
                continue
            yield FILE_END
            yield from _pieces(copy, 0)
            self._know(files[:index + 1])

    def _read_rest(self, files, emptied):
        """Yields the rest of the copy that contains the position. Returns the unread files."""
        for index in reversed(range(len(files))):
            copy = files[index][1]
            if self._position.is_in(copy):
                yield from _pieces(copy, self._position.offset)
                self._know(files[:index + 1])
                return files[index + 1:]
        if emptied:
            self._notice(f"{self.path}: was emptied, and no copy of it was kept")
        older = [file for file in files if self._position.began_as(file[1])]
        self._know(older)
        return [file for file in files if file not in older]

    def _is_incomplete(self, copy, newer_files):
        if newer_files:
            return continues(copy, newer_files[0][1])
        with Opened([self.path]) as log:
            return any(continues(copy, descriptor) for _, descriptor in log.files)

    def _know(self, files):
        self._known.update(path for path, _ in files)


def _pieces(descriptor, offset):
    while True:
        piece = os.pread(descriptor, CHUNK, offset)
        if not piece:
            return
        offset += len(piece)
        yield piece
