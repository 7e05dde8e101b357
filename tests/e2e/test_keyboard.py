"""Without a mouse, and without eyes."""

import os
import tempfile
import unittest

from driver import Ear, Program, choose, key, wait, xdotool

LOOPS = (1, 2, 3, 5, 8, 13)


class Keyboard(unittest.TestCase):
    def test_import_by_keys_alone(self):
        folder = tempfile.mkdtemp()
        with Program() as program:
            program.ready()
            program.connected()
            program.get("Loop 13, select")
            ear = Ear("focused")
            self.addCleanup(ear.close)
            key("Tab", "Tab", "Tab", "Tab")
            ear.wait("Loop 1 name")
            key("shift+Tab", "space")
            box = program.get("Loop 1, select")
            wait("the first loop is checked", lambda: box.checked)
            loops = [part for number in LOOPS for part in (f"Loop {number}, select", f"Loop {number} name")]
            rest = ["Select all loops", "Deselect all loops", "Erase", "Import"]
            key(*["Tab"] * (len(loops) - 1 + len(rest)))
            ear.wait("Import")
            self.assertEqual(
                ear.heard,
                ["Export tab, computer to pedal", "Menu", *loops[:2], loops[0], *loops[1:], *rest],
            )
            key("Return")
            choose(program, folder)
            wait("the loop is saved", lambda: os.listdir(folder) == ["Loop 1.wav"])
            wait("the first loop is no more checked", lambda: not box.checked)

    def test_a_held_key_does_not_answer_the_question_that_it_raised(self):
        """The toolkit does not see that these repeats are some: their presses come too late for it."""
        with Program() as program:
            program.ready()
            program.connected()
            box = program.get("Loop 1, select")
            box.click()
            erase = program.get("Erase", "push button")
            wait("erasing is possible", lambda: erase.enabled)
            erase.node.get_component_iface().grab_focus()
            wait("the focus", lambda: erase.focused)
            repeats = ["keyup", "--delay", 4, "Return", "keydown", "--delay", 30, "Return"] * 30
            xdotool("keydown", "Return", "sleep", 0.5, *repeats, "keyup", "Return")
            self.assertTrue(program.find("Yes"))
            program.answered("Yes", "Escape")
            self.assertTrue(box.enabled and box.checked)

