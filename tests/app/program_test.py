"""The window's program without a desktop: program_test.py PROGRAM TOOL [CASE...]"""

import os
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM, TOOL = sys.argv.pop(1), sys.argv.pop(1)
PATIENCE = 30


class Program(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.surroundings = {"HOME": self.folder, "TMPDIR": self.folder, "PATH": os.environ["PATH"],
                             "ASAN_OPTIONS": os.environ.get("ASAN_OPTIONS", "")}

    def at(self, name):
        return os.path.join(self.folder, name)

    def test_what_keeps_it_from_starting(self):
        with open(self.at("kept"), "w", encoding="utf-8") as file:
            file.write("mine")
        screen = {"QT_QPA_PLATFORM": "offscreen"}
        for status, options, more, why in (
                (1, ["--simulate"], {}, "no display was found. kzq7306ctl works without one."),
                (2, ["--simulate", "--record", ""], screen, "--record requires the name of a file."),
                (2, ["--simulate", "--fault", "unplug"], screen, "KIND@WHERE"),
                (6, ["--simulate=" + self.at("none")], screen, "There is no folder"),
                (6, ["--authorities", self.at("none")], screen, "cannot read"),
                (6, ["--simulate", "--record", self.at("kept")], screen, "already exists")):
            done = subprocess.run([PROGRAM, *options], env=self.surroundings | more, capture_output=True, text=True,
                                  timeout=PATIENCE, check=False)
            self.assertEqual(done.returncode, status, (options, done.stderr))
            self.assertRegex(done.stderr, f"(?m)^kzq7306: .*{why}")
        with open(self.at("kept"), encoding="utf-8") as file:
            self.assertEqual(file.read(), "mine")

    def test_it_can_say_that_it_starts(self):
        said = [subprocess.run([PROGRAM, word], env=self.surroundings, capture_output=True, text=True, check=True,
                               timeout=PATIENCE).stdout.strip() for word in ("--self-check", "--version")]
        self.assertEqual(said[0], f"7306 Loop Manager {said[1].split()[1]} starts")

    def test_it_records_until_its_end(self):
        recording = self.at("session")
        program = subprocess.Popen([PROGRAM, "--simulate", "--record", recording, "--host", "localhost:9"],
                                   env=self.surroundings | {"QT_QPA_PLATFORM": "offscreen"},
                                   stderr=subprocess.DEVNULL)
        self.addCleanup(program.kill)
        end = time.monotonic() + PATIENCE
        while not os.path.exists(recording) or " ec 2a 0001 0000 60\n" not in self.recorded():
            self.assertLess(time.monotonic(), end, "the second half of the table is read")
            time.sleep(0.05)
        program.terminate()
        self.assertEqual(program.wait(timeout=PATIENCE), 0)
        self.assertTrue(self.recorded().endswith("\n"))
        subprocess.run([TOOL, "recording", recording, "--to-pcapng", self.at("capture")], env=self.surroundings,
                       check=True, capture_output=True, timeout=PATIENCE)

    def recorded(self):
        with open(self.at("session"), encoding="utf-8") as source:
            return source.read()


if __name__ == "__main__":
    unittest.main()
