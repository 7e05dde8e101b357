"""Starting, plugging and unplugging the pedal, and quitting."""

import os
import subprocess
import tempfile
import unittest
import wave

from driver import DRAG_SOURCE, PATIENCE, PROGRAM, Atspi, Program, key, picture, wait, window_of, xdotool


def rows(program):
    """The loops that can be chosen."""
    return [item.name for item in program.items() if item.role == "check box" and item.enabled]


LOOPS = [f"Loop {number}, select" for number in (1, 2, 3, 5, 8, 13)]


class Start(unittest.TestCase):
    def test_pedal_comes_and_goes(self):
        with Program("--unplugged") as program:
            splash = wait("the splash", lambda: program.window("About"))
            self.assertIn("About", splash.name)
            program.ready()
            self.assertIsNone(program.window("About"))
            program.get("No pedal connected")
            self.assertIsNone(program.find("Space remaining.*"))
            self.assertEqual(rows(program), [])
            key("ctrl+p")
            program.get("Space remaining: 23 min, 24 sec")
            self.assertEqual(rows(program), LOOPS)
            self.assertIsNone(program.find("No pedal connected"))
            key("ctrl+p")
            program.get("No pedal connected")
            self.assertEqual(rows(program), [])
            self.ends(program, lambda: key("alt+F4"))

    def test_a_second_start_hands_its_files_to_the_first_window_which_comes_forward(self):
        memory, folder = tempfile.mkdtemp(prefix="pedal"), tempfile.mkdtemp()
        for path in os.path.join(memory, "Loop 2.wav"), *(os.path.join(folder, name) for name in ("verse riff.wav", "bridge.wav")):
            with wave.open(path, "wb") as file:
                file.setparams((2, 3, 44100, 90_000, "NONE", ""))
                file.writeframes(bytes(540_000))
        simulate = f"--simulate={memory}"

        def start(*files):
            again = subprocess.run([PROGRAM, simulate, *files], cwd=folder, capture_output=True, text=True, timeout=PATIENCE)
            self.assertEqual((again.returncode, again.stderr), (0, ""))

        with Program(simulate=simulate) as program:
            window = program.ready()
            program.connected()
            other = subprocess.Popen([DRAG_SOURCE, folder])
            self.addCleanup(other.wait)
            self.addCleanup(other.kill)
            wait("another window is in front", lambda: window_of(other) and not window.has(Atspi.StateType.ACTIVE))
            start("verse riff.wav", "bridge.wav")
            for loop, name in (1, "verse riff"), (3, "bridge"):
                wait(f"{name} is in its row", lambda: program.get(f"Loop {loop} name").description == name)
            program.ready()
            picture("second-start")
            xdotool("getactivewindow", "windowminimize")
            wait("the window is minimised", lambda: not window.has(Atspi.StateType.ACTIVE))
            start()
            program.ready()

    def ends(self, program, act):
        act()
        status, seconds = program.wait_end()
        self.assertEqual(status, 0)
        self.assertLess(seconds, 2)
