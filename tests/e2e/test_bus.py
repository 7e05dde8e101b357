"""The window with the real libusb and a pedal on an emulated bus."""

import os
import subprocess
import tempfile
import unittest

from driver import CTL, EMULATED_PEDAL, Program, choose, picture, wait


class Bus(unittest.TestCase):
    def bus(self, *words):
        """What a program has in its environment that finds the pedal."""
        pedal = subprocess.Popen(["umockdev-wrapper", EMULATED_PEDAL, *words], text=True,
                                 stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.addCleanup(pedal.communicate)  # ends it
        return {"LD_PRELOAD": "libumockdev-preload.so.0", "UMOCKDEV_DIR": pedal.stdout.readline().strip()}

    def test_the_system_rule_is_missing(self):
        folder = tempfile.mkdtemp()
        with Program(simulate=None, environment=self.bus("missing-rule")) as program:
            program.ready()
            program.get("7306 · 6 loops · firmware 1.05 · nothing has been backed up yet")
            picture("connected")
            program.get("Loop 1, select").click()
            button = program.get("Import", "push button")
            wait("import is possible", lambda: button.enabled)
            button.click()
            choose(program, folder)
            # "not in force" where the developer has it installed
            program.get("Failed: Loops cannot be imported: the system rule is (missing|not in force)")
            picture("missing-rule")
            self.assertEqual(os.listdir(folder), [])
            program.get("Set up", "push button").click()
            answer = program.get("Not Now|OK", "push button")  # OK where nothing asks for the password
            picture("set-up")
            answer.click()

    def test_another_program_has_the_pedal(self):
        bus = self.bus()
        other = subprocess.Popen([CTL, "watch"], env={**os.environ, **bus}, stdout=subprocess.PIPE)
        self.addCleanup(other.communicate)
        self.addCleanup(other.kill)
        other.stdout.readline()
        with Program(simulate=None, environment=bus) as program:
            program.ready()
            program.get(f"kzq7306ctl \\(process {other.pid}\\) is using the pedal")
            picture("in-use")
            other.terminate()
            program.get("7306 · 6 loops · .*")
            picture("free-again")


if __name__ == "__main__":
    unittest.main()
