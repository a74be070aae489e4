"""Reads a log to its end, again and again, across the log's rotations."""

import os

from .copies import Opened, continues, copies_of
from .positions import Position, head_of, open_file

CHUNK = 1 << 18

# In between the pieces: what follows is from the beginning of another file.
FILE_END = None


class Follower:
    """A reader of one log that knows where it is by what it has read, not by the offset alone.

    The suite rotates a log by copying it to a dated file and emptying it in place. The emptied file
    may have grown past the reader's offset before the reader looks, and it may have been rotated
    more than once. So after each read the file is compared with what was read of it before, and
    when it does not agree, the copy that does is sought and read to its end, and then all copies
    that are newer. A log that another program renames, removes or replaces is read to its end
    before the new one is begun.
    """

    def __init__(self, path, notice, with_copies=False):
        """`notice` is called with texts for the user. With copies, those that exist come first."""
        self.path = path
        self._notice = notice
        # Copies whose contents come before the position. Listed before the log is opened: one that
        # is made in between counts as unread, and is judged by its contents.
        self._known = set() if with_copies else set(copies_of(path))
        self._descriptor = None
        self._position = Position()

    def open(self):
        """Raises OSError when the log cannot be opened. The next read tries again."""
        self.close()
        self._descriptor = open_file(self.path)

    def close(self):
        if self._descriptor is not None:
            os.close(self._descriptor)
        self._descriptor = None

    def go_back(self, size):
        """To that many bytes before the end of the log; returns whether the log is longer."""
        if self._descriptor is None:
            return False
        begin = max(0, os.fstat(self._descriptor).st_size - size)
        self._position = Position.in_file(self._descriptor, begin)
        return self._position.offset > 0

    def read(self):
        """Yields what there is to read, in pieces, and FILE_END where a file ends."""
        while True:
            # Asked first: what is written before the log is replaced is seen by the read below.
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
            return False  # removed: it may still be written to, until there is a new one
        return not os.path.samestat(now, os.fstat(self._descriptor))

    def _begin_log(self):
        self._position = Position()
        try:
            self.open()
        except OSError:
            pass  # between removal and creation; a later read tries again

    def _read_log(self):
        """Up to the end of the open log; returns whether it was emptied since it was last read."""
        while True:
            piece = b""
            if self._descriptor is not None:
                piece = os.pread(self._descriptor, CHUNK, self._position.offset)
            # Only now, as the log may have been emptied just before the read.
            if not self._is_current(piece):
                return True
            if not piece:
                return False
            self._position.advance(piece)
            yield piece

    def _is_current(self, piece):
        if self._position.offset > 0:
            return self._position.is_in(self._descriptor)
        # Nothing to compare with yet. But a rotation leaves a copy before it empties the log: when
        # each copy may be one that is just being made of this very log, there was no rotation.
        with Opened(self._unread_copies()) as copies:
            heads = [head_of(copy) for _, copy in copies.files]
        return all(piece.startswith(head) for head in heads)

    def _unread_copies(self):
        return [path for path in copies_of(self.path) if path not in self._known]

    def _read_copies(self, files, emptied):
        """What was written between the position and the log as it is now."""
        if self._position.offset > 0:
            files = yield from self._read_rest(files, emptied)
        for index, (_, copy) in enumerate(files):
            if self._is_incomplete(copy, files[index + 1:]):
                continue
            yield FILE_END
            yield from _pieces(copy, 0)
            self._know(files[:index + 1])

    def _read_rest(self, files, emptied):
        """What follows the position in the copy that holds it; returns the files still unread."""
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
