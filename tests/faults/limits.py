"""Cases in which the disk, the descriptors or the memory are exhausted."""

import resource
import signal
import tempfile

import log_content
import machine
import programs
import workloads

KIBIBYTE = 1024
DISK_PAGES = range(1, 9)
DESCRIPTORS = range(3, 20)
LOADER_FAILED = 127
ADDRESS_SPACES = range(150, 200, 4)  # in MiB; some suffice for the helper


def names(quick):
    """Returns the names of all cases, or of a selection."""
    every = ([f"disk:{pages}" for pages in DISK_PAGES] + ["read-only"] +
             [f"descriptors:{count}" for count in DESCRIPTORS] +
             [f"memory:{size}" for size in ADDRESS_SPACES])
    return every[::8] if quick else every


def limiter(kind, value):
    return lambda: resource.setrlimit(kind, (value, value))


def small_disk(case, pages):
    """The victim fills a disk. The line that does not fit may be cut."""
    live = case.folder / "logs/shared.log"
    live.parent.mkdir()
    with machine.SmallDisk(live.parent, pages * 4 * KIBIBYTE) as disk:
        victim = case.start_writer(workloads.VICTIM, live.parent, with_fault=True)
        for step in "a" + "w" * 400 + "d":
            victim.step(step)
        case.require_status(victim, "victim")
        disk.grow(KIBIBYTE ** 2)
        last = case.start_writer(workloads.NEXT, live.parent)
        for step in "awd":
            last.step(step)
        case.require_status(last, "next process")
        content = log_content.LogContent(live)
    content.require(workloads.NEXT, [1])
    if content.torn > 1 or not content.numbers[workloads.VICTIM]:
        case.problems += content.problems or ["no line was written"]
    case.require_no_objects()


def run_helpers(case, good=frozenset({0})):
    """Runs a helper with the limit, then a helper without it."""
    command = [case.build / "bin/HexHelper"]
    status = case.require_status(case.start(command, with_fault=True), "helper", good)
    if status == 0:
        case.require_no_objects()
    case.limits = None
    case.require_status(case.start(command, with_hooks=True), "next helper")


def read_only_home(case):
    case.home.mkdir()
    with machine.SmallDisk(case.home, 64 * KIBIBYTE) as disk:
        disk.make_read_only()
        run_helpers(case)


def limited(case, kind, value, good):
    case.limits = limiter(kind, value)
    case.home.mkdir()
    run_helpers(case, good)
    content = log_content.LogContent(case.home / "Library/Logs/Cirrane/CRN/CRN.log")
    if not content.banners["START"]:
        content.problems.append("the next helper wrote no line")
    case.problems += content.problems


def run(build, name):
    """Runs a case. Returns the problems."""
    kind, _, value = name.partition(":")
    with tempfile.TemporaryDirectory(prefix="faults-") as folder:
        case = workloads.Case(build, folder, None)
        try:
            if kind == "disk":
                small_disk(case, int(value))
            elif kind == "read-only":
                read_only_home(case)
            elif kind == "descriptors":
                limited(case, resource.RLIMIT_NOFILE, int(value), {0, LOADER_FAILED})
            else:
                limited(case, resource.RLIMIT_AS, int(value) * KIBIBYTE ** 2,
                        {0, LOADER_FAILED, -signal.SIGABRT})
        except programs.Hang as hang:
            case.problems.append(f"hangs in {hang}")
        finally:
            case.clean_up()
        return case.problems
