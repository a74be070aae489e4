"""A D-Bus session bus without services, one for each process that runs cases."""

import functools
import subprocess
import tempfile

import programs

CONFIGURATION = """<busconfig>
  <type>session</type>
  <listen>unix:dir={folder}</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


class SessionBus:
    """Ends with the process that started it."""

    def __init__(self):
        self._folder = tempfile.TemporaryDirectory(prefix="faults-bus-")
        path = self._folder.name + "/bus.conf"
        with open(path, "w", encoding="utf-8") as file:
            file.write(CONFIGURATION.format(folder=self._folder.name))
        self._daemon = subprocess.Popen(
            ["dbus-daemon", "--nofork", "--print-address=1", "--config-file=" + path],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
            preexec_fn=programs.die_with_parent)
        self.address = self._daemon.stdout.readline().strip()


@functools.lru_cache(maxsize=None)
def session_bus():
    """The bus of this process."""
    return SessionBus()
