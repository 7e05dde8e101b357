"""Pictures of a loop's row: name fields 284 x 28, selectors and add buttons 24 x 24, the x 16 x 16."""

import colours as c
import marks
from svg import Picture

ADD_WORDS = ("Empty", "Filled", "On", "Overwrite")


def groove(picture):
    # The rim is a box of its own under the foot only: at the top corners it would shine through as a fringe.
    picture.rect(0, 14, 284, 14, c.RIM, 4)
    picture.rect(0, 0, 284, 26, c.GROOVE, 4)


def tape(picture, colour, lit, leans):
    """A strip of tape with a stub and a leader; leans is "/" or "\\"."""
    top, foot = (248, 236) if leans == "/" else (236, 248)
    lit_foot = top + (foot - top) / 12
    picture.rect(6, 2, 244, 24, picture.down((0, c.OXIDE), (1, c.OXIDE_FOOT)))
    picture.rect(6, 2, 244, 2, c.OXIDE_EDGE)
    picture.cut(f"M{top - 2} 2L{foot - 2} 26", c.SHADOW, 2, stroke_opacity=0.35)
    picture.fill("M2 4A2 2 0 0 1 4 2H8V26H4A2 2 0 0 1 2 24Z", colour)
    picture.fill("M2 4A2 2 0 0 1 4 2H8V4Z", lit)
    picture.fill(f"M{top} 2H280A2 2 0 0 1 282 4V24A2 2 0 0 1 280 26H{foot}Z", colour)
    picture.fill(f"M{top} 2H280A2 2 0 0 1 282 4H{lit_foot}Z", lit)


def resting():
    picture = Picture(284, 28)
    groove(picture)
    return picture


def import_on():
    picture = resting()
    tape(picture, c.BLUE, c.BLUE_LIT, "/")
    marks.chevrons(picture, 258, 14, 10, c.INK, 1)
    return picture


def import_rename():
    """Console tape torn off at both ends."""
    picture = Picture(284, 28)
    teeth_right = "".join(f"L{284 if turn % 2 == 0 else 280} {4 * (turn + 1)}" for turn in range(7))
    teeth_left = "".join(f"L{0 if turn % 2 == 0 else 4} {24 - 4 * turn}" for turn in range(6))
    picture.fill(f"M4 0L280 0{teeth_right}L4 28{teeth_left}Z", picture.down((0, c.TAPE), (1, c.TAPE_FOOT)))
    return picture


def export_on():
    picture = resting()
    tape(picture, c.GREEN, c.GREEN_LIT, "\\")
    marks.chevrons(picture, 260, 14, 10, c.INK, -1)
    return picture


def export_overwrite():
    picture = resting()
    tape(picture, c.YELLOW, c.YELLOW_LIT, "\\")
    marks.slashed(picture, 265, 14, 6, 7, c.INK)
    return picture


def export_drop():
    """A file held over the row: the tape that would lie there, still only drawn in outline."""
    picture = resting()
    picture.rect(0, 0, 284, 28, c.GREEN, 4)
    picture.rect(2, 2, 280, 24, "#14261C", 2)
    picture.fill("M236 2H282V26H248Z", c.GREEN, fill_opacity=0.28)
    picture.rect(2, 2, 6, 24, c.GREEN, fill_opacity=0.28)
    marks.chevrons(picture, 260, 14, 10, c.GREEN, -1)
    return picture


def selector_gray():
    picture = Picture(24, 24)
    marks.dashed(picture, 12, 12, 8, c.ABSENT, share=0.45)
    return picture


def selector_off():
    picture = Picture(24, 24)
    picture.ring(12, 12, 9, c.CREAM)
    return picture


def selector_on():
    picture = Picture(24, 24)
    picture.circle(12, 12, 10, c.BLUE)
    picture.line("M7.5 12.5L10.8 15.8L16.8 8.8", c.INK, 2.4)
    return picture


def add(word):
    picture = Picture(24, 24)
    if word in ("Empty", "Filled"):
        picture.frame(2, 2, 20, 20, 6, c.SOCKET, c.GROOVE)
    else:
        picture.rect(2, 2, 20, 20, c.GREEN if word == "On" else c.YELLOW, 6)
    if word == "Empty":
        picture.rect(11, 7, 2, 10, c.CREAM)
        picture.rect(7, 11, 10, 2, c.CREAM)
    elif word == "Filled":
        picture.ring(12, 12, 4, c.CREAM)
    elif word == "On":
        picture.line("M12 6V14M8.5 10.8L12 14.3L15.5 10.8", c.INK)
        picture.rect(6, 17, 12, 2, c.INK)
    else:
        marks.slashed(picture, 12, 12, 5, 5.5, c.INK)
    return picture


def remove(hover):
    picture = Picture(16, 16)
    if hover:
        picture.circle(8, 8, 8, c.RED)
    marks.cross(picture, 8, 8, 3 if hover else 4, c.INK if hover else c.CROSS)
    return picture


def pictures():
    result = {
        "Import_field_Off": resting(), "Import_field_On": import_on(), "Import_field_rename": import_rename(),
        "Export_field_Off": resting(), "Export_field_On": export_on(), "Export_field_overwrite": export_overwrite(),
        "Export_field_drop": export_drop(),
        "Import_Selector_gray": selector_gray(), "Import_Selector_Off": selector_off(),
        "Import_Selector_On": selector_on(),
        "Export_X": remove(False), "Export_X_Hover": remove(True),
    }
    result.update({f"Export_Add_{word}": add(word) for word in ADD_WORDS})
    return result
