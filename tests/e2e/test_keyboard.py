"""Without a mouse, and without eyes."""

import os
import random
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
        if keys:
            key(*keys)
        self.pressed += len(keys)

    def count(self):
        before, self.pressed = self.pressed, 0
        return before


def sound(name, frames):
    path = os.path.join(tempfile.mkdtemp(prefix="sound"), name)
    with wave.open(path, "wb") as file:
        file.setparams((2, 3, 44100, frames, "NONE", ""))
        file.writeframes(random.Random(frames).randbytes(frames * 6))
    return path


def three_loops():
    return pedal(**{f"L{loop}": 44100 * seconds for loop, seconds in ((3, 2), (8, 1), (20, 3))})


class Keyboard(unittest.TestCase):
    def test_import_of_two_loops_and_a_file_staged_by_keys_alone(self):
        loops = three_loops()
        folder = tempfile.mkdtemp()
        hands = Person()
        with Program(simulate=f"--simulate={loops}") as program:
            program.ready()
            program.connected()
            ear = Ear("showing")
            self.addCleanup(ear.close)

            def at(name, role=None):
                wait(f"the keyboard is at {name}", lambda: program.find(name, role).focused)

            program.get("Loop 3, select")
            at("Import tab.*")
            hands.press("Tab", "Tab", "Tab", "space", "End", "space", "Tab", "Tab", "Tab", "Tab")
            at("Import", "push button")
            hands.press("Return")
            choose(program, folder)
            ear.wait(f"2 loops saved in {os.path.basename(folder)}. Show, button.")
            self.assertEqual(sorted(os.listdir(folder)), ["Loop 20.wav", "Loop 3.wav"])
            self.assertEqual(hands.count(), 11)
            at("Loop 20, select")
            hands.press("ctrl+2")
            at("Add Loop 1")
            hands.press("Down", "Return")
            file = sound("riff.wav", 44100)
            choose(program, file)
            wait("the file is in its row", lambda: program.get("Add Loop 2").description == "riff, 1 second, staged")
            # a chooser does not always give the keyboard back here
            xdotool("search", "--name", "^7306 Loop Manager", "windowactivate", "--sync")
            program.ready()
            hands.press("ctrl+e")
            self.assertEqual(hands.count(), 4)
            ear.wait("Loop 2 written.")
            with open(file, "rb") as left, open(os.path.join(loops, "Loop 2.wav"), "rb") as right:
                self.assertTrue(left.read() == right.read(), "bit for bit")

    def test_a_screen_reader_speaks_the_way_to_an_erase(self):
        loops = three_loops()
        hands = Person()
        with Orca() as orca, Program(simulate=f"--simulate={loops}") as program:
            program.ready()
            program.connected()
            for keys, sentences in (
                ([], ["7306 connected, 3 loops, 23 minutes 54 seconds free.", "Import tab, pedal to computer page tab."]),
                (["Tab"], ["Export tab, computer to pedal page tab."]),
                (["Tab"], ["Menu push button."]),
                (["Tab"], ["Loop 3, select check box not checked.", "2 seconds."]),
                (["Down"], ["Loop 8, select check box not checked.", "1 second."]),
                (["space"], ["checked"]),
                (["Right"], ["Loop 8 name label."]),
                (["End"], ["Loop 20 name label."]),
                (["Left"], ["Loop 20, select check box not checked.", "3 seconds."]),
                (["ctrl+2"], ["Add Loop 1 push button."]),
                (["Next"], ["Add Loop 10 push button."]),
                (["ctrl+1"], ["Loop 20, select check box not checked.", "3 seconds."]),
                (["Tab"], ["Select all loops push button."]),
                (["Tab"], ["Deselect all loops push button."]),
                (["Tab"], ["Erase push button."]),
                (["Return"], ["Erased loop audio cannot be restored. Would you like to continue?", "No push button."]),
            ):
                hands.press(*keys)
                for sentence in sentences:
                    orca.hears(sentence)
            orca.rests()  # the question takes no key before it could be read
            hands.press("Tab")
            orca.hears("Yes push button.")
            hands.press("Return")
            orca.hears("Loop 8 erased.")
            self.assertEqual(sorted(os.listdir(loops)), ["Loop 20.wav", "Loop 3.wav"])
            self.assertEqual(hands.count(), 17)
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
