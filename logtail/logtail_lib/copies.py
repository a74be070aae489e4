"""The dated copies of a log, which its rotation creates in the same folder."""

import os
import re

from .positions import head_of, open_file


def copies_of(path):
    """Returns the paths of the copies of the log, oldest first by their names.

    A copy is named after the log, with date and time before the extension. A number follows if the
    name already existed: "CRN 2026-11-15 21-05-07_002.log".
    """
    folder, name = os.path.split(path)
    base, extension = os.path.splitext(name)
    pattern = re.compile(
        re.escape(base) + r" ([0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}-[0-9]{2}-[0-9]{2})"
        r"(?:[_-]([0-9]+))?" + re.escape(extension)
    )
    try:
        names = os.listdir(folder or ".")
    except OSError:
        return []
    matches = filter(None, map(pattern.fullmatch, names))
    ordered = sorted(matches, key=lambda match: (match[1], int(match[2] or 0), match[0]))
    return [os.path.join(folder, match[0]) for match in ordered]


class Opened:
    """A context manager that keeps files open, so that removed files can still be read.

    `files` contains pairs of path and descriptor, without files that could not be opened.
    """

    def __init__(self, paths):
        self.files = []
        for path in paths:
            try:
                self.files.append((path, open_file(path)))
            except OSError:
                pass

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for _, descriptor in self.files:
            os.close(descriptor)


def continues(descriptor, other):
    """Returns whether the other file begins with this file's content.

    This file is then a copy that is incomplete, or still being made. An empty file counts, too.
    """
    head = head_of(descriptor)
    shorter = os.fstat(descriptor).st_size <= os.fstat(other).st_size
    return shorter and head_of(other)[:len(head)] == head
