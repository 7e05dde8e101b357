"""Lower buttons 112 x 40, mass buttons 80 x 32, the menu button 40 x 40."""

import colours as c
import marks
import words
from svg import Picture


class Face:
    """How one state of a lower button looks; pressed faces stand 2 lower with a thinner lip."""

    def __init__(self, top, foot, ink, lip=None, lit=None, mark=None, pressed=False):
        self.top, self.foot, self.ink, self.lip, self.lit = top, foot, ink, lip, lit
        self.mark = mark or ink
        self.pressed = pressed


def flat(colour, ink, lip=None, pressed=False):
    return Face(colour, colour, ink, lip, pressed=pressed)


GRAY = flat(c.DISABLED, c.DISABLED_WORD, pressed=True)
BROWN = Face("#523230", "#482A29", c.WHITE, c.SHADOW, "#6B4744")
FACES = {
    "Erase": {
        "Off": Face("#523230", "#482A29", c.WHITE, c.SHADOW, "#6B4744", mark=c.RED),
        "hover": Face("#FF6257", "#F23A38", c.INK, "#8E1A1A", "#FF8A80"),
        "On": flat("#B82222", c.WHITE, c.SHADOW, pressed=True),
        "Gray": GRAY,
    },
    "Import": {
        "Off": Face("#2CC6EA", "#00A6CE", c.INK, "#00708C", "#6BDDF5"),
        "hover": flat("#ADE1FF", c.INK, "#00708C"),
        "On": flat("#0093B8", c.INK, "#00708C", pressed=True),
        "Gray": GRAY,
    },
    "Export": {
        "Off": Face("#8CE8B2", "#5CCB8B", c.INK, "#2F8A58", "#B7F3CF"),
        "hover": flat("#B4F5CE", c.INK, "#2F8A58"),
        "On": flat("#4DB97B", c.INK, "#2F8A58", pressed=True),
        "Gray": GRAY,
    },
    "Cancel": {
        "Off": BROWN,
        "hover": Face("#754D4A", "#653F3D", c.WHITE, c.SHADOW, "#8A625F"),
        "On": flat(c.PLATE_LIT, c.WHITE, c.SHADOW, pressed=True),
    },
}
GAP = 8


def body(picture, face, width, height):
    top = 2 if face.pressed else 0
    if face.lip:
        # The lip starts below the face's upper corners, or it would shine through their edge.
        picture.rect(0, height - 24, width, 24, face.lip, 8)
    fill = face.top if face.top == face.foot else picture.down((0, face.top), (1, face.foot))
    picture.rect(0, top, width, height - 4, fill, 8)
    if face.lit:
        picture.fill(f"M2.71 2A8 8 0 0 1 8 0H{width - 8}A8 8 0 0 1 {width - 2.71} 2Z", face.lit)
    return top


def lower(name, face):
    picture = Picture(112, 40)
    top = body(picture, face, 112, 40)
    mark_width = {"Erase": 15, "Import": 12, "Export": 12, "Cancel": 0}[name]
    word_width = words.width(name, 15)
    gap = GAP if mark_width else 0
    left = round((112 - mark_width - gap - word_width) / 2)
    middle = top + 18
    with picture.part("mark"):
        if name == "Erase":
            marks.dashed(picture, left + 7.5, middle, 6.4, face.mark, 2.2, share=0.56)
        elif name == "Import":
            marks.chevrons(picture, left + 1, middle, 8, face.mark, 1, pitch=6)
        elif name == "Export":
            marks.chevrons(picture, left + 1, middle, 8, face.mark, -1, pitch=6)
    words.translated(picture, name, left + mark_width + gap, top + 23, 15, face.ink, (8, 104), left)
    return picture


MASS = {"Base": (c.PLATE_EDGE, c.PLATE_RAISED, c.CREAM), "Hover": (c.PLATE_EDGE, c.PLATE_HOVER, c.WHITE),
        "Press": (c.PLATE_EDGE, c.TRAY, c.CREAM), "Gray": (None, c.PLATE_DIM, c.MASS_DISABLED)}


def mass(word, state):
    edge, face, ink = MASS[state]
    picture = Picture(80, 32)
    if edge:
        picture.frame(0, 0, 80, 32, 8, edge, face)
    else:
        picture.rect(0, 0, 80, 32, face, 8)
    left = round((80 - 16 - 6 - words.width(word, 13)) / 2)
    with picture.part("mark"):
        if word == "All":
            picture.circle(left + 8, 16, 8, ink)
            picture.line(f"M{left + 4.4} 16.4L{left + 7} 19L{left + 11.8} 13.2", face)
        else:
            picture.ring(left + 8, 16, 7, ink)
    words.translated(picture, word, left + 22, 21, 13, ink, (6, 74), left)
    return picture


def bars(picture, x, y, colour):
    for row in (0, 6, 12):
        picture.rect(x, y + row, 20, 2, colour)


def menu_button():
    picture = Picture(40, 40)
    picture.frame(0, 0, 40, 40, 8, c.PLATE_EDGE, c.PLATE_RAISED)
    bars(picture, 10, 12, c.CREAM)
    return picture


def pictures():
    result = {"Menu_button": menu_button()}
    for name, faces in FACES.items():
        result.update({f"{name}_button_{state}": lower(name, face) for state, face in faces.items()})
    for prefix, word in (("Select_All", "All"), ("Deselect_All", "None")):
        result.update({f"{prefix}_{state}": mass(word, state) for state in MASS})
    return result
