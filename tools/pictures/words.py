"""Words as outlines, so that no picture needs a font."""

import json
import pathlib

from svg import Shape

_words = json.loads((pathlib.Path(__file__).parent / "words.json").read_text())


def width(word, size, weight="Medium", spacing=0.0):
    em = _words[weight]["unitsPerEm"]
    return _words[weight][word]["advance"] * size / em + spacing * (len(word) - 1)


def write(picture, word, x, baseline, size, colour, weight="Medium", spacing=0.0, anchor="start", **more):
    """Draws `word` with its baseline at the given height; anchor is start or middle."""
    if anchor == "middle":
        x -= width(word, size, weight, spacing) / 2
    scale = size / _words[weight]["unitsPerEm"]
    data = "".join(Shape.placed(letter, x + spacing * index, baseline, scale, flip=-1)
                   for index, letter in enumerate(_words[weight][word]["letters"]) if letter)
    picture.fill(data, colour, **more)


def translated(picture, word, x, baseline, size, colour, room, group=None, weight="Medium"):
    """A word that has another one painted in its place in other languages.

    `room` is where that begins and ends at most. With `group`, which is the left end of the mark before the word, both
    stand in the middle of the room together, otherwise it begins where this does.
    """
    with picture.part("word"):
        write(picture, word, x, baseline, size, colour, weight, data_word=word, data_x=x, data_baseline=baseline,
              data_size=size, data_weight=None if weight == "Medium" else weight, data_from=room[0], data_to=room[1],
              data_group=group)
