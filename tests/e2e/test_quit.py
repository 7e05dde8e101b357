"""The program ends at once, whatever it is doing."""

import os
import struct
import tempfile
import unittest
import wave

from driver import Program, choose, key, parent_of, wait

LOOP = "Loop 1, select"


class Quit(unittest.TestCase):
    def ends(self, program, act=None):
        """Ends the program, by a signal if necessary; it must leave no working files."""
        (act or program.terminate)()
        status, seconds = program.wait_end()
        self.assertEqual(status, 0)
        self.assertLess(seconds, 2)
        self.assertEqual(program.working_files(), [])

    def importing(self, program):
        program.ready()
        program.connected()
        program.get(LOOP).click()
        button = program.get("Import", "push button")
        wait("import is possible", lambda: button.enabled)
        button.click()

    def test_silent_pedal(self):
        for act in (None, lambda: key("ctrl+q")):
            with Program("--fault", "silence@in:20") as program:
                self.importing(program)
                choose(program, tempfile.mkdtemp())
                program.ready("7306 Import")
                self.ends(program, act)

    def test_conversion(self):
        path = os.path.join(tempfile.mkdtemp(), "long.wav")
        with wave.open(path, "wb") as file:
            file.setparams((2, 2, 96000, 96000 * 1200, "NONE", ""))
            file.writeframes(bytes(4))
        os.truncate(path, 44 + 4 * 96000 * 1200)
        with open(path, "r+b") as file:
            file.seek(4)
            file.write(struct.pack("<I", os.path.getsize(path) - 8))
            file.seek(40)
            file.write(struct.pack("<I", os.path.getsize(path) - 44))
        with Program() as program:
            program.ready()
            program.connected()
            program.get("Export tab.*").click()
            program.get("Add Loop 4").click()
            choose(program, path)
            helpers = wait("the conversion", lambda: program.helpers())
            self.ends(program)
            wait("its helpers are gone", lambda: not any(map(parent_of, helpers)))
