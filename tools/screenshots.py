"""screenshots.py FOLDER [NAME...], or FOLDER --of NAME [SIZE]: see screenshots; the latter of what one size shows."""

import collections
import math
import os
import struct
import subprocess
import sys
import tempfile
import wave

from driver import DRAG_SOURCE, choose, drag, key, wait, window_of, xdotool
from maker import Maker
from translated import Program, title as title_in_its_language

folder = sys.argv[1]
work = tempfile.mkdtemp()
CHANGES = ["Loops start without a gap.", "The level is kept when a loop is overdubbed.",
           "Long loops are erased faster."]
LONG_NAME = "The whole rehearsal of the second of May, slow, with the bridge"


# What is measured in the picture of that name: left, top, width and height at 100 %.
WORDS = {
    "import": {"a menu": (32, 8, 28, 16), "the line at rest": (560, 8, 148, 16), "the tab that is on": (274, 55, 54, 18),
               "its second line": (274, 77, 100, 13), "the other tab": (485, 55, 54, 18), "its second line, off": (485, 77, 100, 13),
               "a number": (44, 158, 12, 14), "a name at rest": (107, 158, 60, 15), "a length at rest": (335, 158, 27, 14),
               "a name on tape": (107, 126, 60, 15), "a length on tape": (294, 126, 27, 14),
               "the caption": (31, 465, 190, 15), "the scale": (29, 513, 232, 11), "All": (346, 489, 18, 14),
               "Erase": (552, 488, 38, 15), "Import": (666, 488, 48, 15)},
    "menu": {"an entry": (540, 110, 46, 16)},
    "export": {"a name that replaces": (122, 254, 60, 15), "the warning": (337, 481, 164, 30)},
    "results": {"a sentence": (420, 80, 200, 14), "its detail": (420, 98, 200, 28)},
    "covered": {"a name": (467, 190, 46, 15), "a length": (695, 190, 27, 14), "a name that is picked up": (107, 358, 50, 15)},
}
MARKS = {"import": {"a selector": (61, 154, 24, 24), "an empty slot": (61, 218, 24, 24)},
         "export": {"a socket": (61, 291, 24, 24), "the cross": (106, 222, 13, 14), "a waveform": (191, 222, 90, 15)}}
LEAST = {"words": 4.5, "marks": 3.0, "covered": 3.0}


def luminance(pixel):
    parts = [part / 255 for part in pixel]
    red, green, blue = (part / 12.92 if part <= 0.04045 else ((part + 0.055) / 1.055) ** 2.4 for part in parts)
    return 0.2126 * red + 0.7152 * green + 0.0722 * blue


def read_ppm(path):
    """The width of a picture, and its pixels, three bytes each."""
    ppm = subprocess.run(["convert", path, "-depth", "8", "ppm:-"], check=True, capture_output=True).stdout
    _, width, height, _ = ppm.split(maxsplit=4)[:4]
    return int(width), ppm[-3 * int(width) * int(height):]


def contrast(pixels):
    """Of what differs most from the ground, which is what there is most of."""
    ground = luminance(collections.Counter(pixels).most_common(1)[0][0])
    ratios = ((max(ground, ink) + 0.05) / (min(ground, ink) + 0.05) for ink in map(luminance, set(pixels)))
    return max(ratios)


def measure(path, what, size):
    """Prints how well the words and marks of a picture stand out."""
    wide, body = read_ppm(path)
    for kind, places in (("words", WORDS), ("marks", MARKS)):
        for name, box in places.get(what, {}).items():
            left, top, width, height = (round(side * size) for side in box)
            pixels = [body[3 * (y * wide + x):][:3] for y in range(top, top + height) for x in range(left, left + width)]
            ratio = contrast([tuple(pixel) for pixel in pixels])
            least = LEAST.get(what, LEAST[kind])
            print(f"{size:.0%} {what}: {name} {ratio:.1f}" + (f", less than {least}" if ratio < least else ""))


def number_of(program, title):
    return subprocess.run(
        ["xdotool", "search", "--all", "--onlyvisible", "--pid", str(program.process.pid), "--name", f"^{title_in_its_language(title)}"],
        check=True, capture_output=True, text=True,
    ).stdout.split()[0]


def picture(program, name, title="7306 Loop Manager", away=True):
    """Of the window, without what the window manager puts around it, in few colours. `away`: the pointer goes first."""
    if away:
        xdotool("mousemove", 1, 1)
    window = program.ready(title) if away else program.window(title)
    number = number_of(program, title)
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


def sound(name, seconds, folder=work, phrases=4):
    """Strokes, two in a second, that swell and fade in each phrase; every phrase begins with a strong one."""
    path = os.path.join(folder, name)
    strokes = 2 * seconds
    with wave.open(path, "wb") as file:
        file.setparams((2, 3, 44100, 0, "NONE", ""))
        for stroke in range(strokes):
            place = stroke * phrases / strokes % 1
            swell = 1 if place * strokes < phrases else 0.15 + 0.7 * math.sin(math.pi * place) ** 2 * (1, 0.7)[stroke // 2 % 2]
            for part in range(21):
                height = round(0x600000 * swell * 0.88**part)
                period = b"".join(struct.pack("<i", sign * height)[:3] * 2 for sign in [1] * 50 + [-1] * 50)
                file.writeframes((period * 11)[: 1050 * 6])
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
        picture(program, "about", "About 7306 Loop Manager")
        key("Escape")
        program.ready()
        export_tab(program)
        end(program)


def firmware():
    maker = Maker("1.06", CHANGES)
    with Program("--authorities", maker.authority, host=maker.host) as program:
        program.ready()
        wait("the offer", lambda: offer(program))
        picture(program, "firmware", "Firmware Update")
        end(program)
    maker.close()


def offer(program):
    program.get("Menu", "push button").click()
    program.get("Firmware Update...", "menu item").click()
    wait("an answer", lambda: program.find("You're up to date!") or program.window("Firmware Update"))
    if not program.window("Firmware Update"):
        key("Return")
        program.gone("You're up to date!")
    return program.window("Firmware Update")


def begin_import(program, loops="Select all loops"):
    program.get(loops).click()
    button = program.get("Import", "push button")
    wait("import is possible", lambda: button.enabled)
    button.click()
    choose(program, work)


def transfer():
    """The pedal falls silent on the way, so that the panel stands still."""
    with Program("--fault", "silence@in:5500") as program:
        program.ready()
        begin_import(program)
        picture(program, "progress", "7306 Import")
        end(program)


def no_pedal():
    with Program("--unplugged") as program:
        program.ready()
        picture(program, "empty")
        end(program)


def pedal_with(**loops):
    """A folder to simulate: loop number and seconds."""
    memory = tempfile.mkdtemp()
    for number, (loop, seconds) in enumerate(loops.items()):
        sound(f"Loop {loop[4:]}.wav", seconds, memory, 3 + number % 3)
    return f"--simulate={memory}"


def bring_back():
    with Program(simulate=pedal_with(loop1=42, loop3=16, loop5=31, loop12=67), environment={"HOME": work}) as program:
        program.ready()
        program.get("Export tab.*").click()
        program.get("Overwrite Loop 3").click()
        choose(program, sound("Chorus.wav", 20))
        wait("the file is in the row", lambda: program.get("Loop 3 name").description == "Chorus")
        program.get("Export", "push button").click()
        program.get("Yes").press()
        program.get("Loop 3 written", "push button")
        program.get("Import tab.*").click()
        for loop in (5, 12):
            program.get(f"Loop {loop}, select").click()
        erase = program.get("Erase", "push button")
        wait("erasing is possible", lambda: erase.enabled)
        erase.click()
        program.get("Yes").press()
        program.get("2 loops erased", "push button")
        key("ctrl+z")
        program.ready("Bring Back")
        program.get("Loop 3.*replaced today.*", "check box").press()
        picture(program, "bring-back", "Bring Back")
        end(program)


def carrying():
    """Files held between the rows."""
    files = [sound(name, seconds) for name, seconds in (("tape choir Am.wav", 80), ("fill, brushes.wav", 20))]
    files.append(sound("Jam.wav", 1))
    with wave.open(files[-1], "wb") as file:  # longer than the pedal has room for
        file.setparams((2, 1, 44100, 0, "NONE", ""))
        file.writeframes(bytes(2 * 44100 * 60 * 25))
    source = subprocess.Popen([DRAG_SOURCE, *files])
    wait("the other window", lambda: window_of(source))
    xdotool("search", "--sync", "--onlyvisible", "--name", "^Files$", "windowmove", 2150, 200)
    start = window_of(source).centre()
    with Program(simulate=pedal_with(loop1=42, loop2=67, loop3=16, loop5=31)) as program:
        program.ready()
        program.connected()
        program.get("Export tab.*").click()
        rows = [program.get(f"Add Loop {row}").centre() for row in (6, 7)]
        gap = [sum(pair) // 2 for pair in zip(*rows)]

        def held():
            found = program.find("2 of 3 files fit.*", "push button")
            if found:
                picture(program, "carry", away=False)
            return found

        drag(start, gap, held)
        end(program)
    source.kill()


def fill_results(program):
    """With the longest sentences that there are."""
    for number in range(1, 6):
        path = os.path.join(work, f"{LONG_NAME}, take {number}.wav")
        with open(path, "w") as file:
            file.write("no sound")
        program.get("Add Loop 12").click()
        choose(program, path)
        wait("it is refused", lambda: program.find(f"Failed: .*take {number}.*", "push button"))


def main_views(program, shot):
    rename(program, 1, "Intro")
    rename(program, 3, LONG_NAME)
    program.get("Loop 8, select").click()
    shot("import")
    program.get("Menu", "push button").click()
    program.get("About...")
    shot("menu")
    key("Escape")
    program.get("Export tab.*").click()
    for row, name in (("Add Loop 4", "Bridge.wav"), ("Overwrite Loop 5", LONG_NAME + ".wav")):
        program.get(row).click()
        choose(program, sound(name, 20))
        wait("the file is in the row", lambda: program.get(f"Loop {row[-1]} name").description == name[:-4])
    shot("export")
    fill_results(program)
    key("ctrl+r")
    program.get(".*failed, .*take 5.*")
    shot("results")
    key("Escape")


def firmware_views(program, shot):
    wait("the offer", lambda: offer(program))
    shot("offer", "Firmware Update")
    program.get("Install the firmware", "push button").click()
    bar = program.get("Firmware installation")
    wait("the bar moves", lambda: bar.value() > 0.2)
    shot("flashing", "Firmware Update", still=False)
    wait("the ending is said", lambda: program.find(r"Firmware 1\.06 runs on the pedal\."), 60)
    shot("ending", "Firmware Update")
    program.get("OK", "push button").click()
    program.ready()


def views(name, size):
    """What the window shows at one size; without one, on a screen of which all is shown."""
    maker = Maker("1.06", CHANGES)
    with Program("--authorities", maker.authority, "--fault", "silence@in:2000", host=maker.host) as program:

        def shot(what, title="7306 Loop Manager", still=True):
            wait(f"{title} shows", lambda: program.window(title))
            number = number_of(program, title) if size else "root"
            xdotool("mousemove", 1, 1)
            if still:
                settle(number)
            path = os.path.join(folder, f"{what}-{name}.png")
            take(number, path)
            if size:
                measure(path, what, int(size.split()[0]) / 100)

        program.ready()
        program.connected()
        if size:
            key("alt+v")
            program.get(size).press()
            key("Escape")
        main_views(program, shot)
        firmware_views(program, shot)
        program.get("Import tab.*").click()
        begin_import(program, "Loop 8, select")
        shot("progress", "7306 Import")
        shot("covered")
        end(program)
    maker.close()


if sys.argv[2:3] == ["--of"]:
    views(*(sys.argv[3:] + [None])[:2])
else:
    for part in sys.argv[2:] or ("main_window", "firmware", "transfer", "no_pedal", "bring_back", "carrying"):
        globals()[part]()
