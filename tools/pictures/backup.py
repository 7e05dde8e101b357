"""Artwork of Back Up and Restore: the panel, its marks, the tape with what is chosen, the slots' fields."""

import colours as c
import marks
from rows import torn
from svg import Picture
from window import plate_fill

FIELD = (260, 28)
COLUMNS = (84, 412)  # where the fields of a column begin


def groove(picture, x, y):
    picture.rect(x, y + 14, FIELD[0], 14, c.RIM, 4)
    picture.rect(x, y, FIELD[0], 26, c.GROOVE, 4)


def panel():
    picture = Picture(704, 504)
    picture.rect(0, 0, 704, 504, plate_fill(picture))
    for x in (16, 688):
        for y in (16, 488):
            marks.screw(picture, x, y)
    picture.rect(0, 102, 704, 2, c.SHADOW)
    picture.rect(0, 104, 704, 320, c.TRAY)
    picture.rect(0, 104, 704, 8, picture.down((0, "#000000", 0.3), (1, "#000000", 0)))
    picture.rect(0, 424, 704, 2, c.TRAY_LINE)
    for x in COLUMNS:
        for row in range(10):
            groove(picture, x, 112 + 30 * row + (6 if row >= 5 else 0))
    return picture


def mark(arrow):
    picture = Picture(40, 40)
    picture.frame(0, 0, 40, 40, 10, c.CREAM, c.GROOVE)
    picture.ring(20, 20, 11, c.CREAM, 3)
    picture.line(arrow, c.YELLOW, 2.6)
    return picture


def field(colour, lit, leans, taped=True):
    """A loop that travels, its leader leaning the way the audio goes; one that is erased has no tape."""
    picture = Picture(*FIELD)
    groove(picture, 0, 0)
    top, foot = (236, 224) if leans == "/" else (224, 236)
    if taped:
        picture.rect(6, 2, 230, 24, picture.down((0, c.OXIDE), (1, c.OXIDE_FOOT)))
        picture.rect(6, 2, top - 6, 2, c.OXIDE_EDGE)
        picture.cut(f"M{top - 2} 2L{foot - 2} 26", c.SHADOW, 2, stroke_opacity=0.35)
    picture.fill("M2 4A2 2 0 0 1 4 2H8V26H4A2 2 0 0 1 2 24Z", colour)
    picture.fill("M2 4A2 2 0 0 1 4 2H8V4Z", lit)
    picture.fill(f"M{top} 2H256A2 2 0 0 1 258 4V24A2 2 0 0 1 256 26H{foot}Z", colour)
    picture.fill(f"M{top} 2H256A2 2 0 0 1 258 4H{top + (foot - top) / 12}Z", lit)
    return picture


def saved():
    picture = field(c.BLUE, c.BLUE_LIT, "/")
    marks.chevrons(picture, 238, 14, 8, c.INK, 1, pitch=6)
    return picture


def new():
    picture = field(c.GREEN, c.GREEN_LIT, "\\")
    marks.chevrons(picture, 239, 14, 8, c.INK, -1, pitch=6)
    return picture


def replaced():
    picture = field(c.YELLOW, c.YELLOW_LIT, "\\")
    marks.slashed(picture, 245, 14, 5, 6, c.INK)
    return picture


def erased():
    picture = field(c.RED, "#FF8A80", "\\", taped=False)
    marks.dashed(picture, 245, 14, 6, c.INK)
    return picture


def change(kind):
    """What becomes of a slot, 16 x 16."""
    picture = Picture(16, 16)
    if kind == "same":
        picture.ring(8, 8, 5, c.SOCKET)
    elif kind == "none":
        marks.dashed(picture, 8, 8, 5, c.ABSENT, 1.6, share=0.45)
    elif kind == "saved":
        picture.circle(8, 8, 8, c.BLUE)
        picture.line("M4.6 8.4L7 10.8L11.6 5.6", c.INK)
    elif kind == "replaced":
        picture.rect(0, 0, 16, 16, c.YELLOW, 4)
        marks.slashed(picture, 8, 8, 3.8, 4.4, c.INK, 1.8)
    elif kind == "erased":
        picture.rect(0, 0, 16, 16, c.RED, 4)
        marks.dashed(picture, 8, 8, 4.6, c.INK)
    return picture


def pictures():
    named = {f"Change_{kind}": change(kind) for kind in ("same", "none", "saved", "replaced", "erased")}
    return {"Backup_panel": panel(), "Backup_tape": torn(372),
            "Backup_mark": mark("M20 13V25M15.5 21L20 25.6L24.5 21"),
            "Restore_mark": mark("M20 27V15M15.5 19L20 14.4L24.5 19"),
            "Backup_field_saved": saved(), "Backup_field_new": new(), "Backup_field_replaced": replaced(),
            "Backup_field_erased": erased(), **named}
