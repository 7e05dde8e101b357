"""The window's plate 768 x 504, the meter, the small marks of its foot, and the blanking plate of an empty tray."""

import colours as c
import marks
import words
from svg import Picture

LAMPS = 24
LAMP_PITCH = 10


def plate_fill(picture):
    return picture.down((0, c.PLATE_LIT), (0.14, c.PLATE), (1, c.PLATE_FOOT))


def cheek(picture, x):
    picture.rect(x, 0, 12, 504, picture.across((0, "#5A3222"), (0.45, "#7A482F"), (1, "#4A281B")))
    for offset, sway, opacity in ((2, 1.2, 0.28), (4, -0.8, 0.16), (6.5, 1.6, 0.22), (9, -1.2, 0.3), (10.5, 0.6, 0.18)):
        left = x + offset
        picture.line(f"M{left} 0C{left + sway} 110 {left - sway} 190 {left + sway / 2} 278"
                     f"C{left + sway * 1.5} 360 {left - sway} 430 {left} 504", "#2A140B", 1, stroke_opacity=opacity)
    for y in (16, 488):
        marks.screw(picture, x + 6, y)


def window_plate():
    picture = Picture(768, 504)
    picture.rect(12, 0, 744, 504, plate_fill(picture))
    picture.rect(14, 68, 740, 356, c.TRAY)
    picture.rect(14, 76, 740, 8, picture.down((0, "#000000", 0.3), (1, "#000000", 0)))
    picture.rect(14, 424, 740, 2, c.TRAY_LINE)
    marks.mark(picture, 32, 16, c.CREAM, c.YELLOW)
    words.write(picture, "LOOP MANAGER", 32, 60, 10, c.GRAY, spacing=2.95)
    for x in (12, 754):
        picture.rect(x, 0, 2, 504, c.SHADOW)
    cheek(picture, 0)
    cheek(picture, 756)
    return picture


def lamps(picture, x, y, colour, count, width, height, pitch):
    for index in range(count):
        picture.rect(x + index * pitch, y, width, height, colour, 1)


def meter_bar(colour):
    picture = Picture(240, 12)
    lamps(picture, 0, 0, colour, LAMPS, 8, 12, LAMP_PITCH)
    return picture


def meter_track():
    """Unlit lamps in a groove over the scale in minutes; the lamps start at (8, 8)."""
    picture = Picture(264, 48)
    picture.rect(4, 14, 248, 10, c.RIM, 4)
    picture.rect(4, 4, 248, 18, c.GROOVE, 4)
    lamps(picture, 8, 8, c.LAMP_OFF, LAMPS, 8, 12, LAMP_PITCH)
    picture.rect(8, 26, 200, 2, "#6B5654")
    picture.rect(208, 26, 30, 2, c.ORANGE)
    picture.rect(238, 26, 10, 2, c.RED)
    for minute in range(0, 25, 4):
        left = 246 if minute == 24 else 8 + minute * LAMP_PITCH
        colour = {20: c.ORANGE, 24: c.RED}.get(minute, c.GRAY)
        picture.rect(left, 26, 2, 6, colour)
        words.write(picture, str(minute), left + 1, 43, 11, c.GRAY, anchor="middle")
    return picture


def warning_mark():
    picture = Picture(24, 24)
    picture.rect(2, 2, 20, 20, c.YELLOW, 6)
    marks.slashed(picture, 12, 12, 5, 5.5, c.INK)
    return picture


def status_mark():
    """Something failed, and nothing was replaced: no slash."""
    picture = Picture(16, 16)
    picture.ring(8, 8, 7, c.YELLOW)
    picture.rect(7, 4, 2, 5, c.YELLOW)
    picture.rect(7, 10, 2, 2, c.YELLOW)
    return picture


def menu_check():
    picture = Picture(12, 12)
    picture.line("M2 6.5L5 9.5L10 3", c.CREAM)
    return picture


def empty_note():
    picture = Picture(28, 36)
    picture.frame(2, 0, 24, 36, 6, c.GRAY, c.GROOVE)
    picture.circle(10, 9, 2, c.GRAY)
    picture.circle(18, 9, 2, c.GRAY)
    picture.ring(14, 24, 5, c.GRAY)
    return picture


def knob(picture, x, y, turn):
    picture.circle(x, y + 1, 11, c.GROOVE)
    picture.circle(x, y, 9, picture.down((0, c.TAPE), (1, "#DDCFB6")))
    picture.line(f"M{x} {y}L{marks.point(x, y, 7.4, turn)}", c.INK)


def loose_plug(picture, x, y):
    """The cable, hanging free, and the plug at its end."""
    cable = (f"M{x + 56} {y + 10}C{x + 56} {y - 18} {x + 120} {y - 14} {x + 118} {y + 22}"
             f"C{x + 116} {y + 60} {x + 150} {y + 40} {x + 150} {y + 74}V{y + 92}")
    picture.line(cable, c.SHADOW, 6)
    picture.line(cable, c.OXIDE_EDGE, 4)
    picture.rect(x + 145, y + 116, 10, 14, c.GRAY, 1)
    picture.rect(x + 147, y + 122, 2, 4, c.INK)
    picture.rect(x + 151, y + 122, 2, 4, c.INK)
    picture.rect(x + 142, y + 90, 16, 28, picture.across((0, "#8C635D"), (1, "#6A4744")), 4)
    for offset in (98, 102, 106):
        picture.rect(x + 146, y + offset, 8, 2, c.PANEL_EDGE)


def large_pedal(picture, x, y):
    picture.rect(x + 8, y + 40, 96, 120, c.SHADOW, 14)
    picture.rect(x + 8, y + 8, 96, 148, c.PANEL_EDGE, 14)
    picture.rect(x + 10, y + 10, 92, 144, plate_fill(picture), 12)
    knob(picture, x + 34, y + 36, 238)
    knob(picture, x + 78, y + 36, -48)
    picture.circle(x + 56, y + 62, 5, c.PANEL_EDGE)
    picture.circle(x + 56, y + 62, 3, c.GROOVE)
    marks.mark(picture, x + 29, y + 74, c.CREAM, c.CREAM, 0.5)
    picture.circle(x + 56, y + 122, 21, c.GROOVE)
    picture.ring(x + 56, y + 121, 18, c.PANEL_EDGE)
    picture.circle(x + 56, y + 120, 13, picture.down((0, c.BRASS), (1, c.BRASS_FOOT)))
    picture.ring(x + 56, y + 120, 8, "#8A6A34", 1)


def empty_plate():
    """A blanking plate over the resting rows: a pedal whose plug hangs free. The words beside it are labels."""
    picture = Picture(504, 220)
    picture.rect(0, 180, 504, 40, c.SHADOW, 12)
    picture.frame(0, 0, 504, 218, 12, c.PLATE_EDGE, plate_fill(picture))
    for x in (16, 488):
        for y in (16, 202):
            marks.screw(picture, x, y)
    loose_plug(picture, 48, 22)
    large_pedal(picture, 48, 22)
    return picture


def check(ticked):
    picture = Picture(20, 20)
    picture.frame(0, 0, 20, 20, 6, c.SOCKET, c.GROOVE)
    if ticked:
        picture.line("M5.5 10.5L8.6 13.6L14.5 6.8", c.CREAM, 2.2)
    return picture


def pictures():
    result = {"Window_plate": window_plate(), "Meter_track": meter_track(), "Warning_mark": warning_mark(),
              "Status_mark": status_mark(), "Menu_check": menu_check(), "Check_off": check(False), "Check_on": check(True),
              "Empty_plate": empty_plate(), "Empty_note": empty_note()}
    for name, colour in (("green", c.GREEN), ("orange", c.ORANGE), ("red", c.RED)):
        result[f"Meter_bar_{name}"] = meter_bar(colour)
    return result
