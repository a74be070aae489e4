"""Writes 6000 records to a log, and rotates the log sixty times, as fast as possible."""

import os
import shutil
import sys

from support import line

RECORDS = 6000
ROTATIONS = 60

log = sys.argv[1]
base = log[:-len(".log")]
records = (f"{line(number)} {'x' * 200}\n".encode() for number in range(RECORDS))

for rotation in range(ROTATIONS):
    is_last = rotation == ROTATIONS - 1
    with open(log, "ab", buffering=0) as file:
        # The number of records varies, so that the log becomes shorter or longer than before.
        for _ in range(RECORDS if is_last else 20 + rotation * 37 % 160):
            file.write(next(records, b""))
    shutil.copyfile(log, base + ".part")
    os.rename(base + ".part", f"{base} 2026-11-15 21-{rotation:02}-00.log")
    os.truncate(log, 0)
