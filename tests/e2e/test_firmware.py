"""Firmware from the maker, or from a file, to the pedal; and the menu for it."""

import unittest

from driver import Program, wait
from maker import Maker

OFFER = r"KZQ7306 1\.6 is now available.you have 1\.5\. Would you like to install it now\?"


class Firmware(unittest.TestCase):
    def test_offer_is_installed(self):
        maker = Maker("1.06", ["Loops start sooner.", "Hum is gone."])
        self.addCleanup(maker.close)
        with Program("--authorities", maker.authority, host=maker.host) as program:
            program.ready()
            program.connected()
            wait("the offer", lambda: self.offered(program))
            window = program.window("Firmware Update")
            self.assertTrue(program.find(OFFER))
            self.assertIn("Hum is gone.", program.get("Release notes").text())
            program.get("Install the firmware", "push button").click()
            bar = program.get("Firmware installation")
            wait("the bar moves", lambda: bar.value() > 0)
            wait("the pedal is away", lambda: program.find("No pedal connected"))
            # it comes back twice, at first without loops
            wait("the loops are back", lambda: program.get("Loop 1, select").enabled, 30)
            wait("the ending is said", lambda: program.find(r"Firmware 1\.06 runs on the pedal\."), 30)
            program.get("OK", "push button").click()
            wait("the installation's windows are gone", lambda: not program.window("Firmware Update"))

    def offered(self, program):
        """Opened with the mouse, as often as it takes until the offer has come from the server."""
        program.get("Menu", "push button").click()
        program.get("Firmware Update...", "menu item").click()
        wait("an answer", lambda: program.find("You're up to date!") or program.window("Firmware Update"))
        if program.window("Firmware Update"):
            return True
        program.answered("You're up to date!", "Return")
        return False
