"""A screen reader beside the program, and what it says."""

import collections
import os
import re
import shutil
import subprocess
import tempfile
import time
import unittest

from driver import wait


class Orca:
    """Speaks into its log: no voice is needed for that."""

    def __init__(self):
        if not shutil.which("orca"):
            raise unittest.SkipTest("orca is not installed")
        self.folder = tempfile.mkdtemp(prefix="orca")
        self.log = os.path.join(self.folder, "log")
        self.seen = 0
        with open(os.path.join(self.folder, "orca-customizations.py"), "w") as file:
            file.write("from orca import debug\ndebug.debugFile.reconfigure(line_buffering=True)\n")
        words = ["orca", "--disable=braille", "--user-prefs", self.folder, "--debug-file", self.log]
        self.process = subprocess.Popen(words, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def __enter__(self):
        try:
            wait("it begins", lambda: self.process.poll() is not None or self.spoken(), 30)
        except AssertionError:
            self.process.kill()
            raise
        if self.process.poll() is not None:
            raise unittest.SkipTest("another orca runs, which lets no second one be")
        self.hears("Screen reader on.")
        return self

    def __exit__(self, *error):
        if error[0]:
            print("\n".join(self.spoken()))
            if folder := os.environ.get("PICTURES"):
                shutil.copy(self.log, folder)
        self.process.kill()
        self.process.wait()

    def spoken(self):
        """All that it has said so far."""
        try:
            with open(self.log, errors="replace") as file:
                return [text for text in re.findall(r"SPEECH OUTPUT: '(.*?)'(?: voice=\w+)?{", file.read()) if text.strip()]
        except FileNotFoundError:
            return []

    def rests(self):
        """Waits until it has worked off what happened."""
        sizes = collections.deque(maxlen=20)

        def idle():
            time.sleep(0.05)
            sizes.append(os.path.getsize(self.log))
            return len(sizes) == sizes.maxlen and len(set(sizes)) == 1

        wait("the screen reader has nothing to do", idle, 30)
        self.seen = len(self.spoken())

    def hears(self, sentence):
        """Waits until it has said this since the last time."""

        def said():
            new = self.spoken()[self.seen :]
            return next((i + 1 for i, words in enumerate(new) if sentence in words), 0)

        self.seen += wait(f"{sentence!r} is spoken", said, 30)
