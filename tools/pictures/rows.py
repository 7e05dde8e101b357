"""Pictures of a loop's row: name fields 284 x 28, selectors and add buttons 24 x 24, the x 16 x 16."""

import colours as c
import marks
from svg import Picture, Shape

ADD_WORDS = ("Empty", "Filled", "On", "Overwrite")
RING_STATES = ("Play_Row", "Play_Hover", "Play_Press", "Stop_Off", "Stop_Hover", "Stop_Press")

# Fira Sans Medium at 12 px, outlined.
LETTER_A = "M11.87 16.2L11.35 14.28H8.6L8.09 16.2H6.44L9.02 7.91H10.98L13.55 16.2ZM8.91 13.08H11.03L9.97 9.12Z"
LETTER_B = ("M29.26 13.81Q29.26 15.11 28.35 15.65Q27.43 16.2 25.79 16.2H23.29V7.91H25.47Q28.9 7.91 28.9 10.02"
            "Q28.9 10.75 28.45 11.21Q28.01 11.68 27.36 11.81Q28.21 11.96 28.74 12.42Q29.26 12.88 29.26 13.81Z"
            "M24.88 9.07V11.32H25.85Q26.51 11.32 26.89 11.02Q27.28 10.73 27.28 10.15Q27.28 9.55 26.88 9.31"
            "Q26.47 9.07 25.62 9.07ZM27.6 13.75Q27.6 13.04 27.16 12.73Q26.73 12.42 25.97 12.42H24.88V15.01H25.8"
            "Q26.68 15.01 27.14 14.75Q27.6 14.48 27.6 13.75Z")


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


def torn(width):
    """Console tape torn off at both ends."""
    picture = Picture(width, 28)
    teeth_right = "".join(f"L{width - turn % 2 * 4} {4 * (turn + 1)}" for turn in range(7))
    teeth_left = "".join(f"L{0 if turn % 2 == 0 else 4} {24 - 4 * turn}" for turn in range(6))
    picture.fill(f"M4 0L{width - 4} 0{teeth_right}L4 28{teeth_left}Z",
                 picture.down((0, c.TAPE), (1, c.TAPE_FOOT)))
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


def bring_back_field(colour, lit):
    """A kept copy on its way back to the pedal; its leader is wider, as the target stands on it."""
    picture = Picture(516, 28)
    wide_groove(picture, 0, 0)
    picture.rect(6, 2, 446, 24, picture.down((0, c.OXIDE), (1, c.OXIDE_FOOT)))
    picture.rect(6, 2, 434, 2, c.OXIDE_EDGE)
    picture.cut("M438 2L450 26", c.SHADOW, 2, stroke_opacity=0.35)
    picture.fill("M2 4A2 2 0 0 1 4 2H8V26H4A2 2 0 0 1 2 24Z", colour)
    picture.fill("M2 4A2 2 0 0 1 4 2H8V4Z", lit)
    picture.fill("M440 2H512A2 2 0 0 1 514 4V24A2 2 0 0 1 512 26H452Z", colour)
    picture.fill("M440 2H512A2 2 0 0 1 514 4H441Z", lit)
    if colour == c.GREEN:
        marks.chevrons(picture, 460, 14, 8, c.INK, -1, pitch=6)
    else:
        marks.slashed(picture, 466, 14, 6, 7, c.INK)
    return picture


def wide_groove(picture, x, y):
    picture.rect(x, y + 14, 516, 14, c.RIM, 4)
    picture.rect(x, y, 516, 26, c.GROOVE, 4)


def selector_ticked(colour):
    picture = Picture(24, 24)
    picture.circle(12, 12, 10, colour)
    picture.line("M7.5 12.5L10.8 15.8L16.8 8.8", c.INK, 2.4)
    return picture


def target(kind):
    """A slot in the list of targets: with a loop, without one, or chosen."""
    picture = Picture(16, 16)
    if kind == "loop":
        picture.ring(8, 8, 6, c.CREAM)
    elif kind == "none":
        marks.dashed(picture, 8, 8, 6, c.ABSENT)
    else:
        picture.rect(0, 0, 16, 16, c.GREEN, 4)
        picture.line("M8 3.5V9.5M5.2 7L8 9.8L10.8 7", c.INK)
        picture.rect(4, 12, 8, 2, c.INK)
    return picture


def held(colour, ground):
    """A file held over the row: the tape that would lie there, still only drawn in outline."""
    picture = resting()
    picture.rect(0, 0, 284, 28, colour, 4)
    picture.rect(2, 2, 280, 24, ground, 2)
    picture.fill("M236 2H282V26H248Z", colour, fill_opacity=0.28)
    picture.rect(2, 2, 6, 24, colour, fill_opacity=0.28)
    return picture


def export_drop():
    picture = held(c.GREEN, "#14261C")
    marks.chevrons(picture, 260, 14, 10, c.GREEN, -1)
    return picture


def export_drop_overwrite():
    picture = held(c.YELLOW, "#2A2712")
    marks.slashed(picture, 265, 14, 6, 7, c.YELLOW)
    return picture


def export_drop_refused():
    picture = held(c.RED, "#2A1010")
    picture.ring(265, 14, 7, c.RED)
    picture.rect(261, 13, 8, 2, c.RED)
    return picture


def drag_strip():
    """A loop on its way out of the window: the tape of its row, cut short."""
    picture = Picture(216, 24)
    picture.rect(4, 0, 180, 24, picture.down((0, c.OXIDE), (1, c.OXIDE_FOOT)))
    picture.rect(4, 0, 182, 2, c.OXIDE_EDGE)
    picture.cut("M180 0L168 24", c.SHADOW, 2, stroke_opacity=0.35)
    picture.fill("M0 2A2 2 0 0 1 2 0H6V24H2A2 2 0 0 1 0 22Z", c.BLUE)
    picture.fill("M0 2A2 2 0 0 1 2 0H6V2Z", c.BLUE_LIT)
    picture.fill("M182 0H214A2 2 0 0 1 216 2V22A2 2 0 0 1 214 24H170Z", c.BLUE)
    picture.fill("M182 0H214A2 2 0 0 1 216 2H181Z", c.BLUE_LIT)
    marks.chevrons(picture, 192, 12, 10, c.INK, 1)
    return picture


def drag_count(width):
    """A scrap of console tape for the number of strips."""
    picture = Picture(width, 20)
    right = "".join(f"L{width if turn % 2 else width - 3} {4 * turn}" for turn in range(6))
    left = "".join(f"L{0 if turn % 2 else 3} {20 - 4 * turn}" for turn in range(1, 6))
    picture.fill(f"M3 0{right}L3 20{left}Z", picture.down((0, c.TAPE), (1, c.TAPE_FOOT)))
    return picture


def selector_gray():
    picture = Picture(24, 24)
    marks.dashed(picture, 12, 12, 8, c.ABSENT, share=0.45)
    return picture


def selector_off():
    picture = Picture(24, 24)
    picture.ring(12, 12, 9, c.CREAM)
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


def ring(state):
    """Plays or stops a loop; gray on its row, so that it is no twin of the selector."""
    action, look = state.split("_")
    picture = Picture(24, 24)
    if look == "Row":
        picture.ring(12, 12, 9, c.SOCKET)
    else:
        lit = {"Press": c.CREAM_PRESSED, "Hover": c.CREAM if action == "Play" else c.WHITE, "Off": c.CREAM}
        picture.circle(12, 12, 10, lit[look])
    ink = c.CREAM if look == "Row" else c.INK
    if action == "Play":
        picture.fill("M9.5 8.3L16 12L9.5 15.7Z", ink, stroke=ink, stroke_width=1, stroke_linejoin="round")
    else:
        picture.rect(8, 8, 8, 8, ink, 1)
    return picture


def compare(plays, hover):
    """The leader of a yellow row as a key: the file is A, the loop that it would replace is B."""
    picture = Picture(46, 24)
    picture.fill("M0 0H44A2 2 0 0 1 46 2V22A2 2 0 0 1 44 24H12Z", c.YELLOW_LIT if hover else c.YELLOW)
    picture.fill("M0 0H44A2 2 0 0 1 46 2H1Z", c.YELLOW_LIT)
    for letter, outline, box in (("A", LETTER_A, 13), ("B", LETTER_B, 29)):
        if letter == plays:
            picture.rect(box, 4, 14, 16, c.INK, 3)
        picture.fill(Shape.placed(outline, 10), c.YELLOW if letter == plays else c.INK)
    return picture


def remove(hover):
    picture = Picture(16, 16)
    if hover:
        picture.circle(8, 8, 8, c.RED)
    marks.cross(picture, 8, 8, 3 if hover else 4, c.INK if hover else c.CROSS)
    return picture


def pictures():
    result = {
        "Import_field_Off": resting(), "Import_field_On": import_on(), "Import_field_rename": torn(284),
        "Export_field_Off": resting(), "Export_field_On": export_on(), "Export_field_overwrite": export_overwrite(),
        "Export_field_drop": export_drop(), "Export_field_drop_overwrite": export_drop_overwrite(),
        "Export_field_drop_refused": export_drop_refused(),
        "Drag_strip": drag_strip(), "Drag_count": drag_count(28), "Drag_count_wide": drag_count(36),
        "Import_Selector_gray": selector_gray(), "Import_Selector_Off": selector_off(),
        "Import_Selector_On": selector_ticked(c.BLUE),
        "Bring_back_field_in": bring_back_field(c.GREEN, c.GREEN_LIT),
        "Bring_back_field_replaces": bring_back_field(c.YELLOW, c.YELLOW_LIT),
        "Selector_in": selector_ticked(c.GREEN), "Selector_replaces": selector_ticked(c.YELLOW),
        "Target_loop": target("loop"), "Target_none": target("none"), "Target_chosen": target("chosen"),
        "Export_X": remove(False), "Export_X_Hover": remove(True),
    }
    result.update({f"Export_Add_{word}": add(word) for word in ADD_WORDS})
    result.update({state: ring(state) for state in RING_STATES})
    for plays in "AB":
        result[f"Export_compare_{plays}"] = compare(plays, hover=False)
        result[f"Export_compare_{plays}_Hover"] = compare(plays, hover=True)
    return result
