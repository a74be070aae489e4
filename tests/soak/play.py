"""Executes a schedule, and prints a line of progress every second."""

import collections
import heapq
import time

import actions
import processes

TICK = 0.03
LAST_EVENTS = 15


class Play:
    def __init__(self, day, schedule, seconds):
        self._day = day
        self._seconds = seconds
        # A heap of (time, order, event, action). The action is None before the event has begun.
        self._due = [(event.at, i, event, None) for i, event in enumerate(schedule)]
        self._lines = 0
        self._begin = time.monotonic()
        self.last = collections.deque(maxlen=LAST_EVENTS)

    def play(self):
        next_second = 1
        while (now := self._now()) < self._seconds:
            self._day.poll(time.monotonic())
            while self._due and self._due[0][0] <= now:
                self._execute(heapq.heappop(self._due))
            if now >= next_second:
                self._end_second(now)
                next_second = int(now) + 1
            time.sleep(TICK)

    def finish(self):
        """Ends the events that last longer than the run."""
        for _, _, _, action in sorted(self._due, key=lambda due: due[:2]):
            if action:
                next(action, None)

    def _now(self):
        return time.monotonic() - self._begin

    def _execute(self, due):
        at, order, event, action = due
        if action:
            next(action, None)
            return
        # On a slow machine, the previous event with this action may not have ended.
        if event.length and any(action and event.action == other.action
                                for _, _, other, action in self._due):
            self._day.count("skipped events")
            return
        self.last.append(event)
        self._day.count(event.action)
        action = actions.begin(self._day, event)
        heapq.heappush(self._due, (max(at, self._now()) + event.length, order, event, action))

    def _end_second(self, now):
        day = self._day
        processes.reap_orphans(day.own_children())
        day.find_protected_renderer()
        watched = day.watched()
        day.figures.sample(now, watched)
        lines = day.writer.total()
        values = day.figures.end_second(now, lines - self._lines)
        self._lines = lines
        pages = "+".join(str(len(day.documents.live(suite)))
                         for _, suite in sorted(day.suites.items()))
        latency = f"{values.median * 1000:.0f} ms" if values.median else "-"
        memory = sum(day.figures.latest(pid) for pid in watched) // 1024
        print(f"soak: {now:4.0f} s: {pages} pages, {day.documents.up} messages up, "
              f"{day.documents.down} down ({latency}), {lines} lines, {day.log_files.rotations} "
              f"rotations, {day.counts['kills']} kills, {memory} MiB", flush=True)
