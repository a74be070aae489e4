"""The home folder on its own small disk, and the files that the schedule changes in it."""

import os
import pathlib
import re
import subprocess

import machine

MEBIBYTE = 1 << 20
SIZE = 256 * MEBIBYTE
CONFIGURATION = pathlib.Path("/Library/Application Support/Velmora/TARN/Configs/ServiceConfig.xml")
GOOD = ("<config><CEF><AuthServerWhitelist>*.example.com</AuthServerWhitelist>"
        "<AuthNegotiateDelegateWhitelist>intranet</AuthNegotiateDelegateWhitelist></CEF></config>")
BROKEN = GOOD[:GOOD.index("</CEF>")]
# Files whose presence changes the level of the log or its retention, with their content.
MARKERS = {"pvx.trace": "keeplogs", "TARN.debug": "", "pvx.debug": ""}


class Home:
    def __init__(self, folder, documents):
        self.folder = folder
        self.logs = folder / "Library/Logs"
        self.log_folder = self.logs / "Cirrane/CRN"
        self.logrotate_folder = self.logs / "Cirrane/logrotate"
        self.temporary = folder / "tmp"
        self._drawer = folder / "drawer"
        self._filler = folder / "filler"
        self._rule = folder / "rule"
        self._disk = machine.SmallDisk(folder, SIZE)
        self._logging = documents / "logging.md"
        self.logrotate_runs = 0

    def __enter__(self):
        self.folder.mkdir()
        self._disk.__enter__()
        self.temporary.mkdir()
        self._drawer.mkdir()
        self.logs.mkdir(parents=True)
        for name, text in MARKERS.items():
            (self._drawer / name).write_text(text, encoding="utf-8")
        CONFIGURATION.parent.mkdir(parents=True)
        self.set_configuration(GOOD)
        text = self._logging.read_text(encoding="utf-8")
        rule = re.search(r"^/home/alice/.*?^}$", text, re.MULTILINE | re.DOTALL)[0]
        self._rule.write_text(rule.replace("/home/alice", str(self.folder))
                              .replace("alice", "root"), encoding="utf-8")
        return self

    def __exit__(self, *arguments):
        self._disk.__exit__(*arguments)
        self.folder.rmdir()

    def set_configuration(self, text):
        """Replaces the file atomically, so that a helper reads either the old or the new text."""
        new = CONFIGURATION.with_suffix(".new")
        new.write_text(text, encoding="utf-8")
        new.rename(CONFIGURATION)

    def show(self, marker):
        """Moves the marker into place. Creating it would need space on the disk."""
        (self._drawer / marker.name).rename(marker)

    def hide(self, marker):
        marker.rename(self._drawer / marker.name)

    def fill(self):
        with open(self._filler, "wb", buffering=0) as file:
            for size in (MEBIBYTE, 1 << 12):
                try:
                    while file.write(bytes(size)) == size:
                        pass
                except OSError:
                    pass  # the disk is full

    def empty(self):
        os.unlink(self._filler)

    def run_logrotate(self):
        """Applies the rule of docs/logging.md. Returns logrotate's output if it fails, else ""."""
        self.logrotate_runs += 1
        run = subprocess.run(["logrotate", "--force", "--state", self.folder / "state", self._rule],
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        return run.stdout if run.returncode != 0 else ""
