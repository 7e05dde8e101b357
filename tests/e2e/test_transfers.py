"""Files onto the pedal."""

import os
import random
import subprocess
import tempfile
import time
import unittest
import wave

from driver import DRAG_SOURCE, Program, drag, key, picture, wait, window_of


class Transfers(unittest.TestCase):
    def test_three_files_dragged_from_another_program_onto_one_row_and_a_refused_and_a_spoilt_export(self):
        folder = tempfile.mkdtemp(prefix="loops")
        memory = tempfile.mkdtemp(prefix="pedal")
        audio = random.Random(7306).randbytes(30_000 * 6)
        paths = [os.path.join(folder, name) for name in ("riff.wav", "verse.wav", "chorus.wav")]
        for path in paths:
            with wave.open(path, "wb") as file:
                file.setparams((2, 3, 44100, 30_000, "NONE", ""))
                file.writeframes(audio if path == paths[0] else bytes(len(audio)))
        other = subprocess.Popen([DRAG_SOURCE, *paths])
        self.addCleanup(other.wait)
        self.addCleanup(other.kill)
        with Program("--fault", "refuse@E2", "--fault", "alter@out:1", simulate=f"--simulate={memory}") as program:
            program.ready()
            program.connected()
            program.get("Export tab.*").click()
            source = wait("the other window", lambda: window_of(other)).centre()
            drag(source, program.get("Add Loop 6").centre())
            wait("the file is in the row", lambda: program.get("Loop 6 name").description == "riff")
            line = program.get("Failed: Only the first of 3 files was used", "push button")
            self.assertEqual([item.name for item in program.items() if item.name.startswith("Remove file")],
                             ["Remove file from loop 6"])
            picture("three-files")
            line.click()
            program.get(".*failed, Only the first of 3 files was used. Each row takes one file.")
            key("Escape")
            program.get("7306 · 0 loops.*", "push button")
            button = program.get("Export", "push button")

            def export():
                wait("export is possible", lambda: button.enabled)
                button.click()

            export()
            program.get("Failed: Loop 6 was not written: the pedal refused it", "push button")
            self.assertEqual(os.listdir(memory), [])
            picture("refused-export")
            key("alt+l")
            time.sleep(0.3)  # no menu shows in the tree
            key("v")

            def stage_again():
                program.get("Stage again", "push button").press()
                wait("the file is in the row again", lambda: program.get("Loop 6 name").description == "riff")
                export()

            stage_again()
            program.get("Failed: Loop 6 on the pedal differs from its file", "push button")
            picture("differs")
            stage_again()
            program.get("Yes", "push button").click()  # what differs is overwritten
            program.get("Loop 6 verified", "push button")
            picture("verified")
        with wave.open(os.path.join(memory, "Loop 6.wav")) as file:
            self.assertTrue(file.readframes(file.getnframes()) == audio)


if __name__ == "__main__":
    unittest.main()
