"""What the measurements with a real Chromium share: its surroundings, and what it prints."""

import contextlib
import ctypes
import json
import os
import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
TIMEOUT_SECONDS = 300


def adopt_orphans():
    """A renderer may outlive its browser a little: it becomes a child of this process then."""
    PR_SET_CHILD_SUBREAPER = 36
    ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)


def wait_for_children():
    with contextlib.suppress(ChildProcessError):
        while True:
            os.wait()


def start_display():
    """An X server without a screen; it writes its number once it is ready."""
    server = subprocess.Popen(
        ['Xvfb', '-displayfd', '1', '-screen', '0', '640x480x24', '-nolisten', 'tcp', '-noreset'],
        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    number = server.stdout.readline().strip()
    if not number:
        sys.exit('Xvfb did not start')
    return server, ':' + number


def surroundings(display, folder):
    environment = dict(os.environ, DISPLAY=display)
    for name in ('HOME', 'TMPDIR', 'XDG_CACHE_HOME', 'XDG_CONFIG_HOME', 'XDG_DATA_HOME',
                 'XDG_RUNTIME_DIR'):
        environment[name] = folder
    # A path where nothing listens: else the libraries start a bus and leave it running.
    environment['DBUS_SESSION_BUS_ADDRESS'] = f'unix:path={folder}/no-bus'
    return environment


def run_host(command, environment):
    """The objects that the host prints, one a line."""
    host = subprocess.run(list(map(str, command)), env=environment, stdout=subprocess.PIPE,
                          text=True, timeout=TIMEOUT_SECONDS)
    if host.returncode != 0:
        sys.exit(f'{command[0]} ended with status {host.returncode}')
    return [json.loads(line) for line in host.stdout.splitlines()]


def remove_lock(folder):
    """Renderers end without detaching from the lock of their log."""
    log = folder / 'Library/Logs/Cirrane/CRN/CRN.log'
    if log.exists():
        subprocess.run([ROOT / 'tools/lib/remove_lock', log], check=True)


@contextlib.contextmanager
def ready():
    """A folder, and an environment for a browser that keeps everything in it."""
    adopt_orphans()
    with tempfile.TemporaryDirectory() as folder:
        server, display = start_display()
        try:
            yield pathlib.Path(folder), surroundings(display, folder)
        finally:
            server.terminate()
            server.wait()
            wait_for_children()
            remove_lock(pathlib.Path(folder))
