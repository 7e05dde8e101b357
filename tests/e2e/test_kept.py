"""What was erased comes back."""

import os
import random
import tempfile
import unittest
import wave

from driver import Program, key, picture, wait


class Kept(unittest.TestCase):
    def test_an_erase_is_undone_by_two_keys_bit_for_bit(self):
        memory, home = tempfile.mkdtemp(prefix="pedal"), tempfile.mkdtemp(prefix="home")
        audio = random.Random(5).randbytes(100_000 * 6)
        path = os.path.join(memory, "Loop 5.wav")
        with wave.open(path, "wb") as file:
            file.setparams((2, 3, 44100, 100_000, "NONE", ""))
            file.writeframes(audio)
        with Program(simulate=f"--simulate={memory}", environment={"HOME": home}) as program:
            program.ready()
            program.connected()
            program.get("Loop 5, select").click()
            erase = program.get("Erase", "push button")
            wait("erasing is possible", lambda: erase.enabled)
            erase.click()
            program.get("Yes").press()
            program.get("Loop 5 erased", "push button")
            self.assertEqual(os.listdir(memory), [])
            key("ctrl+z")
            program.ready("Bring Back")
            program.get("Loop 5, erased today .*, 2 seconds, to slot 5, empty", "check box")
            picture("bring-back")
            key("Return")
            program.get("Loop 5 written", "push button")
        with wave.open(path) as file:
            self.assertTrue(file.readframes(file.getnframes()) == audio)


if __name__ == "__main__":
    unittest.main()
