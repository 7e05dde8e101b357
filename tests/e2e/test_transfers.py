"""Loops from the pedal, files onto it, and loops erased."""

import os
import subprocess
import tempfile
import unittest

from driver import CTL, Ear, Program, key, type_text, wait


def ctl(*words):
    subprocess.run([CTL, *words], check=True, capture_output=True)


def contents(folder):
    """The loops in a folder; what begins with a dot is under way."""
    found = {}
    for name in os.listdir(folder):
        if not name.startswith("."):
            with open(os.path.join(folder, name), "rb") as file:
                found[name] = file.read()
    return found


def choose(program, path):
    """Types the path into the file chooser."""
    field = program.get("File name:|Directory:", "text")
    wait("the keyboard is in the chooser", lambda: field.focused)
    key("ctrl+a")
    type_text(path)
    key("Return")


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


if __name__ == "__main__":
    unittest.main()
