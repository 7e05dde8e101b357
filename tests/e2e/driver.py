"""The program from outside: as assistive technology sees it, with keys and mouse as a person uses them."""

import os
import re
import signal
import subprocess
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PROGRAM = os.environ["KZQ7306"]
CTL = os.environ["KZQ7306CTL"]
DRAG_SOURCE = os.environ.get("DRAG_SOURCE")
EMULATED_PEDAL = os.environ.get("EMULATED_PEDAL")
DROP_TARGET = os.environ.get("DROP_TARGET")
SCALE = float(os.environ.get("QT_SCALE_FACTOR", "1"))  # the tree is in points, the mouse in pixels
# Generous for busy machines; the awaited events usually come much sooner.
PATIENCE = float(os.environ.get("PATIENCE", 15))
NOWHERE = "localhost:9"  # a server that refuses at once


class Late(AssertionError):
    pass


def wait(what, condition, patience=PATIENCE):
    """The first true result of `condition`, which is called repeatedly."""
    end = time.monotonic() + patience
    while True:
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            answer = condition()
        except (GLib.Error, AttributeError):  # an object that has just gone, or is not there yet
            answer = None
        if answer:
            return answer
        if time.monotonic() > end:
            raise Late(f"in {patience:g} s not: {what}")
        time.sleep(0.01)


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True, capture_output=True, timeout=PATIENCE)


def key(*keys):
    xdotool("key", *keys)


def type_text(text):
    xdotool("type", "--delay", 5, text)


class Ear:
    """Keeps the names of the objects that said they show or have the focus, in order."""

    def __init__(self, what):
        self.what = what
        self.heard = []
        self.listener = Atspi.EventListener.new(self.hear)
        self.listener.register("object:state-changed:" + what)

    def hear(self, event):
        if event.detail1 and event.source is not None:
            self.heard.append(event.source.get_name())

    def wait(self, name):
        wait(f"something to be heard of {name!r}", lambda: name in self.heard)

    def close(self):
        self.listener.deregister("object:state-changed:" + self.what)


class Item:
    """An object of the accessibility tree."""

    def __init__(self, node):
        self.node = node

    role = property(lambda self: self.node.get_role_name())
    name = property(lambda self: self.node.get_name() or "")
    description = property(lambda self: self.node.get_description() or "")

    def has(self, state):
        return self.node.get_state_set().contains(state)

    showing = property(lambda self: self.has(Atspi.StateType.SHOWING))
    enabled = property(lambda self: self.has(Atspi.StateType.ENABLED))
    checked = property(lambda self: self.has(Atspi.StateType.CHECKED))
    focused = property(lambda self: self.has(Atspi.StateType.FOCUSED))

    def children(self):
        nodes = (self.node.get_child_at_index(i) for i in range(self.node.get_child_count()))
        return [Item(node) for node in nodes if node is not None]

    def walk(self, showing=True):
        """All below, as far as it shows."""
        for child in self.children():
            if not showing or child.showing:
                yield child
                yield from child.walk(showing)

    def text(self):
        text = self.node.get_text_iface()
        return Atspi.Text.get_text(text, 0, Atspi.Text.get_character_count(text)) if text else ""

    def value(self):
        return Atspi.Value.get_current_value(self.node.get_value_iface())

    def box(self):
        return Atspi.Component.get_extents(self.node.get_component_iface(), Atspi.CoordType.SCREEN)

    def centre(self):
        box = self.box()
        return round((box.x + box.width // 2) * SCALE), round((box.y + box.height // 2) * SCALE)

    def click(self):
        xdotool("mousemove", *self.centre(), "click", 1)

    def press(self):
        """As an assistive program does it."""
        Atspi.Action.do_action(self.node.get_action_iface(), 0)

    def __str__(self):
        return f"{self.role} {self.name!r}"


def window_of(process):
    """Another program's window, once it shows."""
    desktop = Atspi.get_desktop(0)
    for i in range(desktop.get_child_count()):
        node = desktop.get_child_at_index(i)
        if node is not None and node.get_process_id() == process.pid:
            return next((window for window in Item(node).children() if window.showing), None)
    return None


def picture(name):
    """Of the screen, for a person to look at, if PICTURES is a folder."""
    if folder := os.environ.get("PICTURES"):
        subprocess.run(["import", "-window", "root", f"{folder}/{name}.png"], check=False)


def drag(source, target, taken=None):
    """Between two points, in steps, as a hand does it. `taken`: whether the target has noticed it."""
    xdotool("mousemove", *source, "mousedown", 1)
    for step in range(1, 11):
        place = [round(a + (b - a) * step / 10) for a, b in zip(source, target)]
        xdotool("mousemove", *place, "sleep", 0.02)
    if taken:

        def held():
            for way in (1, 0):  # a drag that begins under a still pointer is noticed when that moves
                xdotool("mousemove", target[0] + way, target[1])
            return taken()

        try:
            wait("the drag is noticed", held)
        except Late:
            xdotool("mouseup", 1)
            raise
    xdotool("sleep", 0.5, "mouseup", 1)  # the target has to take it first, which a busy machine delays


def choose(program, path):
    """Types the path into the file chooser."""
    field = program.get("File name:|Directory:", "text")
    wait("the keyboard is in the chooser", lambda: field.focused)
    key("ctrl+a")
    type_text(path)
    key("Return")


def parent_of(pid):
    """Nothing if there is no such process."""
    try:
        with open(f"/proc/{pid}/stat") as file:
            return int(file.read().rpartition(")")[2].split()[1])
    except OSError:
        return None


class Program:
    """One run of the program. Its folder is its own."""

    def __init__(self, *options, simulate="--simulate", host=NOWHERE, environment=None, within=()):
        self.folder = tempfile.mkdtemp(prefix="e2e")
        self.log = open(os.path.join(self.folder, "log"), "w+")
        self.temporary = os.path.join(self.folder, "tmp")
        os.mkdir(self.temporary)
        environment = {**os.environ, "TMPDIR": self.temporary, **(environment or {})}
        words = [*within, PROGRAM, "--verbose"] + ([simulate] if simulate else []) + (["--host", host] if host else []) + [*options]
        self.process = subprocess.Popen(words, stdout=self.log, stderr=self.log, env=environment)

    def __enter__(self):
        return self

    def __exit__(self, kind, error, trace):
        if kind and self.process.poll() is None:
            self.tell()
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()

    def tell(self):
        """Prints what is on the screen when a test fails; with PICTURES, a folder, also takes a picture."""
        for item in self.items():
            if item.name:
                print(item, item.description, item.text(), "" if item.enabled else "disabled")
        self.log.seek(0)
        print(self.log.read())
        with open(os.environ["SESSION_LOG"]) as file:
            print(file.read())
        root = ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK", "_NET_ACTIVE_WINDOW", "_NET_CLIENT_LIST_STACKING"]
        print(subprocess.run(root, capture_output=True, text=True, check=False).stdout)
        picture(self.process.pid)

    def application(self):
        desktop = Atspi.get_desktop(0)
        for i in range(desktop.get_child_count()):
            node = desktop.get_child_at_index(i)
            if node is not None and node.get_process_id() == self.process.pid:
                return Item(node)
        return None

    def windows(self):
        application = self.application()
        return [window for window in application.children() if window.showing] if application else []

    def window(self, name):
        """A window that shows, by the beginning of its title."""
        return next((window for window in self.windows() if window.name.startswith(name)), None)

    def items(self):
        for window in self.windows():
            yield window
            yield from window.walk()

    def find(self, name, role=None):
        """The visible object with this name, a pattern for the whole name; nothing if there is none."""
        for item in self.items():
            if re.fullmatch(name, item.name, re.DOTALL) and role in (None, item.role):
                return item
        return None

    def get(self, name, role=None, patience=PATIENCE):
        return wait(f"{role or 'something'} called {name!r}", lambda: self.find(name, role), patience)

    def gone(self, name, role=None):
        wait(f"no {name!r} any more", lambda: not self.find(name, role))

    def answered(self, name, answer):
        """Answers an alert by a key, which it takes only once there was time to read it."""
        wait(f"{name!r} is answered", lambda: self.find(name) is None or key(answer))

    def ready(self, title="7306 Loop Manager"):
        """Waits until the main window has replaced the splash and has the keyboard focus."""
        wait(f"{title} is active", lambda: self.window(title).has(Atspi.StateType.ACTIVE))
        return self.window(title)

    def connected(self):
        self.get("Space remaining.*")

    def working_files(self):
        return [os.path.join(folder, name) for folder, _, names in os.walk(self.temporary) for name in names]

    def helpers(self):
        """The programs that it runs."""
        return [pid for pid in os.listdir("/proc") if pid.isdigit() and parent_of(pid) == self.process.pid]

    def wait_end(self, patience=2.0):
        """The status, and the seconds that it took."""
        start = time.monotonic()
        try:
            status = self.process.wait(patience + 3)
        except subprocess.TimeoutExpired:
            raise Late(f"the program does not end in {patience + 3} s") from None
        return status, time.monotonic() - start

    def terminate(self):
        self.process.send_signal(signal.SIGTERM)


def start_listening():
    """Objects are queried again each time, without a cache."""
    Atspi.init()
    Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)


start_listening()
