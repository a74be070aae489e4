"""Functions for the measurements with a real Chromium: its environment and its output."""

import contextlib
import json
import os
import pathlib
import subprocess
import sys
import tempfile

from command_line import ROOT

sys.path.insert(1, str(ROOT / 'tests' / 'support'))
import machine  # noqa: E402
from session_bus import SessionBus  # noqa: E402

TIMEOUT_SECONDS = 300


def wait_for_children():
    with contextlib.suppress(ChildProcessError):
        while True:
            os.wait()


def start_display():
    """Starts an X server without a screen. The server writes its number when it is ready."""
    server = subprocess.Popen(
        ['Xvfb', '-displayfd', '1', '-screen', '0', '640x480x24', '-nolisten', 'tcp', '-noreset'],
        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    number = server.stdout.readline().strip()
    if not number:
        sys.exit('Xvfb did not start')
    return server, ':' + number


def environment_for(display, folder):
    environment = dict(os.environ, DISPLAY=display)
    for name in ('HOME', 'TMPDIR', 'XDG_CACHE_HOME', 'XDG_CONFIG_HOME', 'XDG_DATA_HOME',
                 'XDG_RUNTIME_DIR'):
        environment[name] = folder
    # Without an address, the libraries would start a bus and leave it running.
    environment['DBUS_SESSION_BUS_ADDRESS'] = f'unix:path={folder}/no-bus'
    return environment


def run_host(command, environment):
    """Returns the objects that the host prints, one a line."""
    host = subprocess.run(list(map(str, command)), env=environment, stdout=subprocess.PIPE,
                          text=True, timeout=TIMEOUT_SECONDS)
    if host.returncode != 0:
        sys.exit(f'{command[0]} ended with status {host.returncode}')
    return [json.loads(line) for line in host.stdout.splitlines()]


def remove_lock(folder):
    """Removes the log's lock, because renderers end without detaching from it."""
    log = folder / 'Library/Logs/Cirrane/CRN/CRN.log'
    if log.exists():
        subprocess.run([ROOT / 'tools/lib/remove_lock', log], check=True)


@contextlib.contextmanager
def session_bus():
    """Yields the address of a bus without services."""
    bus = SessionBus()
    try:
        yield bus.address
    finally:
        bus.stop()


@contextlib.contextmanager
def ready():
    """Yields a folder, and an environment for a browser that keeps all its files in the folder."""
    machine.adopt_orphans()  # a renderer may outlive its browser briefly
    with tempfile.TemporaryDirectory() as folder:
        server, display = start_display()
        try:
            yield pathlib.Path(folder), environment_for(display, folder)
        finally:
            server.terminate()
            server.wait()
            wait_for_children()
            remove_lock(pathlib.Path(folder))
