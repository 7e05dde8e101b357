"""Without a mouse, and without eyes."""

import os
import tempfile
import unittest
import wave

from driver import Ear, Program, choose, key, wait, xdotool
from screen_reader import Orca
from test_status import pedal


class Person:
    """Counts the keys that it presses, but for those that are typed into a file chooser."""

    def __init__(self):
        self.pressed = 0

    def press(self, *keys):
        key(*keys)
        self.pressed += len(keys)

    def count(self):
        before, self.pressed = self.pressed, 0
        return before


def sound(name, frames):
    path = os.path.join(tempfile.mkdtemp(prefix="sound"), name)
    with wave.open(path, "wb") as file:
        file.setparams((2, 3, 44100, frames, "NONE", ""))
        file.writeframes(bytes(frames * 6))
    return path


class Keyboard(unittest.TestCase):
    def test_import_export_and_erase_by_keys_alone_as_a_screen_reader_speaks_it(self):
        loops = pedal(**{f"L{loop}": 44100 * seconds for loop, seconds in ((3, 2), (8, 1), (20, 3))})
        folder = tempfile.mkdtemp()
        hands = Person()
        with Orca() as orca, Program(simulate=f"--simulate={loops}") as program:
            ear = Ear("showing")
            self.addCleanup(ear.close)
            program.ready()
            program.connected()
            orca.hears("7306 connected, 3 loops, 23 minutes 54 seconds free.")
            orca.hears("Import tab, pedal to computer page tab.")
            hands.press("Tab", "Tab", "Tab")
            orca.hears("Loop 3, select check box not checked.")
            orca.hears("2 seconds.")
            hands.press("space")
            orca.hears("checked")
            hands.press("End")
            orca.hears("Loop 20, select check box not checked.")
            hands.press("Right")
            orca.hears("Loop 20 name label.")
            hands.press("Left", "space")
            orca.hears("checked")
            hands.press("Tab", "Tab", "Tab", "Tab")
            orca.hears("Import push button.")
            hands.press("Return")
            choose(program, folder)
            ear.wait(f"2 loops saved in {os.path.basename(folder)}. Show, button.")
            self.assertEqual(sorted(os.listdir(folder)), ["Loop 20.wav", "Loop 3.wav"])
            self.assertEqual(hands.count(), 13)

            program.ready()
            orca.rests()
            hands.press("ctrl+2")
            orca.hears("Add Loop 1 push button.")
            hands.press("Down")
            orca.hears("Add Loop 2 push button.")
            hands.press("Return")
            choose(program, sound("riff.wav", 44100))
            row = program.get("Add Loop 2")
            wait("the file is in its row", lambda: row.description == "riff, 1 second, staged")
            orca.rests()
            hands.press("Tab")
            orca.hears("Export push button.")
            hands.press("Return")
            orca.hears("Loop 2 written.")
            self.assertEqual(hands.count(), 5)

            program.ready()
            orca.rests()
            hands.press("ctrl+1")
            orca.hears("Loop 20, select check box not checked.")
            hands.press("Home", "Down", "Down")
            orca.hears("Loop 8, select check box not checked.")
            hands.press("space")
            orca.hears("checked")
            hands.press("Tab", "Tab", "Tab")
            orca.hears("Erase push button.")
            hands.press("Return")
            orca.hears("Erased loop audio cannot be restored. Would you like to continue?")
            orca.hears("No push button.")
            orca.rests()  # the question takes no key before it could be read
            hands.press("Tab")
            orca.hears("Yes push button.")
            hands.press("Return")
            orca.hears("Loop 8 erased.")
            self.assertEqual(sorted(os.listdir(loops)), ["Loop 2.wav", "Loop 20.wav", "Loop 3.wav"])
            self.assertEqual(hands.count(), 11)
            program.ready()
            orca.rests()
            hands.press("ctrl+p")
            orca.hears("7306 disconnected.")

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
