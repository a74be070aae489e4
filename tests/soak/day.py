"""A suite's day: the running programs, and the models that check them."""

import collections
import http.server
import pathlib
import queue
import re
import signal
import subprocess
import sys
import threading
import time

import machine
import processes
from documents import Documents
from figures import Figures
from log_files import LogFiles
from log_model import LogModel, Period, is_now_within
from payload import random_payload_of
from refreshes import Refreshes
from suite import Suite, write_traced_helper
from writer import LogWriter

HERE = pathlib.Path(__file__).parent
MESSAGES_PER_SECOND = 25
POLL_SECONDS = 0.1
OPENING_SECONDS = 3  # until a requested page has loaded
NO_BROWSER = re.compile(r"there is no browser (\d+)")
NO_PICTURE = "closed before its next paint"
ENDED_ALL_RENDERERS = 4
CLOSED_BY_PAGES = 0


class Pages(http.server.SimpleHTTPRequestHandler):
    """Serves page/ and logs nothing."""

    def __init__(self, *arguments):
        super().__init__(*arguments, directory=HERE / "page")

    def log_message(self, *_):
        pass


class PageServer(http.server.ThreadingHTTPServer):
    """Ignores connections that a killed browser has cut."""

    def handle_error(self, request, client_address):
        if not isinstance(sys.exc_info()[1], ConnectionError):
            super().handle_error(request, client_address)


class Day:
    def __init__(self, build, helpers, home, scratch, generator):
        self.home = home
        self.scratch = scratch
        self.problems = []
        self.counts = collections.Counter()
        self.broken = []        # periods with a broken configuration
        self.figures = Figures()
        self.documents = Documents(self.figures.note_latency)
        self.log = LogModel()
        self.log_files = LogFiles(home.log_folder, home.logrotate_folder, self.log.take_file)
        self.killed = set()     # numbers of processes that the schedule killed
        self.stopped = set()    # numbers of renderers that the schedule stopped
        self.suites = {}
        self.protected_renderer = None
        self.lock_objects_left = 0
        self.traces = scratch / "traces"
        self._build = build
        self._generator = generator
        self._events = queue.SimpleQueue()
        self._helpers = helpers
        self._next_message = 0
        self._openings = collections.deque()  # recent requests for pages: (time, suite)

    def start(self):
        self.traces.mkdir()
        self._display = subprocess.Popen(
            ["Xvfb", "-displayfd", "1", "-screen", "0", "1280x1024x24", "-nolisten", "tcp",
             "-noreset"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
            preexec_fn=machine.die_with_parent)
        self.refreshes = Refreshes()
        home = str(self.home.folder)
        self._environment = {
            "PATH": "/usr/bin:/bin", "HOME": home, "LC_ALL": "C",
            "TMPDIR": str(self.home.temporary), "XDG_RUNTIME_DIR": home, "XDG_CONFIG_HOME": home,
            "XDG_DATA_HOME": home,
            # Mesa maps the files of its cache, and a full disk ends such a process with SIGBUS.
            "XDG_CACHE_HOME": str(self.scratch),
            # The allocator returns large blocks to the system, because only memory that stays in
            # use counts.
            "MALLOC_MMAP_THRESHOLD_": "65536", "MALLOC_TRIM_THRESHOLD_": "65536",
            "MALLOC_ARENA_MAX": "1",
            "DISPLAY": ":" + self._display.stdout.readline().strip(),
            "DBUS_SESSION_BUS_ADDRESS": self.refreshes.bus.address}
        self._server = PageServer(("127.0.0.1", 0), Pages)
        threading.Thread(target=self._server.serve_forever, daemon=True).start()
        port = self._server.server_address[1]
        self.origins = [f"http://127.0.0.1:{port}", f"http://localhost:{port}"]
        self.writer = LogWriter(self._build, self.scratch, self._environment, self.log)
        for name, helper in self._helpers.items():
            write_traced_helper(self.scratch / f"helper{name}", helper, self.traces)
            self._start_suite(name)

    @staticmethod
    def begin_period(periods):
        periods.append(Period())
        return periods[-1]

    def count(self, name, number=1):
        self.counts[name] += number

    def _start_suite(self, name):
        with open(self.scratch / f"errors{name}", "ab") as errors:
            self.suites[name] = Suite(
                name, [self._build / "bin/suite_host", "--stdin", "--timeout=0",
                       # Pages collect their garbage, so that it does not count as growth.
                       "--switch=js-flags=--expose-gc",
                       f"--helper={self.scratch}/helper{name}",
                       f"{self.origins[0]}/soak.html?{name}#{self._generator.getrandbits(31)}"],
                self._environment, errors, self._events)

    def poll_events(self):
        """Handles events for a limited time. The next call handles the rest."""
        end = time.monotonic() + POLL_SECONDS
        while not self._events.empty() and time.monotonic() < end:
            self._take(*self._events.get())

    def has_seen_ends(self):
        """Returns whether all events of the browsers have been handled, at the end of the day."""
        self.poll_events()
        return all(suite.has_ended for suite in self.suites.values())

    def poll(self, now):
        """Handles everything that has happened, and sends messages that are due."""
        self.poll_events()
        self.log_files.poll()
        if self.writer.process.poll() is not None:
            if not is_now_within(self.log.full):  # a full disk prevents a new log
                self.problems.append(f"the writer ended with {self.writer.process.returncode}")
            self.writer.kill()
            self.writer.start()
        if now >= self._next_message:
            self._next_message = now + 1 / MESSAGES_PER_SECOND
            live = self.documents.live(pages_only=False)
            if live:
                payload = random_payload_of(self._generator.getrandbits(32))
                self.documents.send(self._generator.choice(live), payload, now)

    def _take(self, suite, at, event):
        if event is None:
            self._take_end(suite)
            return
        kind = event["event"]
        if kind == "message" and event["name"] == "soak":
            self.documents.take(suite, event["browser"], event["args"], at)
        elif kind == "gone":
            self.count("renderers gone")
            self.documents.end(suite, event["browser"])
            suite.send(load=f"{self.origins[0]}/soak.html?{at}#{self._generator.getrandbits(31)}",
                       browser=event["browser"])
        elif kind == "console":
            self.problems.append(f"{suite.name}{event['browser']} writes to its console: {event}")
        elif kind == "error":
            self._take_error(suite, event["text"])
        elif kind == "screenshot":
            self.count("pictures")
            if not pathlib.Path(event["file"]).read_bytes().startswith(b"\x89PNG"):
                self.problems.append(f"{event['file']} is not a picture")

    def _take_error(self, suite, text):
        # A browser that closes reports nothing, but commands for it fail afterwards.
        if match := NO_BROWSER.search(text):
            self.documents.end(suite, int(match[1]))
        elif NO_PICTURE not in text:
            self.problems.append(f"suite {suite.name} reports: {text}")

    def _take_end(self, suite):
        self.documents.end(suite)
        suite.has_ended = True
        status = suite.process.returncode
        if suite.expected_status is None:
            # Browser B may lose all its renderers at once.
            if suite.name == "A" or status not in (ENDED_ALL_RENDERERS, CLOSED_BY_PAGES):
                self.problems.append(f"suite {suite.name} ended with {status}")
            self.count("browsers that ended with their renderers")
        elif status != suite.expected_status:
            self.problems.append(f"suite {suite.name} ended with {status} instead of "
                                 f"{suite.expected_status}")
        if not suite.is_last:
            self._start_suite(suite.name)

    def note_opening(self, suite):
        self._openings.append((time.monotonic(), suite))

    def recent_openings(self, suite):
        while self._openings and time.monotonic() - self._openings[0][0] > OPENING_SECONDS:
            self._openings.popleft()
        return sum(opened is suite for _, opened in self._openings)

    def own_children(self):
        return {self._display.pid, self.refreshes.bus.process, self.writer.pid,
                *(suite.pid for suite in self.suites.values())}

    def note_kill(self, pid):
        self.killed.add(pid)
        self.log.kills += 1
        self.count("kills")

    def kill_suite(self, name):
        suite = self.suites[name]
        suite.expected_status = -signal.SIGKILL
        for pid in processes.kill_with_helpers(suite.pid):
            self.note_kill(pid)
        self.note_kill(suite.pid)

    def find_protected_renderer(self):
        """Remembers the first renderer of browser A, while it is the only one."""
        if self.protected_renderer is None:
            renderers = processes.helpers(self.suites["A"].pid, "renderer")
            self.protected_renderer = renderers[0] if renderers else None

    def end_environment(self):
        self.refreshes.bus.stop()
        self._display.terminate()
        self._display.wait()
        self._server.shutdown()

    def watched(self):
        """Returns the processes to sample by number: names, and documents of their browsers."""
        watched = {self.writer.pid: ("writer", 0), self.refreshes.bus.process: ("bus", 0)}
        for name, suite in self.suites.items():
            documents = len(self.documents.live(suite, pages_only=False))
            watched[suite.pid] = (f"browser {name}", documents)
            for kind in ("gpu-process", "renderer"):
                for pid in processes.helpers(suite.pid, kind):
                    watched[pid] = (f"{kind} {pid} of {name}", documents)
        return watched
