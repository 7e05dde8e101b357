"""screenshots.py FOLDER: see screenshots."""

import os
import struct
import subprocess
import sys
import tempfile
import wave

from driver import Program, choose, key, wait, xdotool
from maker import Maker

folder = sys.argv[1]
work = tempfile.mkdtemp()


def picture(program, name, title="7306 Loop Manager"):
    """Of the window, without what the window manager puts around it, in few colours."""
    xdotool("mousemove", 1, 1)
    window = program.ready(title)
    number = subprocess.run(
        ["xdotool", "search", "--all", "--onlyvisible", "--pid", str(program.process.pid), "--name", f"^{title}"],
        check=True, capture_output=True, text=True,
    ).stdout.split()[0]
    settle(number)
    path = os.path.join(folder, f"{name}.png")
    take(number, path)
    if name == "about":
        make_corners_clear(path)
    subprocess.run(["pngquant", "--force", "--strip", "--speed", "1", "--output", path, "256", path], check=True)
    print(f"{name}.png: {window.name}, {os.path.getsize(path) // 1000} kB")


def take(number, path):
    subprocess.run(["import", "-silent", "-window", number, path], check=True)


def settle(number):
    """Until two pictures in a row are the same: nothing is being drawn any more."""
    before = []

    def same():
        path = os.path.join(work, "now.ppm")
        take(number, path)
        with open(path, "rb") as file:
            now = file.read()
        before.append(now)
        return len(before) > 2 and before[-1] == before[-2] == before[-3]

    wait("the window is drawn", same)


def make_corners_clear(path):
    """Beyond the rounded corners is the black of the empty screen."""
    words = []
    for corner in ((0, 0), (959, 0), (0, 599), (959, 599)):
        words += ["-draw", "matte {},{} floodfill".format(*corner)]
    subprocess.run(["convert", path, "-alpha", "set", "-fuzz", "6%", "-fill", "none", *words, path], check=True)


def sound(name, seconds):
    """Strokes, two in a second, every fourth of them strong."""
    path = os.path.join(work, name)
    with wave.open(path, "wb") as file:
        file.setparams((2, 2, 44100, 0, "NONE", ""))
        for stroke in range(2 * seconds):
            height = (24000, 9000, 15000, 9000)[stroke % 4]
            for part in range(21):
                wave_height = round(height * 0.88**part)
                frames = [wave_height if i % 100 < 50 else -wave_height for i in range(1050)]
                file.writeframes(b"".join(struct.pack("<hh", frame, frame) for frame in frames))
    return path


def rename(program, loop, name):
    program.get(f"Loop {loop} name").click()
    wait("the editor", lambda: program.find(f"Loop {loop} name", "text"))
    key("ctrl+a")
    xdotool("type", name)
    key("Escape")
    wait("the name", lambda: program.get(f"Loop {loop} name", "label").description == name)


def end(program):
    program.terminate()
    program.wait_end()


def import_tab(program):
    rename(program, 1, "Intro")
    rename(program, 3, "Verse, slow")
    box = program.get("Loop 8, select")
    box.click()
    wait("it is checked", lambda: box.checked)
    picture(program, "import")


def export_tab(program):
    program.get("Export tab.*").click()
    for row, name, seconds in (("Add Loop 4", "Bridge.wav", 40), ("Overwrite Loop 5", "Chorus.wav", 70),
                               ("Add Loop 12", "Outro.wav", 25)):
        program.get(row).click()
        choose(program, sound(name, seconds))
        field = program.get(f"Loop {row.split()[-1]} name")
        wait("the file is in the row", lambda: field.description == name[:-4])
    picture(program, "export")


def main_window():
    with Program(host=None) as program:  # the maker's, whose name is in the menu
        program.ready()
        import_tab(program)
        program.get("Menu", "push button").click()
        program.get("About...")
        key("Down", "Down", "Down")
        picture(program, "menu")
        key("Up", "Up", "Return")
        picture(program, "about", "About")
        key("Escape")
        program.ready()
        export_tab(program)
        end(program)


def firmware():
    changes = ["Loops start without a gap.", "The level is kept when a loop is overdubbed.",
               "Long loops are erased faster."]
    maker = Maker("1.06", changes)
    with Program("--authorities", maker.authority, host=maker.host) as program:
        program.ready()

        def offered():
            program.get("Menu", "push button").click()
            program.get("Firmware Update...", "menu item").click()
            wait("an answer", lambda: program.find("You're up to date!") or program.window("Firmware Update"))
            if not program.window("Firmware Update"):
                key("Return")
                program.gone("You're up to date!")
            return program.window("Firmware Update")

        wait("the offer", offered)
        picture(program, "firmware", "Firmware Update")
        end(program)
    maker.close()


def transfer():
    """The pedal falls silent on the way, so that the panel stands still."""
    with Program("--fault", "silence@in:5500") as program:
        program.ready()
        program.get("Select all loops").click()
        button = program.get("Import", "push button")
        wait("import is possible", lambda: button.enabled)
        button.click()
        choose(program, work)
        picture(program, "progress", "7306 Import")
        end(program)


def no_pedal():
    with Program("--unplugged") as program:
        program.ready()
        picture(program, "empty")
        end(program)


main_window()
firmware()
transfer()
no_pedal()
