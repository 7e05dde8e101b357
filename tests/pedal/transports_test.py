"""kzq7306-pedal as computers see it: the same conversation over USB/IP, usbredir and GadgetFS, and what goes wrong.

transports_test.py PROGRAM [CASE...]. GadgetFS is a folder of pseudo-terminals, whose other ends are the kernel's part.
"""

import errno
import os
import pty
import select
import signal
import socket
import struct
import subprocess
import sys
import tempfile
import time
import tty
import unittest
import wave

PROGRAM = sys.argv.pop(1)
PATIENCE = 20.0
IN, OUT = 0x80, 0
PIECE = 1024
STALL = -errno.EPIPE


def take(source, count):
    """So many bytes; fewer if the other end hangs up."""
    data = b""
    while len(data) < count:
        if not select.select([source], [], [], PATIENCE)[0]:
            raise AssertionError(f"{len(data)} of {count} bytes came")
        more = os.read(source.fileno() if hasattr(source, "fileno") else source, count - len(data))
        if not more:
            break
        data += more
    return data


def wait(what, condition):
    end = time.monotonic() + PATIENCE
    while not condition():
        assert time.monotonic() < end, what
        time.sleep(0.01)


def write_loop(file, frames, width=3, channels=2):
    with wave.open(file, "wb") as out:
        out.setparams((channels, width, 44100, 0, "NONE", ""))
        out.writeframes(bytes(1 + at % 251 for at in range(frames * width * channels)))


def read_loop(file):
    try:
        with wave.open(file, "rb") as source:
            return source.readframes(source.getnframes())
    except FileNotFoundError:
        return None


class Program:
    def __init__(self, *options):
        self.process = subprocess.Popen([PROGRAM, *options], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)

    def says(self, words):
        """The rest of the line with these words."""
        for line in self.process.stdout:
            if words in line:
                return line.split(words)[1].strip()
        raise AssertionError(f"not said: {words}; {self.process.stderr.read()}")

    def end(self):
        """The exit status, and what was complained about."""
        self.process.terminate()
        return self.ended()

    def ended(self):
        try:
            words = self.process.communicate(timeout=PATIENCE)[1]
        finally:
            self.process.kill()
        return self.process.returncode, words

    def close(self):
        if self.process.returncode is None:
            self.end()

    def pull(self):
        self.process.send_signal(signal.SIGUSR1)
        self.says("the cable is pulled")

    def plug(self):
        self.process.send_signal(signal.SIGUSR2)


class OverIp:
    """A computer that imports the pedal by USB/IP."""

    def __init__(self, _folder, *options):
        self.program = Program("--listen", "127.0.0.1:0", *options)
        host, port = self.program.says("listening on ").rsplit(":", 1)
        self.place = (host, int(port))
        self.number = 0
        self.line = None
        self.program.says("the pedal is on the bus")

    def ask(self, code, rest=b""):
        """A new connection, and the status of the answer to an operation."""
        line = socket.create_connection(self.place, PATIENCE)
        line.sendall(struct.pack(">HHI", 0x0111, code, 0) + rest)
        version, reply, status = struct.unpack(">HHI", take(line, 8))
        assert (version, reply) == (0x0111, code & 0x7FFF)
        return line, status

    def attach(self):
        self.line, status = self.ask(0x8003, b"1-1".ljust(32, b"\0"))
        assert status == 0, status
        record = take(self.line, 312)
        assert record[256:259] == b"1-1" and record[300:304] == b"\x30\x8a\x01\x04", record[256:]

    def send(self, endpoint, inwards, setup=bytes(8), data=b"", length=0):
        self.number += 1
        self.line.sendall(struct.pack(">10I", 1, self.number, 0x10002, int(inwards), endpoint, 0, len(data) or length,
                                      0, 0, 0) + setup + data)
        return self.number

    def answer(self, inwards):
        """(command, number, status or the data that came)"""
        command, number, _, _, _, status, length = struct.unpack(">5IiI20x", take(self.line, 48))
        data = take(self.line, length) if inwards and command == 3 else b""
        return command, number, status if status < 0 else data

    def transfer(self, *words, **named):
        number = self.send(*words, **named)
        command, answered, result = self.answer(words[1])
        assert (command, answered) == (3, number)
        return result

    def control(self, kind, request, value, index, length):
        setup = struct.pack("<BBHHH", kind, request, value, index, length)
        return self.transfer(0, bool(kind & IN), setup, length=length)

    def configure(self):
        assert self.control(OUT, 9, 1, 0, 0) == b""

    def read(self, count):
        return self.transfer(1, True, length=count)

    def write(self, data):
        self.transfer(2, False, data=data)

    def left(self):
        assert take(self.line, 1) == b""
        self.line.close()
        assert self.ask(0x8003, b"1-1".ljust(32, b"\0"))[1] == 4, "there is no device"

    def came_back(self):
        self.program.says("the pedal is on the bus")
        self.attach()


class OverUsbredir:
    """A machine that QEMU emulates."""

    HELLO, CONNECT, INTERFACES, ENDPOINTS, SET_CONFIGURATION, CONFIGURED = 0, 1, 4, 5, 6, 8
    CONTROL, BULK = 100, 101
    ABILITIES = struct.pack("<I", 1 << 1 | 1 << 4 | 1 << 5 | 1 << 6)

    def __init__(self, folder, *options):
        self.listening = socket.socket(socket.AF_UNIX)
        self.listening.bind(os.path.join(folder, "qemu"))
        self.listening.listen()
        self.listening.settimeout(PATIENCE)
        self.number = 0
        self.line = None
        self.program = Program("--usbredir", os.path.join(folder, "qemu"), *options)

    def attach(self):
        self.line = self.listening.accept()[0]
        assert struct.unpack("<III", take(self.line, 12))[0] == self.HELLO
        assert take(self.line, 68).startswith(b"kzq7306-pedal")
        self.line.sendall(struct.pack("<III", self.HELLO, 68, 0) + b"a test".ljust(64, b"\0") + self.ABILITIES)
        packets = dict(self.packet()[::2] for _ in range(3))
        assert packets.keys() == {self.ENDPOINTS, self.INTERFACES, self.CONNECT}
        assert packets[self.CONNECT][4:8] == b"\x8a\x30\x04\x01"
        assert packets[self.ENDPOINTS][2] == 2 and packets[self.ENDPOINTS][16 + 1] == 2, "bulk pipes"

    def packet(self):
        """(type, number, bytes)"""
        kind, length, number = struct.unpack("<IIQ", take(self.line, 16))
        return kind, number, take(self.line, length)

    def transfer(self, kind, body, answer):
        self.number += 1
        self.line.sendall(struct.pack("<IIQ", kind, len(body), self.number) + body)
        came, number, reply = self.packet()
        assert (came, number) == (answer, self.number)
        return reply

    def control(self, kind, request, value, index, length):
        body = struct.pack("<BBBBHHH", kind & IN, request, kind, 0, value, index, length)
        reply = self.transfer(self.CONTROL, body, self.CONTROL)
        return reply[10:] if reply[3] == 0 else STALL

    def configure(self):
        assert self.transfer(self.SET_CONFIGURATION, b"\1", self.CONFIGURED) == b"\0\1"

    def read(self, count):
        reply = self.transfer(self.BULK, struct.pack("<BBHIH", 0x81, 0, count, 0, 0), self.BULK)
        assert reply[1] == 0
        return reply[10:]

    def write(self, data):
        reply = self.transfer(self.BULK, struct.pack("<BBHIH", 2, 0, len(data), 0, 0) + data, self.BULK)
        assert reply[:4] == struct.pack("<BBH", 2, 0, len(data))

    def left(self):
        assert take(self.line, 1) == b""
        self.line.close()

    def came_back(self):
        self.attach()


class AtTheDevicePort:
    """The kernel's side of GadgetFS."""

    CONNECT, DISCONNECT, SETUP = 1, 2, 3

    def __init__(self, folder, *options):
        gadget = os.path.join(folder, "gadget")
        os.mkdir(gadget)
        self.ends = {}
        for name in "dummy_udc", "ep1in-bulk", "ep2out-bulk":
            ours, theirs = pty.openpty()  # which stays open: the last one to close it makes it a terminal again
            tty.setraw(theirs)
            os.symlink(os.ttyname(theirs), os.path.join(gadget, name))
            self.ends[name[:3]] = ours
        self.port = os.path.realpath(os.path.join(gadget, "dummy_udc"))
        self.program = Program("--gadget=" + gadget, *options)

    def attach(self):
        words = take(self.ends["dum"], 4 + 32 + 32 + 18)
        assert (words[4 + 22:][:2], words[36 + 22:][:2]) == (b"\x40\0", b"\0\2"), "packets at full and at high speed"
        assert words[-18:][8:12] == b"\x8a\x30\x04\x01"
        self.event(struct.pack("<II", 3, 0), self.CONNECT)

    def event(self, words, kind):
        os.write(self.ends["dum"], words + struct.pack("<I", kind))

    def control(self, kind, request, value, index, length):
        self.event(struct.pack("<BBHHH", kind, request, value, index, length), self.SETUP)
        return take(self.ends["dum"], length)

    def configure(self):
        self.control(OUT, 9, 1, 0, 0)
        for end, address in ("ep1", 0x81), ("ep2", 0x02):
            words = take(self.ends[end], 18)
            assert words[6] == words[13] == address, "the endpoint's descriptors"

    def read(self, count):
        return take(self.ends["ep1"], count)

    def write(self, data):
        os.write(self.ends["ep2"], data)

    def left(self):
        files = f"/proc/{self.program.process.pid}/fd"  # a terminal that this end keeps open shows nothing
        wait("it is off the bus",
             lambda: self.port not in [os.path.realpath(os.path.join(files, file)) for file in os.listdir(files)])

    def came_back(self):
        self.attach()


class Conversations(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.loops = os.path.join(self.folder, "loops")
        os.mkdir(self.loops)
        write_loop(self.loop(1), 5000)
        write_loop(self.loop(3), 100)

    def loop(self, number):
        return os.path.join(self.loops, f"Loop {number}.wav")

    def start(self, transport, *options):
        usb = transport(self.folder, "--folder", self.loops, "--firmware", "1.23", "--channel", "1=7", *options)
        self.addCleanup(usb.program.close)
        usb.attach()
        return usb

    def command(self, usb, code, value=1, index=0, length=8):
        reply = usb.control(code, 0x2A, value, index, length)
        if length == 8:
            self.assertNotEqual(reply[4:5], b"N")
        return reply

    def lengths(self, usb):
        table = self.command(usb, 0xEB, length=60) + self.command(usb, 0xEC, length=60)
        return {at + 1: samples for at in range(20) if (samples := struct.unpack_from("<I", table, 6 * at)[0])}

    def converse(self, transport):
        usb = self.start(transport)
        self.assertEqual(usb.control(IN, 6, 0x100, 0, 18)[8:12], b"\x8a\x30\x04\x01")
        usb.configure()
        self.assertEqual(self.command(usb, 0xEA)[4:], b"1.23")
        self.assertEqual(self.lengths(usb), {1: 5000, 3: 100})

        audio = read_loop(self.loop(1))
        padded = (len(audio) + 63) // 64 * 64
        self.command(usb, 0xE1, 0, 7)
        came = b"".join(usb.read(min(PIECE, padded - at)) for at in range(0, padded, PIECE))
        self.assertEqual(came, audio.ljust(padded, b"\0"))

        self.command(usb, 0xE2, 4, 0)
        self.command(usb, 0xE3, len(audio) & 0xFFFF, len(audio) >> 16)
        for at in range(0, len(audio), PIECE):
            usb.write(audio[at:at + PIECE])
        self.assertEqual(self.lengths(usb), {1: 5000, 3: 100, 5: 5000})
        wait("what was sent is in its file", lambda: read_loop(self.loop(5)) == audio)

        usb.program.pull()
        usb.left()
        usb.program.plug()
        usb.came_back()
        usb.configure()
        self.command(usb, 0xED, 2)
        wait("what was erased has no file", lambda: not os.path.exists(self.loop(3)))
        self.assertEqual(usb.program.end(), (0, ""))

    def test_usbip(self):
        self.converse(OverIp)

    def test_usbredir(self):
        self.converse(OverUsbredir)

    def test_gadget(self):
        self.converse(AtTheDevicePort)

    def test_a_reset_ends_the_silence_at_the_device_port(self):
        usb = self.start(AtTheDevicePort, "--fault", "silence@E8")
        usb.configure()
        usb.event(struct.pack("<BBHHH", 0xE8, 0x2A, 1, 0, 8), usb.SETUP)
        usb.event(bytes(8), usb.DISCONNECT)
        usb.configure()
        self.command(usb, 0xE8)
        self.assertEqual(usb.program.end(), (0, "simulator: the pedal is silent\n"))

    def test_only_one_computer_has_the_pedal(self):
        usb = self.start(OverIp)
        self.assertEqual(usb.ask(0x8003, b"1-1".ljust(32, b"\0"))[1], 2)
        self.assertEqual(usb.ask(0x8003, b"1-2".ljust(32, b"\0"))[1], 4)
        line, status = usb.ask(0x8005)
        self.assertEqual((status, take(line, 4)[3], take(line, 312 + 4)[256:259]), (0, 1, b"1-1"))
        usb.line.close()
        wait("it is free again", lambda: usb.ask(0x8003, b"1-1".ljust(32, b"\0"))[1] == 0)

    def test_what_the_host_asks_of_any_device(self):
        usb = self.start(OverIp)
        usb.configure()
        for setup, reply in (((IN, 6, 0x200, 0, 255), 32), ((IN, 8, 0, 0, 1), b"\1"), ((IN, 0, 0, 0, 2), b"\1\0"),
                             ((IN | 1, 10, 0, 0, 1), b"\0"), ((IN | 1, 0, 0, 0, 2), b"\0\0"),
                             ((IN | 2, 0, 0, 0x81, 2), b"\0\0"), ((OUT | 1, 11, 0, 0, 0), b""),
                             ((OUT | 2, 1, 0, 2, 0), b""), ((OUT, 9, 2, 0, 0), STALL), ((IN, 6, 0x300, 0, 255), STALL),
                             ((OUT | 1, 11, 1, 0, 0), STALL), ((IN | 1, 10, 0, 3, 1), STALL),
                             ((IN | 2, 0, 0, 5, 2), STALL), ((0xC0, 1, 0, 0, 2), STALL)):
            came = usb.control(*setup)
            self.assertEqual(len(came) if isinstance(reply, int) and reply > 0 else came, reply, setup)

    def test_faults_and_cancelled_transfers(self):
        usb = self.start(OverIp, "--fault", "stall@EB", "--fault", "overrun@in:2", "--fault", "silence@E8")
        usb.configure()
        self.assertEqual(usb.control(0xEB, 0x2A, 1, 0, 60), STALL)
        self.command(usb, 0xE1, 0, 7)
        self.assertEqual(len(usb.read(PIECE)), PIECE)
        self.assertEqual(usb.read(PIECE), -errno.EOVERFLOW)
        silent = usb.send(0, True, struct.pack("<BBHHH", 0xE8, 0x2A, 1, 0, 8), length=8)
        waiting = usb.send(1, True, length=PIECE)
        for cancelled, status in (silent, -errno.ECONNRESET), (waiting, -errno.ECONNRESET), (waiting, b""):
            usb.number += 1
            usb.line.sendall(struct.pack(">6I24x", 2, usb.number, 0x10002, 0, 0, cancelled))
            self.assertEqual(usb.answer(False), (4, usb.number, status))
        usb.send(1, True, length=(16 << 20) + 1)  # longer than any computer sends
        self.assertEqual(take(usb.line, 1), b"")

    def test_what_no_correct_program_sends_is_listed(self):
        usb = self.start(OverIp)
        usb.configure()
        self.assertEqual(usb.control(0xE6, 0x2A, 1, 0, 8), STALL)
        status, words = usb.program.end()
        self.assertEqual(status, 1)
        self.assertRegex(words, "^kzq7306-pedal: event [0-9]+: the pedal has no command E6\n$")

    def test_another_format_is_converted(self):
        write_loop(self.loop(2), 441, width=2, channels=1)
        self.assertEqual(self.lengths(self.start(OverIp))[2], 441)


class Refusals(unittest.TestCase):
    def test_what_cannot_be_offered(self):
        with tempfile.TemporaryDirectory() as folder, socket.create_server(("127.0.0.1", 0)) as taken:
            with open(os.path.join(folder, "Loop 1.wav"), "w", encoding="utf-8"):
                pass
            missing = os.path.join(folder, "none")
            os.mkdir(os.path.join(folder, "empty"))
            for status, options, why in (
                    (2, ["--channel", "21=3"], "SLOT=CHANNEL"), (2, ["--fault", "stall"], "KIND@WHERE"),
                    (2, ["--firmware", "1.0"], "4 characters"), (2, ["--unknown"], "unknown"),
                    (3, ["--folder", missing], "There is no folder"), (3, ["--folder", folder], "not a file with a loop"),
                    (3, ["--listen", "here"], "ADDRESS:PORT"), (3, ["--usbredir", missing], "No such file"),
                    (3, ["--gadget=" + os.path.join(folder, "empty")], "modprobe"),
                    (3, ["--listen", f"127.0.0.1:{taken.getsockname()[1]}"], "already in use")):
                said = Program(*options).ended()
                self.assertEqual(said[0], status, options)
                self.assertIn(why, said[1], options)
        if not os.path.exists("/sys/devices/platform/vhci_hcd.0"):
            status, words = Program("--listen", "", "--attach").ended()
            self.assertEqual(status, 3)
            self.assertIn("load the kernel module vhci-hcd", words)


if __name__ == "__main__":
    unittest.main()
