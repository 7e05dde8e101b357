"""kzq7306-release as the maker uses it: release_test.py PROGRAM STAND-IN [CASE...]"""

import os
import ssl
import subprocess
import sys
import tempfile
import time
import unittest
import urllib.request

PROGRAM, STAND_IN = sys.argv.pop(1), sys.argv.pop(1)
FIRMWARE = "assets/7306/firmware/"
IMAGE = b"7306 firmware 1.06" + bytes(range(256)) * 100


class Release(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.site = self.at("site")
        self.write("pedal.bin", IMAGE)
        self.key = self.at("maker.key")
        self.trusted = self.run_it(0, "keys", self.key).split("KZQ_UPDATE_KEYS=")[1].strip()

    def at(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, content):
        with open(self.at(name), "wb") as file:
            file.write(content)
        return self.at(name)

    def run_it(self, status, *words):
        """What it says; it ends with this status."""
        done = subprocess.run([PROGRAM, *words], capture_output=True, text=True, timeout=60, check=False)
        self.assertEqual(done.returncode, status, (words, done.stdout, done.stderr))
        return done.stdout + done.stderr

    def on_site(self, status, *words):
        return self.run_it(status, *words, "--site", self.site)

    def verified(self, status, *words):
        return self.on_site(status, "verify", *words)

    def list_firmware(self):
        return self.on_site(0, "firmware", self.at("pedal.bin"), "--version", "1.06", "--change", "Louder", "--key", self.key)

    def test_only_what_is_listed_and_signed_is_sound(self):
        self.assertIn("no firmware is listed", self.verified(0))
        self.assertIn("not signed, with the serial 1", self.on_site(0, "firmware", self.at("pedal.bin"), "--version", "1.05"))
        self.assertIn("FAILED", self.verified(1, "--trust", self.trusted))
        self.assertEqual(self.on_site(0, "sign", "--key", self.key), "Signed: 1.\n")
        self.assertIn("ok      firmware 1.05", self.verified(0, "--trust", self.trusted))
        self.assertIn("signed, with the serial 2", self.list_firmware())
        other = self.run_it(0, "keys", self.at("other.key")).split("KZQ_UPDATE_KEYS=")[1].strip()
        self.assertIn("FAILED", self.verified(1, "--trust", other))

    def test_a_package_that_does_not_start_as_its_version_is_unsound(self):
        with open(STAND_IN, "rb") as file:
            program = bytearray(file.read())
        program[8:11] = b"AI\2"  # the mark of an AppImage, in bytes that no loader reads
        package = "loops.AppImage"
        self.write(package, program)
        notes = self.write("notes.html", b"<b>New</b>")
        for listed, status in ("0.7.1", 0), ("0.8", 1):
            said = self.on_site(0, "package", self.at(package), "--version", listed, "--key", self.key, "--notes", notes,
                                "--minimum-system", "2.36", "--channel", "beta")
            self.assertIn(f"Version {listed} is listed for linux-", said)
            self.assertIn("ok ", self.verified(0, "--trust", self.trusted))
            self.assertIn("it says \"7306 Loop Manager 0.7.1 starts\"" if status else "ok ",
                          self.verified(status, "--trust", self.trusted, "--start"))
        os.remove(next(os.path.join(at, package) for at, _, files in os.walk(self.site) if package in files))
        self.assertIn("the file is missing", self.verified(1))

    def test_the_rehearsal_installs_what_is_published(self):
        self.list_firmware()
        said = self.on_site(0, "rehearse", "--trust", self.trusted, "--from", "1.02")
        for words in "GET /assets/7306/firmware/pedal.bin", f"byte for byte: {len(IMAGE)} bytes", "went well":
            self.assertIn(words, said)

    def test_the_rehearsal_fails_before_the_pedal_is_touched(self):
        self.assertIn("No firmware is listed.", self.on_site(1, "rehearse"))
        self.list_firmware()
        image = os.path.join(self.site, FIRMWARE, "pedal.bin")
        os.chmod(image, 0o644)
        with open(image, "wb") as file:
            file.write(IMAGE[:-1] + b"x")
        self.assertIn("FAILED", self.verified(1, "--trust", self.trusted))
        said = self.on_site(1, "rehearse", "--trust", self.trusted)
        self.assertIn("The rehearsal FAILED.", said)
        self.assertNotIn("holds the published image", said)

    def test_a_slow_server_gives_all_of_a_file(self):
        self.list_firmware()
        authority = self.at("authority.pem")
        server = subprocess.Popen([PROGRAM, "serve", "--site", self.site, "--port", "0", "--authority", authority,
                                   "--bytes-per-second", "40000"], stdout=subprocess.PIPE, text=True)
        self.addCleanup(server.stdout.close)
        self.addCleanup(server.wait)
        self.addCleanup(server.terminate)
        self.assertIn("Start the programs with", server.stdout.readline())
        host = server.stdout.readline().split()[1]
        began = time.monotonic()
        with urllib.request.urlopen(f"https://{host}/{FIRMWARE}pedal.bin", timeout=30,
                                    context=ssl.create_default_context(cafile=authority)) as answer:
            self.assertEqual(answer.read(), IMAGE)
        self.assertGreater(time.monotonic() - began, 0.4)
        self.assertEqual(server.stdout.readline(), f"GET /{FIRMWARE}pedal.bin HTTP/1.1 200\n")

    def test_refusals(self):
        image, key = self.at("pedal.bin"), ["--key", self.key]
        site = ["--site", self.site]
        text = self.write("text", b"text")
        for status, words, why in (
                (2, [], "subcommand"), (2, ["verify", *site, "--trust", "nonsense"], "--trust needs a public key"),
                (6, ["keys", self.key], "exists"), (6, ["sign", *site, "--key", text], "not a key"),
                (6, ["firmware", text + "-", "--version", "1.06", *site, *key], "it cannot be read"),
                (6, ["firmware", image, "--version", "one", *site, *key], "of the form 1.06"),
                (6, ["firmware", image, "--version", "1.06", *site, "--key", image], "too long"),
                (6, ["package", text, "--version", "1.2", *site, *key], "neither an AppImage"),
                (6, ["package", text, "--version", "1.2", "--notes", text + "-", *site, *key], "No such file"),
                (6, ["package", text + ".deb", "--version", "1.2", *site, *key], "it cannot be read"),
                (6, ["serve", *site, "--authority", self.at("none/a.pem")], "cannot be written"),
                (6, ["serve", *site, "--authority", self.at("a.pem"), "--address", "192.0.2.1"], "cannot listen on")):
            self.assertIn(why, self.run_it(status, *words), words)
        self.write("text.deb", b"package")
        self.assertIn("of the form 1.2.3", self.on_site(6, "package", self.at("text.deb"), "--version", "x", *key))
        self.assertFalse(os.path.exists(self.site), "nothing is published")


if __name__ == "__main__":
    unittest.main()
