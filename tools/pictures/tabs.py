"""The two tabs 208 x 56 and the leader bands 740 x 8."""

import colours as c
import marks
import words
from svg import Picture

KINDS = {"Import": (c.BLUE, "pedal to computer", (marks.small_pedal, marks.small_computer)),
         "Export": (c.GREEN, "computer to pedal", (marks.small_computer, marks.small_pedal))}


def tab(name, on):
    accent, direction, (start, end) = KINDS[name]
    picture = Picture(208, 56)
    if on:
        picture.fill("M0 56V12A12 12 0 0 1 12 0H196A12 12 0 0 1 208 12V56Z", c.TRAY)
    else:
        picture.fill("M0 52V16A12 12 0 0 1 12 4H196A12 12 0 0 1 208 16V52Z", "#221111")
    ink = accent if on else c.SOCKET
    start(picture, 16, 16, ink)
    marks.arrow(picture, 42, 16, ink)
    end(picture, 60, 16, ink)
    words.translated(picture, name, 98, 27, 17, c.WHITE if on else "#C2B8B5", (98, 202))
    words.translated(picture, direction, 98, 44, 12, c.GRAY, (98, 202), weight="Regular")
    return picture


def band(colour, lit, pointing):
    """A strip of leader with a chevron every 24, running the same way as the audio."""
    picture = Picture(740, 8)
    picture.rect(0, 0, 740, 8, colour)
    picture.rect(0, 0, 740, 2, lit)
    for left in range(8, 740, 24):
        back, tip = (left, left + 4) if pointing > 0 else (left + 4, left)
        picture.fill(f"M{back} 0L{tip} 4L{back} 8H{back + 4}L{tip + 4} 4L{back + 4} 0Z", c.INK, fill_opacity=0.6)
    return picture


def pictures():
    result = {f"Menu_{name}_{'On' if on else 'Off'}": tab(name, on) for name in KINDS for on in (True, False)}
    result["Band_Import"] = band(c.BLUE, c.BLUE_LIT, 1)
    result["Band_Export"] = band(c.GREEN, c.GREEN_LIT, -1)
    return result
