"""Starting, plugging and unplugging the pedal, and quitting."""

import unittest

from driver import Program, key, wait


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

    def ends(self, program, act):
        act()
        status, seconds = program.wait_end()
        self.assertEqual(status, 0)
        self.assertLess(seconds, 2)
