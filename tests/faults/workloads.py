"""Runs programs while a call of one of them fails, and checks their logs and leftovers."""

import functools
import pathlib
import signal

import log_content
import machine
import programs
from session_bus import SessionBus

VICTIM, PEER, NEXT = 0, 1, 2
MAX_COPIED = 256 << 20

# A process may lose its lines while these calls fail (see docs/logging.md), because the folder or
# the file cannot be found, opened, read or written, or the lock is unavailable. A file whose end
# cannot be read may end in an incomplete line. Lines after the last failure must be written.
MAY_LOSE_LINES = {"open", "read", "write", "stat", "semaphore", "semaphore-set", "allocation",
                  "directory", "map"}
NEVER_LOSES_LINES = {"EINTR", "SHORT"}
# A process tries to create the lock again after a second, or when it attaches again.
WAIT_FOR_NEXT_SECOND = {"semaphore", "semaphore-set"}
# The set remains if its count cannot be decremented. The set or the segment remains if every
# removal fails. If a removal fails once, the next process removes the object.
MAY_LEAVE_OBJECTS = {"once": {"semaphore"}, "on": {"semaphore", "semaphore-set", "shared"}}
# The helper ends with SIGABRT when memory is exhausted (see docs/exit-statuses.md).
STATUSES = {"allocation": {0, -signal.SIGABRT}}


@functools.lru_cache(maxsize=None)
def session_bus():
    """Returns the bus that all cases of this process share."""
    return SessionBus()


class Case:
    """One run: its folder, its fault as FAMILY:NUMBER:ERRNO:MODE, and the problems found."""

    def __init__(self, build, folder, fault, limits=None):
        self.build = pathlib.Path(build)
        self.folder = pathlib.Path(folder)
        self.fault = fault
        self.family, _, self.error, self.mode = (fault or ":::").split(":")
        self.limits = limits
        self.problems = []
        self.report = programs.Report(folder)
        self.home = self.folder / "home"
        self.environment = {"HOME": str(self.home), "PATH": "/usr/bin:/bin", "LC_ALL": "C",
                            "DBUS_SESSION_BUS_ADDRESS": f"unix:path={self.folder}/no-bus"}
        self.running = []

    def use_bus(self):
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = session_bus().address

    def start(self, command, with_fault=False, with_hooks=False):
        """Starts a program. `with_hooks` alone preloads the library without a fault."""
        environment = dict(self.environment)
        if with_fault or with_hooks:
            environment["LD_PRELOAD"] = str(self.build / "tests/faults/libfaults.so")
        if with_fault:
            environment["FAULT_REPORT"] = str(self.report.path)
            environment["FAULT"] = self.fault or ""
        program = programs.Program(command, environment, self.limits if with_fault else None)
        self.running.append(program)
        return program

    def start_writer(self, writer, folder, segment=0, max_copied=MAX_COPIED, with_fault=False):
        return self.start([self.build / "bin/log_workload", folder, writer, segment, max_copied],
                          with_fault)

    def require_status(self, program, who, good=frozenset({0})):
        status = program.end()
        if status not in good:
            self.problems.append(f"the {who} ended with {status}")
        return status

    def require_no_objects(self):
        left = machine.lock_objects()
        if left and self.family not in MAY_LEAVE_OBJECTS.get(self.mode, set()):
            self.problems.append(f"left behind: {left}")

    def may_lose_lines(self):
        if self.error in NEVER_LOSES_LINES:
            return False
        return self.family in MAY_LOSE_LINES

    def clean_up(self):
        for program in self.running:
            if program.process.poll() is None:
                program.kill()
        machine.remove_lock_objects()


class LogWorkload:
    """Programs that take turns to write a log: the victim, a peer, and another program after both.

    Finally, the victim attaches again without faults. Its next line must be written.
    """

    def __init__(self, turns, segment=0, initial="", default_folder=False, extra=(),
                 max_copied=MAX_COPIED):
        self.turns = turns          # pairs of a writer and its steps
        self.segment = segment
        self.max_copied = max_copied
        self.initial = initial
        self.default_folder = default_folder  # use the default folder, which does not exist yet
        self.extra = extra          # names of other files in the folder

    def prepare(self, case):
        case.home.mkdir()
        if self.default_folder:
            return "", case.home / "Library/Logs/Cirrane/CRN/shared.log"
        folder = case.folder / "logs"
        folder.mkdir()
        for name in self.extra:
            (folder / name).parent.mkdir(exist_ok=True)
            (folder / name).write_text("keeplogs" if name == "pvx.trace" else "")
        if self.initial:
            (folder / "shared.log").write_text(self.initial)
        return folder, folder / "shared.log"

    def run(self, case):
        folder, live = self.prepare(case)
        writers = {}
        for writer, steps in [*self.turns, (VICTIM, "sawd")]:
            if writer not in writers:
                writers[writer] = case.start_writer(writer, folder, self.segment, self.max_copied,
                                                    writer == VICTIM)
            for step in steps:
                writers[writer].step(step)
        for writer, program in writers.items():
            case.require_status(program, ["victim", "peer"][writer])
        writers[NEXT] = case.start_writer(NEXT, folder, self.segment, self.max_copied)
        for step in "awd":
            writers[NEXT].step(step)
        case.require_status(writers[NEXT], "next process")
        self.check(case, live, writers)

    def check(self, case, live, writers):
        content = log_content.LogContent(live, self.initial.splitlines(),
                                         with_fault=case.fault is not None)
        if case.family != "time":  # retention removes a copy with an old date
            self.require_lines(case, content, writers)
        case.problems += content.problems
        case.require_no_objects()
        left = [path.name for path in live.parent.glob(".*")]
        if left:
            case.problems.append(f"left behind: {left}")

    def require_lines(self, case, content, writers):
        victim = writers[VICTIM]
        content.require(VICTIM, victim.calm if case.may_lose_lines() else victim.written)
        if not victim.late:
            content.problems.append("the victim cannot attach again")
        waits = case.family in WAIT_FOR_NEXT_SECOND
        content.require(VICTIM, victim.late[-1:] if waits else victim.late)
        for writer in (PEER, NEXT):
            if writer in writers:
                content.require(writer, writers[writer].written)
        for line in self.initial.splitlines():
            if content.initial[line] != 1:
                content.problems.append(f"{line[:20]!r} occurs {content.initial[line]} times")


class HelperWorkload:
    """A helper without Chromium, followed by another helper."""

    def __init__(self, arguments, with_bus=False):
        self.arguments = arguments
        self.with_bus = with_bus

    def run(self, case):
        case.home.mkdir(exist_ok=True)
        if self.with_bus:
            case.use_bus()
        live = case.home / "Library/Logs/Cirrane/CRN/CRN.log"
        command = [case.build / "bin/HexHelper", *self.arguments]
        good = STATUSES.get(case.family, {0})
        status = case.require_status(case.start(command, with_fault=True), "helper", good)
        # A hook replaces Chromium in both.
        case.require_status(case.start(command, with_hooks=True), "next helper")
        content = log_content.LogContent(live)
        fewest = 1 if case.may_lose_lines() or status != 0 else 2
        for banner in ("START", "END"):
            if not fewest <= content.banners[banner] <= 2:
                content.problems.append(f"{banner} occurs {content.banners[banner]} times")
        case.problems += content.problems
        if status == 0:
            case.require_no_objects()


class NotificationWorkload:
    """A program that receives its own notification, followed by another such program."""

    def run(self, case):
        case.use_bus()
        command = [case.build / "bin/notification_workload"]
        case.require_status(case.start(command, with_fault=True), "observer",
                            STATUSES.get(case.family, {0}))
        case.require_status(case.start(command), "next observer")


WORKLOADS = {
    "fresh": LogWorkload([(VICTIM, "awwd")], default_folder=True),
    "torn": LogWorkload([(VICTIM, "aw"), (PEER, "aw"), (VICTIM, "wd"), (PEER, "wd")],
                        initial="an early line\na torn line"),
    "rotation": LogWorkload([(VICTIM, "aw"), (PEER, "aw"), (VICTIM, "www"), (PEER, "w"),
                             (VICTIM, "wwd"), (PEER, "wd")],
                            segment=600, extra=["pvx.trace"]),
    # Each line checks the file's size, so the last line before the end is always written.
    "moving": LogWorkload([(VICTIM, "aw"), (PEER, "aw"), (VICTIM, "ww"), (PEER, "w"),
                           (VICTIM, "wswd"), (PEER, "wd")],
                          segment=600, max_copied=1, extra=["pvx.trace"]),
    # Rotates once, so retention keeps the only copy.
    "pruning": LogWorkload([(VICTIM, "aw"), (PEER, "aw"), (VICTIM, "wd"), (PEER, "wd")],
                           segment=9000, initial="x" * 9000 + "\n",
                           extra=["shared 2020-01-01 00-00-00.log", "shared_note.txt",
                                  "shared old/inner.txt"]),
    "helper": HelperWorkload([]),
    "renderer": HelperWorkload(["--type=renderer", "--lang=de"], with_bus=True),
    "notification": NotificationWorkload(),
}
