#!/usr/bin/env python3
"""Makes each call of the log library and the helper fail in turn, and checks the outcome.

    tests/faults/run [--quick] [--workload NAME] [--fault FAMILY:NUMBER:ERRNO:MODE]

A preloaded library (libfaults.so, see fault_plan.h) counts the calls of one program by family. It
makes one call fail, or that call and all later calls. Each workload (workloads.py) first runs
without a fault to determine the number of calls of each family. Then each call fails with each
plausible error. No run may end with a signal, hang, or exit with an undocumented status. No line may
be torn, duplicated or missing. After its fault, the process must log again. The next process must
work, and no lock object or temporary file may remain.

The report contains the command that repeats a failing case alone. To run a program without the
driver:

    LD_PRELOAD=build/dev/tests/faults/libfaults.so FAULT=write:3:ENOSPC:once PROGRAM

limits.py adds cases in which the disk, the descriptors or the memory are exhausted. Exit status: 0
without problems; 1 with problems; 77 if the system does not allow namespaces.
"""

import argparse
import collections
import concurrent.futures
import os
import pathlib
import sys
import tempfile
import time

import limits
import machine
import programs
import workloads

# No system reports these errors permanently.
TRANSIENT = {"EINTR", "EAGAIN"}
# Every call fails once. Lasting failures begin at about this number of calls of a family.
MAX_LASTING = 40
SKIPPED = 77


def run_case(build, workload, fault):
    """Runs a case. Returns the problems, the numbers of calls, and whether a fault happened."""
    with tempfile.TemporaryDirectory(prefix="faults-") as folder:
        case = workloads.Case(build, folder, fault)
        try:
            workloads.WORKLOADS[workload].run(case)
        except programs.Hang as hang:
            case.problems.append(f"hangs in {hang}")
        finally:
            case.clean_up()
        return case.problems, case.report.calls(), case.report.failed()


def faults_of(calls, quick):
    for family, count in calls.items():
        for error in programs.ERRORS[family][:1] if quick else programs.ERRORS[family]:
            for mode in ("once",) if error in TRANSIENT else ("once", "on"):
                step = max(1, count - 1) if quick else 1 + (mode == "on") * (count // MAX_LASTING)
                for number in range(1, count + 1, step):
                    yield f"{family}:{number}:{error}:{mode}"


def begin_worker():
    machine.enter_own_objects()


class Driver:
    """Runs cases on all processors."""

    def __init__(self, build):
        self.build = build
        self.failed = []
        self.count = 0
        self.pool = concurrent.futures.ProcessPoolExecutor(
            len(os.sched_getaffinity(0)), initializer=begin_worker)

    def map(self, function, *columns):
        return list(self.pool.map(function, *columns, chunksize=4))

    def note(self, name, problems):
        self.count += 1
        if problems:
            self.failed.append((name, problems))

    def run_faults(self, workload, quick):
        problems, calls, _ = self.map(run_case, [self.build], [workload], [None])[0]
        self.note(f"--workload {workload}", problems)
        faults = list(faults_of(calls, quick))
        results = self.map(run_case, [self.build] * len(faults), [workload] * len(faults), faults)
        if not any(happened for _, _, happened in results):
            self.note(f"--workload {workload}", ["no fault happened"])
        for fault, (found, _, _) in zip(faults, results):
            self.note(f"--workload {workload} --fault {fault}", found)
        print(f"{workload}: {len(faults)} cases", flush=True)

    def run_limits(self, quick):
        names = limits.names(quick)
        for name, found in zip(names, self.map(limits.run, [self.build] * len(names), names)):
            self.note(f"--limit {name}", found)


def print_failures(failed):
    for name, problems in failed[:100]:
        print(f"tests/faults/run {name}")
        for problem in problems[:5]:
            print(f"    {problem}")
    kinds = collections.Counter(
        (name.split()[1], name.split()[-1].split(":")[0]) for name, _ in failed)
    for (workload, family), count in sorted(kinds.items()):
        print(f"{count} problems with {family} in {workload}")


def parse_arguments():
    parser = argparse.ArgumentParser(description="Makes calls fail.")
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--quick", action="store_true", help="a selection that takes a few seconds")
    parser.add_argument("--workload", choices=sorted(workloads.WORKLOADS))
    parser.add_argument("--fault", help="FAMILY:NUMBER:ERRNO:MODE, with --workload")
    parser.add_argument("--limit", help="a case of limits.py")
    return parser.parse_args()


def main():
    arguments = parse_arguments()
    begun = time.monotonic()
    driver = Driver(arguments.build.resolve())
    if arguments.fault:
        name = f"--workload {arguments.workload} --fault {arguments.fault}"
        driver.note(name, driver.map(run_case, [driver.build], [arguments.workload],
                                     [arguments.fault])[0][0])
    elif arguments.limit:
        driver.note(f"--limit {arguments.limit}",
                    driver.map(limits.run, [driver.build], [arguments.limit])[0])
    else:
        for workload in [arguments.workload] if arguments.workload else workloads.WORKLOADS:
            driver.run_faults(workload, arguments.quick)
        if not arguments.workload:
            driver.run_limits(arguments.quick)
    print_failures(driver.failed)
    print(f"{driver.count} cases in {time.monotonic() - begun:.0f} s, {len(driver.failed)} failed")
    return 1 if driver.failed else 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except concurrent.futures.process.BrokenProcessPool:
        print("this system does not allow IPC namespaces, as containers often do not")
        sys.exit(SKIPPED)
