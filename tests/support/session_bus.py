"""A D-Bus session bus without services."""

import os
import pathlib
import subprocess
import tempfile

import machine

CONFIGURATION = pathlib.Path(__file__).with_name("session_bus.conf")


class SessionBus:
    """Runs until stop(), or until the process that started it ends."""

    def __init__(self):
        self._folder = tempfile.TemporaryDirectory(prefix="bus-")
        self._socket = self._folder.name + "/bus"
        self._configuration = self._folder.name + "/bus.conf"
        self.address = "unix:path=" + self._socket
        before, _, after = CONFIGURATION.read_text(encoding="utf-8").rpartition("ADDRESS")
        with open(self._configuration, "w", encoding="utf-8") as file:
            file.write(before + self.address + after)
        self.start()

    def start(self):
        """Starts the bus, and returns when programs can connect."""
        self._daemon = subprocess.Popen(
            ["dbus-daemon", "--nofork", "--print-address=1", "--config-file=" + self._configuration],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
            preexec_fn=machine.die_with_parent)
        self._daemon.stdout.readline()

    def stop(self):
        self._daemon.terminate()
        self._daemon.communicate()
        if os.path.exists(self._socket):
            os.unlink(self._socket)

    @property
    def process(self):
        return self._daemon.pid
