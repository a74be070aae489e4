"""The dated copies beside a log, which the log's rotation leaves."""

import os
import re

from .positions import head_of, open_file


def copies_of(path):
    """The paths of the copies of the log, oldest first by their names.

    A copy is named after the log, with date and time before the extension; when there was one of
    that name, a number follows: "CRN 2026-11-15 21-05-07_002.log".
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
    """Files that are open while they are looked at: one that is pruned meanwhile can still be read.

    A context manager. `files` are pairs of path and descriptor, without those that are gone.
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
    """Whether the other file holds this one's contents and perhaps more: then this one is a copy
    that is being made, or that could not be completed. So is an empty file.
    """
    head = head_of(descriptor)
    shorter = os.fstat(descriptor).st_size <= os.fstat(other).st_size
    return shorter and head_of(other)[:len(head)] == head
