"""Sends the suite's refresh notifications on a session bus, and counts the memory reports."""

import queue
import threading
import time

from jeepney import DBusAddress, MatchRule, message_bus, new_method_call, new_signal
from jeepney.io.blocking import open_dbus_connection

from session_bus import SessionBus

INTERFACE = "com.velmora.crnc.CRNNotifier"
SENDER = DBusAddress("/com/velmora/crnc/CRNNotifier", interface=INTERFACE)
BUS = DBusAddress("/org/freedesktop/DBus", "org.freedesktop.DBus", "org.freedesktop.DBus.Peer")
INTERVAL = 0.1
# The errors of a connection whose bus has ended.
LOST = (ConnectionError, OSError, EOFError)


class Refreshes:
    """Sends ten notifications a second. Reconnects when the bus has been restarted."""

    def __init__(self):
        self.bus = SessionBus()
        self.sent = 0
        self.reports = 0
        self._bursts = queue.SimpleQueue()
        for target in (self._send, self._watch):
            threading.Thread(target=self._keep_up, args=(target,), daemon=True).start()

    def burst(self, count):
        self._bursts.put(count)

    def _keep_up(self, target):
        while True:
            try:
                with open_dbus_connection(self.bus.address) as connection:
                    target(connection)
            except LOST:
                time.sleep(INTERVAL)

    def _send(self, connection):
        while True:
            try:
                count = self._bursts.get(timeout=INTERVAL)
            except queue.Empty:
                count = 1
            for _ in range(count):
                connection.send(new_signal(SENDER, "Refresh"))
            # The reply proves that the bus has received the signals.
            connection.send_and_get_reply(new_method_call(BUS, "Ping"))
            self.sent += count

    def _watch(self, connection):
        rule = MatchRule(type="signal", interface=INTERFACE, member="SendCEFMemoryAnalytics")
        connection.send_and_get_reply(message_bus.AddMatch(rule))
        with connection.filter(rule, bufsize=1000) as reports:
            while True:
                connection.recv_until_filtered(reports)
                self.reports += 1
