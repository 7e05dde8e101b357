"""Programs that are killed at each of their calls that change files, or at any moment, and then do the same again:
crash_test.py LIBRARY TOOL STEPS [CASE...]. CRASH=long has longer loops, and three hundred moments."""

import concurrent.futures
import os
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
import wave

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "../e2e"))
from maker import Maker  # noqa: E402

LIBRARY, TOOL, STEPS = sys.argv.pop(1), sys.argv.pop(1), sys.argv.pop(1)
LONG = os.environ.get("CRASH") == "long"
DATED = r"20[2-9]\d-\d\d-\d\d \d\d-\d\d-\d\d(-\d\d)?"
TEMPORARY = re.compile(r"(^|/)(\.kzq7306-[^/]+\.part$|unfinished |kzq7306-run-)|\.(AppImage|previous)\.part$")


def loop(path, seed):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with wave.open(path, "wb") as file:
        file.setparams((2, 3, 44100, 0, "NONE", ""))
        file.writeframes(random.Random(seed).randbytes(6 * (30_000 if LONG else 1000)))


class Files:
    """What there is, without dates, without the numbers that keep names apart, and without what was noted later."""

    def __init__(self, folder):
        self.whole, self.temporary = set(), set()
        for at, folders, names in os.walk(folder):
            for name in names + [each for each in folders if TEMPORARY.search(each)]:
                path, content = os.path.join(at, name), b""
                if os.path.isfile(path):
                    with open(path, "rb") as file:
                        content = re.sub(rb'\s*"gone": true,', b"", file.read())
                name = re.sub(r"-\d+(?=\.wav$)", "", re.sub(DATED, "DATE", os.path.relpath(path, folder)))
                (self.temporary if TEMPORARY.search(name) else self.whole).add((name, content))
        self.names = {name for name, _ in self.whole}


class Deed:
    """Something that is done with files below a folder; `closed`: with so few ways to give them their names."""

    def __init__(self, prepare, words, closed=0):
        self.words, self.closed = words, closed
        self.made = tempfile.TemporaryDirectory()
        unittest.addModuleCleanup(self.made.cleanup)
        self.start = os.path.join(self.made.name, "start")
        os.mkdir(self.start)
        prepare(self)
        self.before, begin, folder = Files(self.start), time.monotonic(), self.copy("whole")
        assert self.run(folder, AT=0) == 0
        self.seconds = time.monotonic() - begin
        self.after = Files(folder)
        with open(folder + ".log", encoding="utf-8") as log:
            self.calls = log.read().splitlines()
        self.sound = set()  # what the next run made whole

    def copy(self, name):
        return shutil.copytree(self.start, os.path.join(self.made.name, name))

    def run(self, folder, seconds=None, **points):
        more = {"CRASH_BELOW": folder, "HOME": folder, "TMPDIR": folder if self.words[0] == TOOL else self.made.name}
        if points:
            points = {"HALF": "no", "CLOSED": self.closed, "LOG": folder + ".log"} | points
            more |= {"LD_PRELOAD": LIBRARY} | {"CRASH_" + name: str(value) for name, value in points.items()}
        with subprocess.Popen([word.replace("HERE", folder) for word in self.words], stdin=subprocess.DEVNULL, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, env=os.environ | more) as program:
            if seconds is not None:
                time.sleep(seconds)
                program.kill()
            said = program.communicate(timeout=60)[0]
        assert program.returncode in (0, -9), (self.words, program.returncode, said)
        return program.returncode

    def killed(self, when, seconds=None, **points):
        folder = self.copy(f"killed {when}")
        when = f"{self.words[1:]}, {self.closed} ways closed, killed {when} {points and self.calls[points['AT'] - 1]}"
        self.run(folder, seconds, **points)
        now = Files(folder)
        reserved = {(name, b"") for name in self.after.names} if self.closed == 3 else set()  # there is no other way
        foreign = now.whole - self.before.whole - self.after.whole - reserved
        assert not foreign, (when, "not whole", [(name, len(content)) for name, content in foreign])
        lost = {name for name in self.before.names & self.after.names - now.names if not name.startswith("pedal/")}
        assert not lost and self.before.whole & self.after.whole <= now.whole, (when, "lost", lost)
        for name, content in now.whole:
            for file in re.findall(r'"file": "([^"]+)"', content.decode()) if name.endswith("/backup.json") else ():
                assert os.path.join(os.path.dirname(name), file) in now.names, (when, f"{name} without {file}")
        audio = {content for name, content in self.after.whole if name.endswith(".wav")}
        for name, content in now.temporary:
            assert not name.endswith(".wav") or content in audio, (when, f"{name} is not whole")
        state = frozenset(now.whole), frozenset((re.sub(r"\d+-\w+\.part", "", name), text) for name, text in now.temporary)
        if state not in self.sound:
            assert self.run(folder, **({"AT": 0} if self.closed else {})) == 0  # on the same file system
            again = Files(folder)
            assert not again.temporary, (when, "left", sorted(name for name, _ in again.temporary))
            assert again.whole - reserved == self.after.whole, (when, "then", again.names ^ self.after.names)
            self.sound.add(state)
        shutil.rmtree(folder)


def some_saved(deed):
    for slot in 1, 3, 20:
        loop(f"{deed.start}/pedal/Loop {slot}.wav", slot)
    for name in "Loop 3.wav", ".kzq7306-3", "3.part":
        loop(f"{deed.start}/saved/{name}", 99)


def done_long_ago(deed, words, place):
    deed.words, words = words, deed.words
    assert deed.run(deed.start) == 0
    deed.words, place = words, os.path.join(deed.start, place)
    os.rename(os.path.join(place, max(os.listdir(place))), os.path.join(place, "2001-02-03 04-05-06"))


def one_backup(deed):
    some_saved(deed)
    shutil.rmtree(f"{deed.start}/saved")
    done_long_ago(deed, BACKUP, "saved")
    loop(f"{deed.start}/pedal/Loop 3.wav", 33)
    loop(f"{deed.start}/pedal/Loop 5.wav", 5)
    os.remove(f"{deed.start}/pedal/Loop 20.wav")


def two_programs(deed):
    for name in "loops.AppImage", "loops.AppImage.previous":
        loop(f"{deed.start}/apps/{name}", len(name))


BACKUP = [TOOL, "--simulate=HERE/pedal", "backup", "HERE/saved"]
KEEP = [STEPS, "--gtest_filter=Steps.Keep"]
MAKER = Maker("1.06", ["Louder"])
MAKER.server.handle_error = lambda *_: None  # who asks for something is killed
unittest.addModuleCleanup(shutil.rmtree, MAKER.folder)


def deeds():
    """How to make each."""
    for closed in range(4):
        yield some_saved, [TOOL, "--simulate=HERE/pedal", "import", "--all", "--to", "HERE/saved"], closed
    yield some_saved, [TOOL, "--simulate=HERE/pedal", "export", "HERE/saved/Loop 3.wav", "--slot", "7", "--yes"]
    yield one_backup, BACKUP
    yield one_backup, [TOOL, "--simulate=HERE/pedal", "restore", "HERE/saved", "--yes"]
    yield (lambda deed: None), [TOOL, "--simulate", "--host", MAKER.host, "--authorities", MAKER.authority, "firmware"]
    yield (lambda deed: done_long_ago(deed, KEEP, "share/kept")), KEEP
    for closed in 0, 3:
        yield two_programs, [STEPS, "--gtest_filter=Update.Install"], closed


class Crash(unittest.TestCase):
    def test_files_are_on_the_disk_before_they_have_their_names(self):
        for deed in DEEDS + [Deed(some_saved, [TOOL, "convert", "HERE/saved/Loop 3.wav", "--to", "HERE/saved/loop.wav"])]:
            for at, (call, path) in enumerate(call.split(" ", 1) for call in deed.calls):
                if call in ("link", "rename", "unsynced") and not TEMPORARY.search(path):
                    self.assertNotEqual(call, "unsynced", f"{path} had its name before it was on the disk: {deed.words}")
                    self.assertIn(f"fsync {os.path.dirname(path)}", deed.calls[at:], f"the name {path} is not")

    def test_at_each_call(self):
        for deed in DEEDS:
            self.assertGreater(len(deed.calls), 5, deed.words)
            with concurrent.futures.ThreadPoolExecutor(2) as pool:
                tries = [pool.submit(deed.killed, f"at {at}, half: {half}", AT=at, HALF=half)
                         for at, call in enumerate(deed.calls, 1)
                         for half in (("no", "yes") if call.startswith(("write ", "pwrite ")) else ("no",))]
                for each in tries:
                    each.result()
            print(f"{len(tries)} points, {len(deed.sound)} states: {deed.words[1:]}", flush=True)

    def test_at_any_moment(self):
        for count in range(300 if LONG else 20):
            deed = DEEDS[count % len(DEEDS)]
            seconds = random.uniform(0, deed.seconds)
            deed.killed(f"after {seconds} s", seconds)


if __name__ == "__main__":
    DEEDS = [Deed(*deed) for deed in deeds()]
    unittest.main()
