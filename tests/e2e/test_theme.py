"""The window on other desktops: their colours and type leave it as it is, and their choosers serve it."""

import glob
import os
import subprocess
import tempfile
import unittest

from driver import Program, choose, key, wait, xdotool
from test_keyboard import sound

try:
    import dbus
    import dbusmock
except ImportError:
    dbusmock = None

LONG = "A name that is too long for its row, and on one line in large type for the screen as well, so that it takes two"
TYPE = "DejaVu Sans,24,-1,5,50,0,0,0,0,0"
DARK = f"[General]\nfont={TYPE}\nmenuFont={TYPE}\n" + "".join(
    f"[Colors:{part}]\nBackgroundNormal={ground}\nForegroundNormal=252,252,252\n" for part, ground in (
        ("Window", "42,46,50"), ("View", "27,30,32"), ("Button", "49,54,59"), ("Selection", "61,174,233"), ("Tooltip", "49,54,59")))
NAME, PATH, CHOOSER, REQUEST = ("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                                "org.freedesktop.portal.FileChooser", "org.freedesktop.portal.Request")


def still():
    """The screen, once nothing is being drawn any more."""
    seen = [b""]

    def same():
        seen.append(subprocess.run(["import", "-window", "root", "ppm:-"], check=True, capture_output=True).stdout)
        return seen[-1] == seen[-2]

    wait("the screen stands still", same)
    return seen[-1]


def staged(program, loop, name):
    wait(f"{name} is in its row", lambda: program.get(f"Loop {loop} name").description == name)


class Theme(unittest.TestCase):
    def scenes(self, environment):
        """What the screen shows of each."""
        with Program(environment=environment) as program:
            program.ready()
            program.connected()
            program.get("Loop 1 name").click()
            program.get("Loop 1 name", "text")
            xdotool("mousemove", 1, 1)
            yield "a name that is edited", still()
            key("Escape", "alt+e")
            program.get("Keep Copies", "menu item")
            yield "a menu", still()
            key("Escape", "Escape", "ctrl+2")
            program.get("Overwrite Loop 5").press()
            program.get("File name:", "text")
            yield "the chooser", still()
            choose(program, sound(LONG + ".wav", 90_000))
            staged(program, 5, LONG)
            program.ready()  # others show no tool tips
            x, y = program.get("Loop 5 name").centre()
            for step in range(3):
                xdotool("mousemove", x + step, y, "sleep", 0.1)
            tip = wait("the tool tip", lambda: next((item for item in program.windows() if item.role == "tool tip"), None)).box()
            self.assertTrue(0 <= tip.x and tip.x + tip.width <= 1280, f"from {tip.x}, {tip.width} wide")
            xdotool("mousemove", 1, 1)
            wait("it goes", lambda: len(program.windows()) == 1)
            program.get("Export", "push button").press()
            program.get("Yes")
            yield "a question", still()

    def test_a_dark_desktop_with_large_type_changes_only_what_is_its_own(self):
        settings = tempfile.mkdtemp()
        with open(os.path.join(settings, "kdeglobals"), "w") as file:
            file.write(DARK)
        usual = dict(self.scenes({}))
        dark = self.scenes({"XDG_CONFIG_HOME": settings, "XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"})
        for scene, screen in dark:
            self.assertEqual(screen == usual[scene], scene != "the chooser", scene)


@unittest.skipUnless(dbusmock and glob.glob("/usr/lib/*/qt6/plugins/platformthemes/libqxdgdesktopportal.so"),
                     "python3-dbusmock or qt6-xdgdesktopportal-platformtheme is not installed")
class Portal(unittest.TestCase):
    def setUp(self):
        self.server = dbusmock.DBusTestCase.spawn_server(NAME, PATH, CHOOSER)
        self.addCleanup(self.server.wait)
        self.addCleanup(self.server.terminate)
        self.bus = dbus.SessionBus()
        wait("the portal", lambda: self.bus.name_has_owner(NAME))
        self.portal = dbus.Interface(self.bus.get_object(NAME, PATH), dbusmock.MOCK_IFACE)
        self.portal.AddProperties(CHOOSER, {"version": dbus.UInt32(3)})
        for method in "OpenFile", "SaveFile":
            self.portal.AddMethod(CHOOSER, method, "ssa{sv}", "o", "ret = dbus.ObjectPath('/request')")
        self.portal.AddObject("/request", REQUEST, {}, [])

    def asked(self, program, method, title):
        """The options of the chooser that is open."""
        wait(title, lambda: program.window(title))
        _, (_, asked, options) = wait("the portal is asked", lambda: self.portal.GetMethodCalls(method))[-1]
        self.assertEqual(asked, title)
        return options

    def answer(self, program, title, path=None):
        """Until it is heard."""
        request = dbus.Interface(self.bus.get_object(NAME, "/request"), dbusmock.MOCK_IFACE)
        words = [dbus.UInt32(0 if path else 1), {"uris": ["file://" + path]} if path else dbus.Dictionary(signature="sv")]
        wait("the chooser is closed", lambda: not program.window(title) or request.EmitSignal(REQUEST, "Response", "ua{sv}", words))

    def test_its_choosers_are_used_until_it_ends(self):
        with Program(environment={"QT_QPA_PLATFORMTHEME": "xdgdesktopportal"}) as program:
            program.ready()
            program.connected()
            program.get("Loop 3, select").press()
            program.get("Import", "push button").press()
            title = "Choose a folder for Loop 3"
            options = self.asked(program, "OpenFile", title)
            self.assertEqual((options["directory"], options["accept_label"], options["multiple"]), (True, "Save", False))
            folder = tempfile.mkdtemp()
            self.answer(program, title, folder)
            wait("the loop is there", lambda: os.listdir(folder) == ["Loop 3.wav"])
            program.ready()
            key("ctrl+2")
            for path in None, sound("verse.wav", 90_000):
                program.get("Add Loop 4").press()
                title = "Choose an audio file for Loop 4"
                (name, patterns), = self.asked(program, "OpenFile", title)["filters"]
                self.assertEqual((name.strip(), (0, "*.wav") in patterns), ("Audio files", True))
                self.answer(program, title, path)
                program.ready()
                if not path:
                    self.assertEqual(program.get("Loop 4 name").description, "")
            staged(program, 4, "verse")
            program.get("Add Loop 6").press()
            self.asked(program, "OpenFile", "Choose an audio file for Loop 6")
            self.server.terminate()
            choose(program, sound("bridge.wav", 90_000))
            staged(program, 6, "bridge")
            program.get("Add Loop 7").press()
            choose(program, sound("coda.wav", 90_000))
            staged(program, 7, "coda")


if __name__ == "__main__":
    unittest.main()
