"""What a loop sounds like, from its ring to the sound server."""

import os
import random
import subprocess
import tempfile
import unittest
import wave

from driver import Program, wait

LISTEN = ["parec", "--device=null.monitor", "--format=s32le", "--rate=44100", "--channels=2", "--latency-msec=20"]


class Listening(unittest.TestCase):
    @unittest.skipUnless("PULSE_SERVER" in os.environ, "PulseAudio is not installed")
    def test_a_ring_pressed_by_an_assistive_program_is_heard_round_and_round(self):
        memory = tempfile.mkdtemp(prefix="pedal")
        audio = random.Random(5).randbytes(44_100 * 6)
        with wave.open(os.path.join(memory, "Loop 5.wav"), "wb") as file:
            file.setparams((2, 3, 44100, 0, "NONE", ""))
            file.writeframes(audio)
        seam = audio[-3000:] + audio[:3000]
        wanted = b"".join(b"\0" + seam[i : i + 3] for i in range(0, len(seam), 3))
        ear = subprocess.Popen(LISTEN, stdout=subprocess.PIPE)
        self.addCleanup(ear.wait)
        self.addCleanup(ear.kill)
        os.set_blocking(ear.stdout.fileno(), False)
        with Program(simulate=f"--simulate={memory}") as program:
            program.ready()
            program.connected()
            program.get("Play Loop 5, 1 second").press()
            program.get("Playing Loop 5", "push button")
            heard = bytearray()

            def goes_round():
                heard.extend(ear.stdout.read() or b"")
                return heard.find(wanted) >= 0

            wait("the end of the loop and its beginning, without a gap", goes_round)
            program.get("Stop Loop 5").press()
            program.gone("Playing Loop 5", "push button")


if __name__ == "__main__":
    unittest.main()
