"""The window without X: on a Wayland compositor that draws nowhere, and by assistive means, as there is no hand."""

import os
import shutil
import subprocess
import tempfile
import unittest

from driver import Atspi, Program, wait


@unittest.skipUnless(shutil.which("weston"), "weston is not installed")
class Wayland(unittest.TestCase):
    def setUp(self):
        socket = "kzq7306-test"
        weston = subprocess.Popen(["weston", "--backend=headless-backend.so", f"--socket={socket}", "--idle-time=0"],
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(weston.wait)
        self.addCleanup(weston.terminate)
        wait("the compositor", lambda: os.path.exists(os.path.join(os.environ["XDG_RUNTIME_DIR"], socket)))
        # Qt's input method for Wayland takes it for granted that there is a keyboard somewhere.
        self.environment = {"QT_QPA_PLATFORM": "wayland", "WAYLAND_DISPLAY": socket, "DISPLAY": "", "QT_IM_MODULE": "compose"}

    def test_a_loop_is_imported(self):
        folder = tempfile.mkdtemp()
        with Program(environment=self.environment) as program:
            program.connected()
            program.get("Loop 1, select").press()
            button = program.get("Import", "push button")
            wait("import is possible", lambda: button.enabled)
            button.press()
            field = program.get("Directory:", "text")
            Atspi.EditableText.set_text_contents(field.node.get_editable_text_iface(), folder)
            program.get("Save", "push button").press()
            wait("the file", lambda: [name for name in os.listdir(folder) if name.endswith(".wav")])
            program.terminate()
            self.assertEqual(program.wait_end()[0], 0)


if __name__ == "__main__":
    unittest.main()
