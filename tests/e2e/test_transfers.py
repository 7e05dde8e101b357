"""Files onto the pedal."""

import os
import random
import subprocess
import tempfile
import unittest
import wave

from driver import DRAG_SOURCE, Program, drag, wait, window_of


class Transfers(unittest.TestCase):
    def test_file_dragged_from_another_program(self):
        folder = tempfile.mkdtemp(prefix="loops")
        memory = tempfile.mkdtemp(prefix="pedal")
        path = os.path.join(folder, "riff.wav")
        audio = random.Random(7306).randbytes(30_000 * 6)
        with wave.open(path, "wb") as file:
            file.setparams((2, 3, 44100, 30_000, "NONE", ""))
            file.writeframes(audio)
        other = subprocess.Popen([DRAG_SOURCE, path])
        self.addCleanup(other.wait)
        self.addCleanup(other.kill)
        with Program(simulate=f"--simulate={memory}") as program:
            program.ready()
            program.connected()
            program.get("Export tab.*").click()
            source = wait("the other window", lambda: window_of(other))
            drag(source, program.get("Add Loop 6").centre())
            wait("the file is in the row", lambda: program.get("Loop 6 name").description == "riff")
            button = program.get("Export", "push button")
            wait("export is possible", lambda: button.enabled)
            button.click()
            wait("the loop is sent", lambda: not program.find("Remove file from loop.*") and not program.window("7306 Export"))
        with wave.open(os.path.join(memory, "Loop 6.wav")) as file:
            self.assertTrue(file.readframes(file.getnframes()) == audio)


if __name__ == "__main__":
    unittest.main()
