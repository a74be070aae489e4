"""Reads every file of the log, and checks which rotated copies are removed.

A rotated copy is complete when it gets its name, but a later rotation may remove it, so each copy
is read as soon as it appears. All other files are read at the end.
"""

import gzip
import pathlib
import re
import time

COPY = re.compile(r"CRN (\d{4}-\d\d-\d\d) \d\d-\d\d-\d\d(_\d{3})?\.log")
MAX_COPIES = 2
DAYS = 2


class LogFiles:
    """Calls `take_file` once with the name and the content of each file."""

    def __init__(self, folder, logrotate_folder, take_file):
        self.folder = pathlib.Path(folder)
        self.logrotate_folder = pathlib.Path(logrotate_folder)
        self.problems = []
        self.rotations = 0
        self.bytes = 0
        self._take_file = take_file
        self._copies = set()
        self._latest = set()        # the copies that appeared most recently
        self._marker_since = None   # when the marker appeared; None if it is absent
        self._rotations_without = 0   # since the marker was present

    def marker(self):
        return self.folder / "pvx.trace"

    def live(self):
        return self.folder / "CRN.log"

    def poll(self):
        self._note_marker()
        copies = {path.name for path in self.folder.glob("CRN *.log")}
        if copies == self._copies:
            return
        appeared, removed = copies - self._copies, self._copies - copies
        for name in sorted(appeared):
            self._read(self.folder / name, (self.folder / name).read_bytes())
        self.rotations += len(appeared)
        self._rotations_without += len(appeared)
        self._latest = appeared or self._latest
        self._check_removals(removed, copies)
        self._copies = copies

    def _note_marker(self):
        if not self.marker().exists():
            self._marker_since = None
        elif self._marker_since is None:
            self._marker_since = time.monotonic()
            self._rotations_without = 0

    def _check_removals(self, removed, copies):
        days = {time.strftime("%Y-%m-%d", time.localtime(time.time() - 24 * 3600 * day))
                for day in range(DAYS)}
        for name in removed:
            newer = [other for other in copies if other > name or other in self._latest]
            if COPY.fullmatch(name)[1] in days and len(newer) < MAX_COPIES:
                self.problems.append(f"{name} was removed, and the copies left are "
                                     f"{sorted(copies)}")
        # A rotation that began just before the marker appeared may still remove copies.
        if removed and self._marker_since and time.monotonic() - self._marker_since > 1:
            self.problems.append(f"{sorted(removed)} were removed despite the marker")
        # A rotation never removes its own copy. By name, this copy can be the oldest if a clock is
        # ahead.
        if (not self._marker_since and self._rotations_without > 2 and
                len(copies) > MAX_COPIES + 1):
            self.problems.append(f"the copies {sorted(copies)} were kept")

    def _read(self, path, content):
        self.bytes += len(content)
        self._take_file(path.name, content)

    def close(self):
        """Reads the remaining files. No process may write any more."""
        self.poll()
        for path in sorted(self.logrotate_folder.glob("CRN.log.*")):
            content = path.read_bytes()
            self._read(path, gzip.decompress(content) if path.suffix == ".gz" else content)
        if self.live().exists():
            self._read(self.live(), self.live().read_bytes())
        for path in self.folder.glob(".*"):
            self.problems.append(f"{path.name} is left in the log's folder")
