"""Samples processes over time, and finds figures that grow."""

import collections
import dataclasses
import math
import statistics
from typing import Optional

import processes

FIGURES = {"kilobytes": processes.private_dirty, "descriptors": processes.descriptors,
           "threads": processes.threads}
# In seconds. The warm-up of a process does not count; the series after it must have this length.
WARM_UP = 120
LEAST_JUDGED = 120
# In seconds. Memory fluctuates, so only a low value of each window counts. The lowest value does
# not count because all memory is shared during a fork.
WINDOW = 15
LOW = 0.25
MAX_SLOPE = 0.01  # a minute, relative to the mean
# A slope counts as growth if it exceeds MAX_SLOPE by this number of standard errors.
ERRORS = 2
MAX_CORRELATION = 0.9  # above, the estimate of so few values is not reliable
PARAMETERS = 3  # of the fit: the constant, the growth, and the influence of the documents


@dataclasses.dataclass(frozen=True)
class Second:
    at: float
    lines: int                  # written to the log in this second
    median: Optional[float]     # latency of a message and its confirmation, in seconds
    late: Optional[float]       # the 99th percentile


class Figures:
    def __init__(self):
        # (process, figure): samples as (second, documents of its browser, value)
        self.samples = collections.defaultdict(list)
        self.names = {}
        self.seconds = []
        self._latencies = []    # of all messages, in seconds
        self._judged = 0        # the number of latencies in earlier seconds

    def note_latency(self, seconds):
        self._latencies.append(seconds)

    def sample(self, now, watched):
        """`watched` maps process numbers to names and numbers of documents in their browsers."""
        for pid, (name, documents) in watched.items():
            self.names[pid] = name
            for figure, read in FIGURES.items():
                value = read(pid)
                if value is not None:
                    self.samples[pid, figure].append((now, documents, value))

    def end_second(self, now, lines):
        latest = self._latencies[self._judged:]
        self._judged = len(self._latencies)
        self.seconds.append(Second(now, lines, percentile(latest, 50), percentile(latest, 99)))
        return self.seconds[-1]

    def latest(self, pid):
        """Returns the latest memory of the process, in kilobytes."""
        series = self.samples.get((pid, "kilobytes"))
        return series[-1][-1] if series else 0

    def latencies_in_milliseconds(self):
        """Returns the median and the 99th percentile over all messages."""
        return [(percentile(self._latencies, percent) or 0) * 1000 for percent in (50, 99)]

    def slopes(self):
        """Returns the name, the figure and the Slope of each series that is long enough."""
        slopes = [(self.names[pid], figure, slope_of(series))
                  for (pid, figure), series in sorted(self.samples.items())]
        return [each for each in slopes if each[2] is not None]

    def problems(self):
        return [f"{figure} of {name} grow: {slope}; {slope.lows}"
                for name, figure, slope in self.slopes()
                if slope.growth - ERRORS * slope.error > MAX_SLOPE and slope.floor > MAX_SLOPE]


def percentile(values, percent):
    if len(values) < 2:
        return values[0] if values else None
    return statistics.quantiles(values, n=100, method="inclusive")[percent - 1]


@dataclasses.dataclass(frozen=True)
class Slope:
    growth: float   # a minute, relative to the mean
    error: float    # its standard error
    floor: float    # growth of the lowest value from the first half to the second; a leak raises it
    lows: list      # the low value of each window

    def __str__(self):
        return f"{self.growth:+.2%} ± {self.error:.2%} a minute"


def slope_of(series):
    """Fits a slope; returns None if the series is too short. A browser with more documents requires
    more memory, so growth that the number of documents explains does not count."""
    begin = series[0][0] + WARM_UP
    windows = collections.defaultdict(list)
    for at, documents, value in series:
        if at >= begin:
            windows[int((at - begin) // WINDOW)].append((value, documents))
    if len(windows) * WINDOW < LEAST_JUDGED:
        return None
    lows, documents = zip(*(sorted(values)[int(LOW * len(values))] for values in windows.values()))
    minutes = without([window * WINDOW / 60 for window in windows], documents)
    rests = without(lows, documents)
    squares = sum(minute ** 2 for minute in minutes)
    growth = sum(minute * rest for minute, rest in zip(minutes, rests)) / squares
    residuals = [rest - growth * minute for minute, rest in zip(minutes, rests)]
    mean = max(statistics.mean(lows), 1)
    variance = sum(residual ** 2 for residual in residuals) / (len(lows) - PARAMETERS)
    error = math.sqrt(variance / squares * inflation(residuals))
    half = len(lows) // 2
    floor = (min(lows[half:]) - min(lows[:half])) / (half * WINDOW / 60)
    return Slope(growth / mean, error / mean, floor / mean, list(lows))


def inflation(residuals):
    """Returns the factor by which the variance of a slope grows because neighboring residuals are
    alike, for an autoregressive process of order 1: memory stays at a level for some time."""
    squares = sum(residual ** 2 for residual in residuals)
    if squares == 0:
        return 1
    products = sum(first * second for first, second in zip(residuals, residuals[1:]))
    correlation = min(max(products / squares, 0), MAX_CORRELATION)
    return (1 + correlation) / (1 - correlation)


def without(values, causes):
    """Returns the values less their mean and less the part that depends on the causes."""
    if min(causes) == max(causes):
        return [value - statistics.mean(values) for value in values]
    slope, constant = statistics.linear_regression(causes, values)
    return [value - slope * cause - constant for value, cause in zip(values, causes)]
