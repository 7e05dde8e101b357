"""Loops from the pedal, files onto it, and loops erased."""

import os
import random
import subprocess
import tempfile
import unittest
import wave

from driver import CTL, DRAG_SOURCE, Ear, Program, choose, drag, key, type_text, wait, window_of


def ctl(*words):
    subprocess.run([CTL, *words], check=True, capture_output=True)


def contents(folder):
    """The loops in a folder; files that start with a dot are being written."""
    found = {}
    for name in os.listdir(folder):
        if not name.startswith("."):
            with open(os.path.join(folder, name), "rb") as file:
                found[name] = file.read()
    return found


class Transfers(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="loops")

    def memory(self):
        """A folder that is the pedal's memory: the built-in loops."""
        folder = tempfile.mkdtemp(prefix="pedal")
        ctl("--simulate", "import", "--all", "--to", folder)
        return folder

    def test_import_under_a_name_of_its_own(self):
        expected = contents(self.memory())
        with Program() as program:
            program.ready()
            program.connected()
            program.get("Loop 3 name").click()
            wait("the name is being edited", lambda: program.find("Loop 3 name", "text"))
            key("ctrl+a")
            type_text("Verse: A/B")
            key("Escape")
            wait("the name", lambda: program.get("Loop 3 name", "label").description == "Verse: A/B")
            for number in (3, 5):
                box = program.get(f"Loop {number}, select")
                if not box.checked:
                    box.click()
                wait("it is checked", lambda: box.checked)
            ear = Ear("showing")
            program.get("Import", "push button").click()
            choose(program, self.folder)
            ear.wait("7306 Import")
            wait("the progress panel is gone", lambda: not program.window("7306 Import"))
            saved = contents(self.folder)
            self.assertEqual(sorted(saved), ["Loop 5.wav", "Verse: A-B.wav"])
            self.assertTrue(saved["Loop 5.wav"] == expected["Loop 5.wav"])
            self.assertTrue(saved["Verse: A-B.wav"] == expected["Loop 3.wav"])
            wait("nothing is checked", lambda: not program.get("Loop 5, select").checked)
            self.assertEqual(program.get("Loop 3 name").description, "Loop 3")

    def sound(self, name, frames):
        """A file of noise, and its audio."""
        path = os.path.join(self.folder, name)
        audio = random.Random(frames).randbytes(frames * 6)
        with wave.open(path, "wb") as file:
            file.setparams((2, 3, 44100, frames, "NONE", ""))
            file.writeframes(audio)
        return path, audio

    def send(self, program, answer):
        """Exports what is staged."""
        button = program.get("Export", "push button")
        wait("export is possible", lambda: button.enabled)
        button.click()
        if answer:
            program.get("Overwriting loop slots will erase audio on the 7306..*")
            program.get(answer, "push button").click()
        wait("the loops are sent", lambda: not program.find("Remove file from loop.*") and not program.window("7306 Export"))

    def audio_in(self, folder, name):
        with wave.open(os.path.join(folder, name)) as file:
            return file.readframes(file.getnframes())

    def test_export_onto_an_occupied_slot(self):
        path, audio = self.sound("riff.wav", 50_000)
        memory = self.memory()
        before = contents(memory)
        with Program(simulate=f"--simulate={memory}") as program:
            program.ready()
            program.connected()
            program.get("Export tab.*").click()
            program.get("Overwrite Loop 2").click()
            choose(program, path)
            wait("the file is in the row", lambda: program.get("Loop 2 name").description == "riff")
            self.send(program, "Yes")
        after = contents(memory)
        self.assertEqual(sorted(after), sorted(before))
        self.assertEqual([name for name in after if after[name] != before[name]], ["Loop 2.wav"])
        self.assertTrue(self.audio_in(memory, "Loop 2.wav") == audio)

    def test_file_dragged_from_another_program(self):
        path, audio = self.sound("riff.wav", 30_000)
        memory = self.memory()
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
            self.send(program, None)
        self.assertTrue(self.audio_in(memory, "Loop 6.wav") == audio)

    def test_erase(self):
        memory = self.memory()
        before = contents(memory)
        with Program(simulate=f"--simulate={memory}") as program:
            program.ready()
            program.connected()
            boxes = [program.get(f"Loop {number}, select") for number in (2, 13)]
            for box in boxes:
                box.click()
            erase = program.get("Erase", "push button")
            wait("erasing is possible", lambda: erase.enabled)
            for answer in ("No", "Yes"):
                erase.click()
                program.get("Erased loop audio cannot be restored..*")
                program.get(answer, "push button").click()
                program.gone("Erased loop audio cannot be restored..*")
                if answer == "No":
                    self.assertTrue(all(box.checked for box in boxes))
                    self.assertEqual(contents(memory), before)
            wait("the rows are empty", lambda: not any(box.enabled for box in boxes))
            program.get("Space remaining: 23 min, .*")
        self.assertEqual(contents(memory), {name: before[name] for name in before if name not in ("Loop 2.wav", "Loop 13.wav")})


if __name__ == "__main__":
    unittest.main()
