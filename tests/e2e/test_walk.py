"""What assistive technology gets of every window: role, name, description, value and state of all there is."""

import functools
import itertools
import re
import tempfile
import unittest

from driver import Atspi, Program, choose, key, wait, xdotool
from maker import Maker
from test_keyboard import sound
from test_status import pedal

STATES = {state: getattr(Atspi.StateType, state.upper().replace("-", "_")) for state in (
    "checked", "selected", "expandable", "expanded", "editable", "focusable", "focused")}
LISTENED = " (No sound device was found.)"

ROWS = {
    "loop": "label Loop #; push button Play Loop #, T: focusable; check box Loop #, select (T): focusable; label Loop # name (Loop #): focusable",
    "picked up": "label Loop #; push button Play Loop #, T: focusable; check box Loop #, select (T): checked focusable; label Loop # name (Loop #): focusable",
    "none": "label Loop #; check box Loop #, select: disabled; label Loop # name: disabled",
    "loop to overwrite": "label Loop #; push button Play Loop #, T: focusable; push button Overwrite Loop # (T): focusable; label Loop # name (Loop #)",
    "free": "label Loop #; push button Add Loop #: focusable; label Loop # name",
    "staged": "label Loop #; push button Play riff, T: focusable; push button Overwrite Loop # (riff, T, staged, replaces a loop): focusable; "
              "push button Remove file from loop #: focusable; label Loop # name (riff)",
}
SCENES = {
    "import": """
        label Loop #; push button Play Loop #, T: focusable; check box Loop #, select (T): checked focusable; label Loop # name (Loop #): focusable;
        text Loop # name: editable focusable focused: 1; loop: 2 5 8 13; picked up: 3; none: 4 6 7 9 10 11 12 14 15 16 17 18 19 20; menu item File;
        menu item Edit; menu item Loop; menu item View; menu item Help; menu item Simulation; filler Import; push button Select all loops:
        focusable; push button Deselect all loops: focusable; push button Erase: focusable; push button Import: focusable; page tab list Direction;
        page tab Import tab, pedal to computer: selected focusable; page tab Export tab, computer to pedal: focusable; push button Menu: focusable;
        label Space remaining: 23 min, 24 sec; image Space in use (35 seconds of 24 minutes in use) = 35 of 0 to 1440; push button 7306 · 6 loops ·
        firmware 1.05 (Shows the recent results): expandable focusable; notification 7306 connected, 6 loops, 23 minutes 24 seconds free.""",
    "file": """
        menu item Import…: focused; menu item Export…: disabled; menu item Back Up…; menu item Restore…; menu item Save Report…; menu item Quit""",
    "edit": """
        menu item Select All: focused; menu item Select None; menu item Paste Files: disabled; menu item Bring Back…; menu item Keep Copies: checked""",
    "loop": """
        menu item Play P: focused; menu item Rename; menu item Choose File…: disabled; menu item Remove: disabled; menu item Verify After Export""",
    "view": """
        menu item Import: focused; menu item Export; menu item Recent Results; menu item 75 %; menu item 100 %: checked; menu item 125 %; menu item
        150 %; menu item 200 %: disabled; menu item 300 %: disabled; menu item Fit to Screen""",
    "help": "menu item User Guide: focused; menu item Doctor…; menu item About 7306 Loop Manager",
    "menu": """
        push button Close menu; menu item About...: focusable focused; menu item Software Update...: focusable; menu item Firmware Update...:
        focusable; menu item localhost: focusable""",
    "about": """
        panel Version # (1.05): focusable focused; label Loop Manager; label localhost; push button localhost: focusable""",
    "export": """
        loop to overwrite: 1 2 3 8 13; free: 4 6 7 9 10 11 12 14 15 16 17 18 19 20; staged: 5; menu item File; menu item Edit; menu item Loop; menu
        item View; menu item Help; menu item Simulation; filler Export; label Slots marked like this will replace loops on the pedal.; push button
        Export: focusable; page tab list Direction; page tab Import tab, pedal to computer: focusable; page tab Export tab, computer to pedal:
        selected focusable; push button Menu: focusable focused; label Space remaining: 23 min, 25 sec; image Space in use (34 seconds of 24 minutes
        in use) = 34 of 0 to 1440; push button 7306 · 6 loops · firmware 1.05 (Shows the recent results): expandable focusable; notification riff
        staged for Loop 5, 5 seconds, replaces a loop of 6 seconds.""",
    "question": """
        label Overwriting loop slots will erase audio on the 7306. Erased audio cannot be restored. Would you like to continue?; push button Yes:
        focusable; push button No: focusable focused""",
    "results": "list item HH:MM, Loop 1 written.: focusable focused; push button Copy: focusable",
    "bring back": """
        check box Loop 1, replaced today HH:MM, 2 seconds, to slot 1, replaces its loop: checked focusable; push button to slot 1, replaces its
        loop: focusable; push button Play Loop 1, 2 seconds: focusable; check box Keep Copies (Each loop is read before it is erased or replaced.):
        checked focusable; push button Close: focusable; push button Bring Back: focusable focused""",
    "targets": "list item to slot 1, replaces its loop: focusable focused",
    "back up": """
        push button Folder: 7306 simulated backups, no backup yet: expandable focusable; push button Other folder…: focusable; list item Slot 1,
        Loop 1, 1 second, new: focusable; list item Slot #, no loop: focusable; list item Slot 3, Loop 3, 1 minute 0 seconds, new: focusable; list
        item Slot #, no loop: focusable x 17; push button Close: focusable; push button Back Up: focusable focused""",
    "restore": """
        push button Backup: DATE, HH:MM, 2 loops: expandable focusable; push button Other folder…: focusable; list item Slot 1, Loop 1, 1 second,
        same: focusable; list item Slot #, no loop: focusable; list item Slot 3, Loop 3, 1 minute 0 seconds, same: focusable; list item Slot #, no
        loop: focusable x 17; check box Erase loops that are not in this backup: focusable; push button Close: focusable focused; push button
        Restore (The pedal already holds everything in this backup): disabled""",
    "doctor": """
        label OK: A simulated pedal is used instead of a real one.; push button Copy (Copies the findings as text): focusable; push button Save
        Report…: focusable; push button Close: focusable focused""",
    "offer": """
        label KZQ7306 1.6 is now available—you have 1.5. Would you like to install it now?; text Release notes: focusable; push button Install the
        firmware: focusable focused""",
    "software update": """
        label The program could not be updated.; label The list of updates could not be read: HTTP status 404.; push button OK: focusable
        focused""",
    "flashing": """
        label Installing firmware. Keep the pedal plugged in.; progress bar Firmware installation = # of 0 to 100; label STEP; label # of 4""",
    "ending": "label Firmware 1.06 runs on the pedal.; label It ran 1.05 before.; push button OK: focusable",
    "progress": """
        label Importing 1 loop from the 7306...; progress bar Transferred = # of 0 to 100; label #MB of 16MB – #%; push button Cancel: focusable""",
    "covered": "filler The 7306 is busy: focusable",
}
# what differs from run to run, or from row to row
CHANGING = ((r"\b\d\d:\d\d", "HH:MM"), (r"Slot \d+, no", "Slot #, no"), (r"\d+(MB of 16MB.*) \d+%", r"#\1 #%"),
            (r"= \d+ of 0 to 100$", "= # of 0 to 100"), (r"Version \S+", "Version #"),
            (r"\d+ \w{3} \d{4}", "DATE"),
            (r"(Restarting|The pedal is|Sending|Waiting).*", "STEP"), ("[1-4] of 4", "# of 4"))


def line(item):
    has, name, description = item.node.get_state_set(), item.name, item.description
    states = [] if has.contains(Atspi.StateType.ENABLED) else ["disabled"]
    states += [word for word, state in STATES.items() if has.contains(state)]
    text = f"{item.role} {name}" + (f" ({description})" if description else "")
    value = item.node.get_value_iface()
    if value and item.role != "scroll bar":
        ends = Atspi.Value.get_minimum_value(value), Atspi.Value.get_maximum_value(value)
        text += " = {:g} of {:g} to {:g}".format(item.value(), *ends)
    return " ".join(text.replace(LISTENED, "").split()) + (f": {' '.join(states)}" if states else "")


def told(root):
    """Of each thing with a name; the others only hold these. Rows of the same kind are one: "loop: 2 5 8"."""
    lines, rows = [], {}

    def look(thing):
        for item in thing.children():
            if not item.showing:
                continue
            number = re.fullmatch(r"Loop (\d+)", item.name)
            if number and item.role == "filler":
                words = re.sub(r"\d+ seconds?", "T", "; ".join(line(part) for part in item.walk() if part.name))
                words = re.sub(rf"\b{number[1]}\b", "#", words)
                rows.setdefault(next((kind for kind, row in ROWS.items() if row == words), words), []).append(number[1])
                continue
            if item.name:
                lines.append(functools.reduce(lambda words, change: re.sub(*change, words), CHANGING, line(item)))
            look(item)

    look(root)
    return [f"{kind}: {' '.join(numbers)}" for kind, numbers in rows.items()] + [
        words + (f" x {count}" if (count := len(list(same))) > 1 else "") for words, same in itertools.groupby(lines)]


class Walk(unittest.TestCase):
    maxDiff = None

    def tells(self, scene, root):
        with self.subTest(scene):
            self.assertEqual("; ".join(told(root)).split("; "), " ".join(SCENES[scene].split()).split("; "))

    def test_the_main_window(self):
        with Program() as program:
            window = program.ready()
            program.connected()
            program.get("Loop 3, select").click()
            program.get("Loop 1 name").click()
            wait("the editor", lambda: program.find("Loop 1 name", "text"))
            xdotool("mousemove", 1, 1)
            wait("no row is touched", lambda: program.find("Loop 3", "label"))
            self.tells("import", window)
            key("Escape")
            for name in ("file", "edit", "loop", "view", "help"):
                key("alt+" + name[0])
                self.tells(name, wait("a menu", lambda: next((item for item in program.items() if item.role == "popup menu"), None)))
                key("Escape", "Escape")
            program.get("Menu", "push button").press()
            program.get("About...")
            key("Down")
            self.tells("menu", program.get("Menu", "popup menu"))
            key("Return")
            self.tells("about", program.ready("About"))
            key("Escape")
            program.ready()
            program.get("Export tab.*").press()
            program.get("Overwrite Loop 5").press()
            choose(program, sound("riff.wav", 44100 * 5))
            wait("the file is in its row", lambda: program.get("Loop 5 name").description == "riff")
            self.tells("export", window)

    def test_the_panels(self):
        maker = Maker("1.06", ["Loops start without a gap."])
        self.addCleanup(maker.close)
        memory = pedal(L1=44100 * 2, L3=44100 * 60)
        with Program("--authorities", maker.authority, "--fault", "silence@in:41000",
                     simulate=f"--simulate={memory}", host=maker.host,
                     environment={"HOME": tempfile.mkdtemp(prefix="home")}) as program:
            program.ready()
            program.connected()
            key("ctrl+2")
            program.get("Overwrite Loop 1").press()
            choose(program, sound("riff.wav", 44100))
            wait("the file is in its row", lambda: program.get("Loop 1 name").description == "riff")
            program.get("Export", "push button").press()
            program.get("Yes")
            self.tells("question", program.windows()[-1])
            program.get("Yes").press()
            program.get("Loop 1 written", "push button")
            program.ready()
            key("ctrl+r")
            program.get(".*Loop 1 written.*", "list item")
            self.tells("results", program.get("Recent results", "list"))
            key("Escape")
            for scene, keys, entry in (("bring back", "alt+e", "Bring Back.*"), ("back up", "alt+f", "Back Up.*"),
                                       ("restore", "alt+f", "Restore.*"), ("doctor", "alt+h", "Doctor.*")):
                key(keys)
                program.get(entry, "menu item").press()
                panel = wait(scene, lambda: next((each for each in program.windows() if each.role == "dialog"), None))
                if scene in ("doctor", "restore"):
                    program.get("OK: .*|Slot 3, .*, same")
                self.tells(scene, panel)
                if scene == "bring back":
                    program.get("to slot 1.*", "push button").press()
                    self.assertEqual(line(program.get("to slot 1.*", "list item")), SCENES["targets"])
                    key("Escape")
                key("Return" if scene == "back up" else "Escape")
                program.ready()
                if scene == "back up":
                    program.get("2 loops backed up.*", "push button")
            for scene, title in (("software update", "Software Update"), ("offer", "Firmware Update")):
                program.get("Menu", "push button").press()
                program.get(title + "...", "menu item").press()
                panel = program.ready(title)
                button = program.get("OK|Install the firmware", "push button")
                self.tells(scene, panel)
                button.press()
            program.get("[1-4] of 4", "label")
            self.tells("flashing", program.window("Firmware Update"))
            program.get(r"Firmware 1\.06 runs on the pedal\.", patience=60)
            self.tells("ending", program.window("Firmware Update"))
            program.get("OK", "push button").press()
            program.ready()
            key("ctrl+1")
            wait("the loops are back", lambda: program.get("Loop 3, select").enabled, 30)
            program.get("Loop 3, select").press()
            program.get("Import", "push button").press()
            choose(program, tempfile.mkdtemp())
            panel = program.ready("7306 Import")
            program.get(r"\d+MB of 16MB.*")
            self.tells("progress", panel)
            self.tells("covered", program.window("7306 Loop Manager"))


if __name__ == "__main__":
    unittest.main()
