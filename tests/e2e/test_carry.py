"""Files dragged into the window, and loops dragged out of it."""

import os
import subprocess
import tempfile
import unittest
import wave

from driver import DRAG_SOURCE, DROP_TARGET, Program, choose, drag, picture, wait, window_of


class Carry(unittest.TestCase):
    def start(self, *command):
        other = subprocess.Popen(command)
        self.addCleanup(other.wait)
        self.addCleanup(other.kill)
        return wait("the other window", lambda: window_of(other))

    def test_files_dropped_between_the_rows_go_to_the_next_free_ones(self):
        folder = tempfile.mkdtemp(prefix="loops")
        paths = [os.path.join(folder, name) for name in ("riff.wav", "verse.wav", "notes.wav")]
        for path in paths[:2]:
            with wave.open(path, "wb") as file:
                file.setparams((2, 3, 44100, 0, "NONE", ""))
                file.writeframes(bytes(6 * 44100))
        with open(paths[2], "w") as file:
            file.write("no sound")
        source = self.start(DRAG_SOURCE, *paths).centre()
        with Program(simulate=f"--simulate={tempfile.mkdtemp(prefix='pedal')}") as program:
            program.ready()
            program.connected()
            tab = program.get("Export tab.*")

            def opened():
                return program.find("Add Loop 5")

            drag(source, tab.centre(), opened)  # it opens under the drag
            for loop, name in ((1, "riff"), (2, "verse")):  # converted in any order
                wait("it is in its row", lambda: program.get(f"Loop {loop} name").description == name)
            program.get('Failed: Only 2 of 3 files were used: "notes.wav" is not readable', "push button")
            gap = [(a + b) // 2 for a, b in zip(program.get("Add Loop 5").centre(), program.get("Add Loop 6").centre())]

            def summed():
                found = program.find("2 of 3 files fit, notes cannot be read", "push button")
                if found:
                    picture("held")
                return found

            drag(source, gap, summed)
            wait("both are in the next rows", lambda: program.get("Loop 4 name").description == "verse")
            picture("dropped-between")

    def test_loops_dragged_out_are_what_an_import_writes(self):
        dropped, imported = tempfile.mkdtemp(prefix="dropped"), tempfile.mkdtemp(prefix="imported")
        target = self.start(DROP_TARGET, dropped)
        with Program() as program:
            program.ready()
            program.connected()
            for loop in (1, 3):
                box = program.get(f"Loop {loop}, select")
                box.click()
                wait("it is checked", lambda: box.checked)
            drag(program.get("Loop 3 name").centre(), target.centre(), lambda: target.name == "Files are held")
            wait("they are copied", lambda: target.name == "Files are here")
            picture("dragged-out")
            program.get("Import", "push button").click()
            choose(program, imported)
            program.get("2 loops saved in.*", "push button")
        self.assertEqual(sorted(os.listdir(dropped)), ["Loop 1.wav", "Loop 3.wav"])
        for name in os.listdir(dropped):
            with open(os.path.join(dropped, name), "rb") as left, open(os.path.join(imported, name), "rb") as right:
                self.assertTrue(left.read() == right.read(), name)


if __name__ == "__main__":
    unittest.main()
