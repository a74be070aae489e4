"""The events of a run. They depend only on the seed and the length of the run.

An event has a time and an action. A number from 0 to 1 picks its page or process among those that
exist at that time.
"""

import dataclasses
import random

# In seconds. No events occur while the browsers start, and at the end while all work completes.
LEAD_IN = 4
LEAD_OUT = 8


@dataclasses.dataclass(frozen=True, order=True)
class Event:
    at: float       # seconds since the beginning
    action: str
    pick: float     # picks a page or process
    length: float   # in seconds; 0 for a single moment
    seed: int       # for other random choices

    def __str__(self):
        lasting = f" for {self.length:.1f} s" if self.length else ""
        return f"{self.at:.1f} s: {self.action}{lasting} ({self.pick:.3f})"


# For each action, the number of events a minute, and the shortest and longest duration in seconds.
PAGES = {
    "open a page": (16, None),
    "open a popup": (8, None),
    "close a page": (14, None),
    "navigate": (18, None),
    "reload": (8, None),
    "load by the suite": (6, None),
    "step back": (8, None),
    "add a frame": (20, None),
    "remove a frame": (12, None),
    "take a picture": (4, None),
}
LOG = {
    "keep all copies": (1, (6, 12)),
    "log more": (2, (5, 10)),
    "break the configuration": (2, (5, 10)),
    "fill the disk": (0.6, (2, 4)),
    "run logrotate": (0.3, None),
    "shift the clock": (1.2, None),
}
PROCESSES = {
    "burst of refreshes": (4, None),
    "fill a page": (3, None),
    "restart the bus": (1, (0.2, 2)),
    "kill a renderer": (5, None),
    "kill a browser": (0.6, None),
    "kill the writer": (2, None),
    "stop the writer": (2, (1, 3)),
    "stop a renderer": (2, (1, 4)),
    "stop a browser": (0.6, (1, 3)),
}
ACTIONS = {**PAGES, **LOG, **PROCESSES}


def make_events(generator, action, seconds):
    """Yields one event in each of several equal parts of the time, so that events never overlap."""
    rate, length = ACTIONS[action]
    count = max(1, round(rate * seconds / 60))
    part = (seconds - LEAD_IN - LEAD_OUT) / count
    for i in range(count):
        lasting = generator.uniform(*length) if length else 0
        at = LEAD_IN + i * part + generator.random() * (part - lasting)
        yield Event(at, action, generator.random(), lasting, generator.getrandbits(32))


def make_schedule(seed, seconds):
    """Returns the events in order of time. Each action occurs at least once."""
    generator = random.Random(seed)
    return sorted(event for action in ACTIONS for event in make_events(generator, action, seconds))
