"""Samples of several variants and their ratios, for the reports of bench/*/run."""

import statistics


class Samples:
    """The milliseconds per operation of one workload, by variant, in the order of the rounds."""

    def __init__(self):
        self.times = {}

    def add(self, variant, milliseconds):
        self.times.setdefault(variant, []).append(milliseconds)

    def median(self, variant):
        return statistics.median(self.times[variant])

    def ratios(self, variant, other):
        """Returns, for each round, how many times as fast as `other` a variant was."""
        return [b / a for a, b in zip(self.times[variant], self.times[other])]


def by_workload(lines, kind, time='milliseconds'):
    workloads = {}
    for line in lines:
        if line['kind'] == kind:
            samples = workloads.setdefault(line['workload'], Samples())
            samples.add(line['variant'], line[time] / line['count'])
    return workloads


def verdict(good):
    return 'met' if good else 'MISSED'


def spread(ratios):
    middle = statistics.median(ratios)
    digits = 2 if middle >= 0.1 else 4
    return f'{middle:.{digits}f} ({min(ratios):.{digits}f}..{max(ratios):.{digits}f})'
