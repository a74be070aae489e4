"""System facilities that the standard library lacks."""

import ctypes
import os
import pathlib
import signal

LIBC = ctypes.CDLL(None, use_errno=True)
CLONE_NEWIPC = 0x08000000
IPC_RMID = 0
MS_RDONLY = 1
PR_SET_PDEATHSIG = 1
PR_SET_CHILD_SUBREAPER = 36
MS_REMOUNT = 32


def check(result):
    if result == -1:
        raise OSError(ctypes.get_errno(), os.strerror(ctypes.get_errno()))


def die_with_parent():
    """Makes the system kill the new process when this one ends. For preexec_fn."""
    check(LIBC.prctl(PR_SET_PDEATHSIG, signal.SIGKILL))


def adopt_orphans():
    """Makes this process the parent of orphaned descendants."""
    check(LIBC.prctl(PR_SET_CHILD_SUBREAPER, 1))


def enter_own_objects():
    """Gives this process private semaphores and shared memory."""
    check(LIBC.unshare(CLONE_NEWIPC))


def numbers_of(kind):
    lines = pathlib.Path("/proc/sysvipc", kind).read_text().splitlines()[1:]
    return [int(line.split()[1]) for line in lines]


def lock_objects():
    """Returns the semaphore sets and shared memory segments, as (kind, number)."""
    return [(kind, number) for kind in ("sem", "shm") for number in numbers_of(kind)]


def remove_lock_objects():
    for kind, number in lock_objects():
        if kind == "sem":
            LIBC.semctl(number, 0, IPC_RMID)
        else:
            LIBC.shmctl(number, IPC_RMID, None)


class SmallDisk:
    """A file system in memory, mounted on a folder during a with statement."""

    def __init__(self, folder, size):
        self.folder = os.fsencode(folder)
        self.size = size

    def __enter__(self):
        check(LIBC.mount(b"tmpfs", self.folder, b"tmpfs", 0, b"size=%d" % self.size))
        return self

    def __exit__(self, *_):
        check(LIBC.umount(self.folder))

    def make_read_only(self):
        check(LIBC.mount(b"tmpfs", self.folder, b"tmpfs", MS_REMOUNT | MS_RDONLY, None))

    def grow(self, size):
        check(LIBC.mount(b"tmpfs", self.folder, b"tmpfs", MS_REMOUNT, b"size=%d" % size))
