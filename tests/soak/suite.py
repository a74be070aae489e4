"""One run of the example browser, driven through its standard input."""

import json
import os
import queue
import subprocess
import threading
import time

import machine

# Becomes the helper, whose exit status a tracer records because Chromium does not report it. The
# tracer is not the helper's parent.
TRACED_HELPER = """#!/bin/sh
for argument; do
  case $argument in --type=*) type=${{argument#--type=}};; esac
done
read -r uptime rest </proc/uptime
exec strace -D -f --seccomp-bpf -e trace=exit_group \\
  -o '{traces}'/"$$-$uptime-$type" \\
  '{helper}' "$@"
"""


def write_traced_helper(path, helper, traces):
    path.write_text(TRACED_HELPER.format(helper=helper, traces=traces), encoding="utf-8")
    path.chmod(0o755)


class Suite:
    """A running example browser. Puts (suite, time, event) into the queue `events`; the last event
    is None."""

    def __init__(self, name, command, environment, errors, events):
        self.name = name
        self.expected_status = None  # set before the process is ended on purpose
        self.has_ended = False
        self.is_last = False         # the day starts no other browser in its place
        self._events = events
        self._commands = queue.SimpleQueue()
        self.process = subprocess.Popen(
            command, env=environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=errors,
            preexec_fn=machine.die_with_parent)
        for target in (self._read, self._write):
            threading.Thread(target=target, daemon=True).start()

    @property
    def pid(self):
        return self.process.pid

    def send(self, **command):
        """Sends a command. Returns immediately, even if the browser does not read its input."""
        self._commands.put(json.dumps(command).encode() + b"\n")

    def _read(self):
        for line in self.process.stdout:
            if not line.endswith(b"\n"):
                break  # the browser was killed during a write
            self._events.put((self, time.monotonic(), json.loads(line)))
        self.process.wait()
        self._commands.put(None)
        self._events.put((self, time.monotonic(), None))

    def _write(self):
        while (line := self._commands.get()) is not None:
            try:
                os.write(self.process.stdin.fileno(), line)  # blocks until the pipe has all of it
            except BrokenPipeError:
                return
