"""Marks that come back throughout the family: rings, chevrons, screws, the pedal, the computer, the reel, 7306."""

import math

import colours as c

SEVEN = "M2 2H18L8 26"
THREE = "M29 2H45L37 11C42 10.4 46 14 46 18.3C46 22.8 42.2 26 37.4 26C33.4 26 30 24 28.6 20.8"
SIX_STEM = "M102 2L91.43 12.26"  # ends where it touches the bowl


def point(x, y, radius, degrees):
    angle = math.radians(degrees)
    return f"{x + radius * math.cos(angle):.3f} {y + radius * math.sin(angle):.3f}"


def dashed(picture, x, y, radius, colour, width=2, dashes=8, share=0.5):
    """No loop: a ring of dashes, each filling `share` of its part of the circle, none at the very top."""
    part = 360 / dashes
    data = ""
    for index in range(dashes):
        start = -90 + part * (index + 0.5 - share / 2)
        data += (f"M{point(x, y, radius, start)}A{radius} {radius} 0 0 1 "
                 f"{point(x, y, radius, start + part * share)}")
    picture.cut(data, colour, width)


def slashed(picture, x, y, radius, reach, colour, width=2):
    """A loop about to be replaced: a ring under a stroke of `reach` to each side."""
    picture.ring(x, y, radius, colour, width)
    picture.line(f"M{x - reach} {y + reach}L{x + reach} {y - reach}", colour, width)


def chevrons(picture, x, y, height, colour, pointing, count=2, pitch=8, width=2):
    """Chevrons whose first left edge is at x and whose middle is at y; pointing is 1 to the right, -1 to the left."""
    half = height / 2
    for index in range(count):
        left = x + index * pitch
        back, tip = (left, left + half) if pointing > 0 else (left + half, left)
        picture.line(f"M{back} {y - half}L{tip} {y}L{back} {y + half}", colour, width)


def cross(picture, x, y, reach, colour):
    picture.line(f"M{x - reach} {y - reach}L{x + reach} {y + reach}M{x + reach} {y - reach}L{x - reach} {y + reach}",
                 colour)


def screw(picture, x, y):
    picture.circle(x, y + 0.5, 4.5, c.SHADOW)
    picture.circle(x, y, 4, picture.down((0, c.BRASS), (1, c.BRASS_FOOT)))
    picture.line(f"M{x - 2} {y + 1.6}L{x + 2} {y - 1.6}", c.BRASS_SLOT, 1.4)


def numeral(picture, x, y, colour, scale=1.0):
    """7, 3 and 6 of the mark; the zero is drawn by the caller, centre (67, 14), radius 12."""
    for stroke in (SEVEN, THREE, SIX_STEM):
        picture.line(stroke, colour, 4, x, y, scale)
    picture.ring(x + 97 * scale, y + 18 * scale, 8 * scale, colour, 4 * scale)


def mark(picture, x, y, colour, hub, scale=1.0):
    """The mark 7306, 108 x 28 at scale 1."""
    numeral(picture, x, y, colour, scale)
    picture.ring(x + 67 * scale, y + 14 * scale, 12 * scale, colour, 4 * scale)
    picture.circle(x + 67 * scale, y + 14 * scale, 4 * scale, hub)


def holes(picture, x, y, distance, radius, colour):
    """Three drive holes of a reel's hub."""
    for degrees in (-90, 30, 150):
        px, py = point(x, y, distance, degrees).split()
        picture.circle(float(px), float(py), radius, colour)


def reel(picture, x, y, outer, hub, hub_colour):
    """Wound tape: the pack from `outer` down to a hub with three holes, the winding shown by thin rings."""
    picture.circle(x, y, outer, picture.round((0, c.OXIDE_FOOT), (0.5, c.OXIDE_FOOT), (1, c.OXIDE)))
    picture.ring(x, y, outer - 0.5, c.OXIDE_EDGE, 1)
    step = (outer - hub) / 4
    for turn in (1, 2, 3):
        picture.ring(x, y, hub + turn * step, c.SHADOW, max(step / 4, 0.7), stroke_opacity=0.45)
    picture.circle(x, y, hub, hub_colour)
    holes(picture, x, y, hub * 0.58, hub * 0.17, c.INK)
    picture.circle(x, y, hub * 0.26, c.INK)


def small_pedal(picture, x, y, colour):
    """The pedal in a 24 x 24 box."""
    picture.rect(x + 5, y + 3, 14, 18, "none", 3, stroke=colour, stroke_width=2)
    picture.circle(x + 9, y + 8, 1.5, colour)
    picture.circle(x + 15, y + 8, 1.5, colour)
    picture.ring(x + 12, y + 15.5, 2.5, colour)


def small_computer(picture, x, y, colour):
    """The computer in a 24 x 24 box."""
    picture.rect(x + 4, y + 5, 16, 11, "none", 2, stroke=colour, stroke_width=2)
    picture.line(f"M{x + 2} {y + 20}H{x + 22}", colour)


def arrow(picture, x, y, colour):
    """To the right, in the left part of a 24 x 24 box."""
    picture.line(f"M{x + 1} {y + 12}H{x + 13}M{x + 9} {y + 7.5}L{x + 13.5} {y + 12}L{x + 9} {y + 16.5}", colour)
