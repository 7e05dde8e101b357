"""Artwork of the panels: menu, progress, flashing, alerts, firmware, software update, About, and the icon."""

import buttons
import colours as c
import marks
import rows
from svg import Picture
from window import lamps, plate_fill

FLASH_LAMPS = 43


def menu_panel():
    """The outline runs around the tab that covers the menu button and the body under it."""
    picture = Picture(224, 208)
    picture.fill("M184 44V8A8 8 0 0 1 192 0H216A8 8 0 0 1 224 8V200A8 8 0 0 1 216 208H8A8 8 0 0 1 0 200V52"
                 "A8 8 0 0 1 8 44Z", c.PANEL_EDGE)
    picture.fill("M186 46V8A6 6 0 0 1 192 2H216A6 6 0 0 1 222 8V200A6 6 0 0 1 216 206H8A6 6 0 0 1 2 200V52"
                 "A6 6 0 0 1 8 46Z", c.MENU)
    buttons.bars(picture, 194, 12, c.YELLOW)
    return picture


def progress_reel():
    picture = Picture(48, 48)
    picture.circle(24, 24, 24, c.RIM)
    picture.circle(24, 24, 22, c.GROOVE)
    marks.reel(picture, 24, 24, 20, 10, c.CREAM)
    return picture


def flash_bar():
    picture = Picture(352, 24)
    lamps(picture, 4, 4, c.CREAM, FLASH_LAMPS, 6, 16, 8)
    return picture


def flash_track():
    picture = Picture(352, 24)
    picture.rect(0, 12, 350, 12, c.RIM, 4)
    picture.rect(0, 0, 350, 22, c.GROOVE, 4)
    lamps(picture, 4, 4, c.LAMP_OFF, FLASH_LAMPS, 6, 16, 8)
    return picture


def alert_question():
    picture = Picture(40, 40)
    picture.rect(0, 0, 40, 40, c.YELLOW, 10)
    marks.slashed(picture, 20, 20, 10, 11, c.INK, 3)
    return picture


def alert_notice():
    picture = Picture(40, 40)
    picture.frame(0, 0, 40, 40, 10, c.CREAM, c.GROOVE)
    picture.ring(20, 20, 10, c.CREAM, 3)
    picture.circle(20, 20, 3, c.YELLOW)
    return picture


def pedal():
    """Seen from above, without its foot switch."""
    picture = Picture(40, 48)
    picture.frame(0, 0, 40, 48, 8, c.CREAM, c.GROOVE)
    picture.circle(11, 12, 3, c.CREAM)
    picture.circle(29, 12, 3, c.CREAM)
    return picture


def firmware_pedal():
    picture = pedal()
    picture.ring(20, 35, 6, c.CREAM)
    picture.line("M20 11V22M15.5 18L20 22.5L24.5 18", c.YELLOW)
    return picture


def firmware_done():
    picture = pedal()
    picture.circle(20, 34, 7, c.CREAM)
    picture.line("M16.6 34.2L19 36.6L23.6 31.4", c.INK)
    return picture


def firmware_repair():
    """It waits: its switch is not there yet, as a loop that is missing."""
    picture = pedal()
    marks.dashed(picture, 20, 35, 6, c.CREAM)
    picture.rect(19, 9, 2, 9, c.YELLOW)
    picture.rect(19, 20, 2, 3, c.YELLOW)
    return picture


def firmware_missing():
    """Nobody knows where it is."""
    picture = pedal()
    marks.dashed(picture, 20, 34, 6.5, c.YELLOW)
    return picture


def update_mark():
    """An open ring that something new comes down into."""
    picture = Picture(40, 40)
    picture.frame(0, 0, 40, 40, 10, c.CREAM, c.GROOVE)
    picture.line(f"M{marks.point(20, 21, 11, -52)}A11 11 0 1 1 {marks.point(20, 21, 11, -128)}", c.CREAM, 3)
    picture.line("M20 7V22M14.5 17.5L20 23L25.5 17.5", c.YELLOW, 3)
    return picture


def about_tape(picture):
    picture.rect(2, 174, 476, 28, c.SHADOW)
    picture.rect(2, 176, 476, 24, picture.down((0, c.OXIDE), (1, c.OXIDE_FOOT)))
    picture.rect(2, 176, 476, 2, c.OXIDE_EDGE)
    picture.cut("M134 176L110 200M370 176L346 200", c.SHADOW, 2, stroke_opacity=0.35)
    picture.fill("M2 176H132L108 200H2Z", c.GREEN)
    picture.fill("M2 176H132L130 178H2Z", c.GREEN_LIT)
    picture.fill("M372 176H478V200H348Z", c.BLUE)
    picture.fill("M372 176H478V178H370Z", c.BLUE_LIT)
    marks.chevrons(picture, 34, 188, 12, c.INK, 1, 3, 26, 2.4)
    marks.chevrons(picture, 390, 188, 12, c.INK, 1, 3, 26, 2.4)


def about():
    """The mark stands on a tape that runs through the plate, green in and blue out; clear outside."""
    picture = Picture(480, 300)
    picture.frame(0, 0, 480, 300, 24, c.OXIDE_EDGE, plate_fill(picture))
    about_tape(picture)
    scale, left, top = 3.6, 45.6, 72.2
    marks.numeral(picture, left, top, c.CREAM, scale)
    x, y = left + 67 * scale, top + 14 * scale
    picture.circle(x, y, 14 * scale, c.CREAM)
    picture.circle(x, y, 10 * scale, c.GROOVE)
    marks.reel(picture, x, y, 8.6 * scale, 4.4 * scale, c.YELLOW)
    return picture


def icon():
    """The zero of the mark as a reel, on a plate with tape running along its foot."""
    picture = Picture(128, 128)
    # The larger edges lie on multiples of 8, so that they stay on whole pixels down to 16 x 16.
    picture.frame(0, 0, 128, 128, 28, c.OXIDE_EDGE, plate_fill(picture), 4)
    picture.rect(4, 78, 120, 20, c.SHADOW)
    picture.rect(4, 80, 120, 16, picture.down((0, c.OXIDE), (1, c.OXIDE_FOOT)))
    picture.fill("M4 80H34L22 96H4Z", c.GREEN)
    picture.fill("M106 80H124V96H94Z", c.BLUE)
    picture.circle(64, 58, 43, c.SHADOW)
    picture.circle(64, 58, 40, c.CREAM)
    picture.circle(64, 58, 26, c.GROOVE)
    marks.reel(picture, 64, 58, 24, 14, c.YELLOW)
    return picture


def bring_back_panel():
    picture = Picture(640, 396)
    picture.rect(0, 0, 640, 396, plate_fill(picture))
    for x in (16, 624):
        for y in (16, 380):
            marks.screw(picture, x, y)
    picture.frame(32, 24, 40, 40, 10, c.CREAM, c.GROOVE)
    picture.line("M47 35.84A10 10 0 1 1 42 44.5M51.5 30.6L46.6 35.6L52.6 39.2", c.CREAM, 3)
    picture.circle(52, 44.5, 3, c.YELLOW)
    picture.rect(0, 86, 640, 2, c.SHADOW)
    picture.rect(0, 88, 640, 220, c.TRAY)
    picture.rect(0, 88, 640, 8, picture.down((0, "#000000", 0.3), (1, "#000000", 0)))
    picture.rect(0, 308, 640, 2, c.TRAY_LINE)
    for row in range(6):
        rows.wide_groove(picture, 92, 104 + 32 * row)
    return picture


def bring_back_blank():
    """Screwed over the grooves while there is nothing in them."""
    picture = Picture(360, 136)
    picture.rect(0, 96, 360, 40, c.SHADOW, 12)
    picture.frame(0, 0, 360, 132, 12, c.PLATE_EDGE, plate_fill(picture))
    for x in (16, 344):
        for y in (16, 116):
            marks.screw(picture, x, y)
    return picture


def pictures():
    return {"Menu_panel": menu_panel(), "Progress_reel": progress_reel(), "Flash_bar": flash_bar(),
            "Flash_track": flash_track(), "Alert_question": alert_question(), "Alert_notice": alert_notice(),
            "Firmware_pedal": firmware_pedal(), "Firmware_done": firmware_done(),
            "Firmware_repair": firmware_repair(), "Firmware_missing": firmware_missing(), "Update_mark": update_mark(), "About": about(), "Icon": icon(),
            "Bring_back_panel": bring_back_panel(), "Bring_back_blank": bring_back_blank()}
