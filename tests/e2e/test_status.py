"""What the window says about what went wrong."""

import os
import subprocess
import tempfile
import unittest
import wave

from driver import Ear, Program, choose, key, picture, wait

# Becomes the command, whose process number it keeps. Mounting in there needs no rights outside.
NAMESPACES = ["unshare", "--user", "--map-current-user", "--keep-caps", "--mount"]


def pedal(**loops):
    """A folder for the simulated pedal."""
    folder = tempfile.mkdtemp(prefix="pedal")
    for name, frames in loops.items():
        with wave.open(os.path.join(folder, f"Loop {name[1:]}.wav"), "wb") as file:
            file.setparams((2, 3, 44100, frames, "NONE", ""))
            file.writeframes(bytes(frames * 6))
    return folder


def on_a_disk(folder, options):
    """Words before a command that has a disk of its own at `folder`, which nobody else sees."""
    script = f'mount -t tmpfs -o {options} tmpfs "$1" && shift && exec "$@"'
    words = [*NAMESPACES, "sh", "-c", script, "sh", folder]
    if subprocess.run([*words, "true"], capture_output=True, check=False).returncode:
        raise unittest.SkipTest("no disk can be mounted here")
    return words


class Status(unittest.TestCase):
    def test_a_disk_that_takes_only_one_of_two_loops(self):
        folder = tempfile.mkdtemp()
        simulate = f"--simulate={pedal(L1=1000, L2=200_000)}"
        full = on_a_disk(folder, "nr_inodes=2")  # the folder itself and one file
        with Program(simulate=simulate, within=full) as program:
            program.ready()
            program.connected()
            program.get("7306 · 2 loops · firmware .*")
            ear = Ear("showing")
            self.addCleanup(ear.close)
            program.get("Select all loops").click()
            button = program.get("Import", "push button")
            wait("import is possible", lambda: button.enabled)
            button.click()
            choose(program, folder)
            sentence = "Failed: 1 of 2 loops saved: no space left on the disk"
            program.get(sentence, "push button")
            ear.wait(sentence + ". Try again, button.")
            self.assertEqual(os.listdir(f"/proc/{program.process.pid}/root{folder}"), ["Loop 1.wav"])
            picture("full-disk")
            key("ctrl+r")
            program.get(".*failed, 1 of 2 loops saved. No space left on .*Loop 2 is still only on the pedal.")
            picture("full-disk-list")
            program.get("Try again", "push button").press()
            box = program.get("Loop 2, select")
            wait("the loop that is missing is checked", lambda: box.checked)
            self.assertFalse(program.get("Loop 1, select").checked)


if __name__ == "__main__":
    unittest.main()
