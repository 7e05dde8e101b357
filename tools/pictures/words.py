"""Words as outlines, so that no picture needs a font."""

import json
import pathlib

from svg import Shape

_words = json.loads((pathlib.Path(__file__).parent / "words.json").read_text())


def width(word, size, weight="Medium", spacing=0.0):
    em = _words[weight]["unitsPerEm"]
    return _words[weight][word]["advance"] * size / em + spacing * (len(word) - 1)


def write(picture, word, x, baseline, size, colour, weight="Medium", spacing=0.0, anchor="start"):
    """Draws `word` with its baseline at the given height; anchor is start or middle."""
    if anchor == "middle":
        x -= width(word, size, weight, spacing) / 2
    scale = size / _words[weight]["unitsPerEm"]
    data = "".join(Shape.placed(letter, x + spacing * index, baseline, scale, flip=-1)
                   for index, letter in enumerate(_words[weight][word]["letters"]) if letter)
    picture.fill(data, colour)
