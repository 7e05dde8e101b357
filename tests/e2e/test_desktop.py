"""What the desktop shows beside the window: on the launcher's icon, and as a notification."""

import re
import subprocess
import tempfile
import time
import unittest

import gi
from driver import DROP_TARGET, Program, choose, picture, wait

gi.require_version("Gio", "2.0")
from gi.repository import Atspi, Gio  # noqa: E402

try:
    import dbus
    import dbusmock
except ImportError:
    dbusmock = None

TEN_SECONDS = 10
CLICK = ("org.freedesktop.Notifications", "ActionInvoked", "us")


@unittest.skipUnless(dbusmock, "python3-dbusmock is not installed")
class Desktop(unittest.TestCase):
    def setUp(self):
        server, self.notifications = dbusmock.DBusTestCase.spawn_server_template("notification_daemon", {})
        self.addCleanup(server.wait)
        self.addCleanup(server.terminate)
        self.icon = []
        bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        number = bus.signal_subscribe(None, "com.canonical.Unity.LauncherEntry", "Update", None, None,
                                      Gio.DBusSignalFlags.NONE, lambda *call: self.icon.append(call[5].unpack()))
        self.addCleanup(bus.signal_unsubscribe, number)

    def mock(self, method, *words):
        return self.notifications.get_dbus_method(method, dbusmock.MOCK_IFACE)(*words)

    def begin_import(self, program):
        """Of a loop that stops half-way."""
        program.ready()
        program.connected()
        program.get("Loop 1, select").click()
        button = program.get("Import", "push button")
        wait("import is possible", lambda: button.enabled)
        button.click()
        choose(program, tempfile.mkdtemp())
        program.ready("7306 Import")

    def test_an_import_that_takes_long_while_the_user_looks_elsewhere(self):
        with Program("--fault", "silence@in:200") as program:
            self.begin_import(program)
            started = time.monotonic()
            entry, shown = wait("the icon shows progress", lambda: self.icon and self.icon[-1])
            self.assertEqual(entry, "application://example.kzq.kzq7306.desktop")
            self.assertTrue(shown["progress-visible"] and 0 <= shown["progress"] < 1, shown)
            other = subprocess.Popen([DROP_TARGET, tempfile.mkdtemp()])
            self.addCleanup(other.wait)
            self.addCleanup(other.kill)
            wait("the other window is in front",
                 lambda: not any(window.has(Atspi.StateType.ACTIVE) for window in program.windows()))
            wait("it takes long", lambda: time.monotonic() - started > TEN_SECONDS)
            picture("behind")
            program.get("Cancel", "push button").press()
            _, words = wait("a notification", lambda: self.mock("GetMethodCalls", "Notify"))[-1]
            name, _, picture_name, sentence, _, actions, hints, _ = words
            self.assertEqual((str(name), str(picture_name)), ("7306 Loop Manager", "kzq7306"))
            self.assertEqual(list(map(str, actions)), ["default", "Show"])
            self.assertEqual(str(hints["desktop-entry"]), "example.kzq.kzq7306")
            program.get("(Failed: )?" + re.escape(sentence), "push button")
            wait("the icon shows none", lambda: not self.icon[-1][1]["progress-visible"])
            self.mock("EmitSignal", *CLICK, [dbus.UInt32(1), "default"])
            program.ready()


if __name__ == "__main__":
    unittest.main()
