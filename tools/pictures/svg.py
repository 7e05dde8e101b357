"""A picture as a list of SVG elements, and the few primitives the family is drawn with.

Coordinates are logical pixels, origin at the top left. Paths are absolute, without transformations, so that
every number in a written file is where the thing really is.
"""

import contextlib
import re


def number(value):
    """At most two decimals, no trailing noughts, no minus nought."""
    text = f"{value:.2f}".rstrip("0").rstrip(".")
    return "0" if text in ("-0", "") else text


def attributes(values):
    """Keyword arguments as SVG attributes; underscores stand for hyphens."""
    parts = []
    for name, value in values.items():
        if value is None:
            continue
        shown = value if isinstance(value, str) else number(value)
        parts.append(f'{name.replace("_", "-")}="{shown}"')
    return " ".join(parts)


class Shape:
    """Path data under construction: M, L, H, V, C, Q, A and Z in absolute coordinates."""

    _arguments = {"M": "xy", "L": "xy", "H": "x", "V": "y", "C": "xyxyxy", "S": "xyxy", "Q": "xyxy",
                  "A": "rr000xy", "Z": ""}

    @staticmethod
    def placed(data, x=0.0, y=0.0, scale=1.0, flip=1.0):
        """`data` scaled and then moved to (x, y); flip -1 turns it upside down, as glyphs need."""
        tokens = re.findall(r"[A-Za-z]|-?[0-9]*\.?[0-9]+", data)
        out, index, command = [], 0, ""
        while index < len(tokens):
            if tokens[index].isalpha():
                command = tokens[index]
                index += 1
            elif command == "M":
                command = "L"  # further points of a move are lines
            kinds = Shape._arguments[command]
            values = []
            for kind in kinds:
                value = float(tokens[index])
                index += 1
                if kind == "x":
                    value = x + value * scale
                elif kind == "y":
                    value = y + value * scale * flip
                elif kind == "r":
                    value *= scale
                values.append(number(value))
            out.append(command + " ".join(values))
        return "".join(out)


class Picture:
    """One file: its size, its gradients and its elements in painting order."""

    def __init__(self, width, height):
        self.width = width
        self.height = height
        self._gradients = {}
        self._elements = []
        self._part = None

    def _gradient(self, kind, stops):
        key = (kind, tuple(stops))
        if key not in self._gradients:
            self._gradients[key] = f"g{len(self._gradients) + 1}"
        return f"url(#{self._gradients[key]})"

    def down(self, *stops):
        """A fill running from the top of the shape to its foot: (offset, colour) or (offset, colour, opacity)."""
        return self._gradient('linearGradient x1="0" y1="0" x2="0" y2="1"', stops)

    def across(self, *stops):
        return self._gradient('linearGradient x1="0" y1="0" x2="1" y2="0"', stops)

    def round(self, *stops):
        return self._gradient('radialGradient cx="0.5" cy="0.5" r="0.5"', stops)

    def rect(self, x, y, width, height, fill, rx=None, **more):
        self._add("rect", x=x, y=y, width=width, height=height, rx=rx, fill=fill, **more)

    def frame(self, x, y, width, height, rx, outline, fill, line=2):
        """A filled box with a line of `line` pixels inside its edge: two boxes, so that edges stay on pixels."""
        self.rect(x, y, width, height, outline, rx)
        self.rect(x + line, y + line, width - 2 * line, height - 2 * line, fill, rx - line)

    def circle(self, x, y, radius, fill, **more):
        self._add("circle", cx=x, cy=y, r=radius, fill=fill, **more)

    def ring(self, x, y, radius, colour, width=2, **more):
        """A circle's line; `radius` is that of the line's middle."""
        self._add("circle", cx=x, cy=y, r=radius, fill="none", stroke=colour, stroke_width=width, **more)

    def fill(self, data, colour, **more):
        self._add("path", d=Shape.placed(data), fill=colour, **more)

    def line(self, data, colour, width=2, x=0.0, y=0.0, scale=1.0, **more):
        self._add("path", d=Shape.placed(data, x, y, scale), fill="none", stroke=colour,
                  stroke_width=width * scale, stroke_linecap="round", stroke_linejoin="round", **more)

    def cut(self, data, colour, width=2, **more):
        """A line with flat ends."""
        self._add("path", d=Shape.placed(data), fill="none", stroke=colour, stroke_width=width, **more)

    @contextlib.contextmanager
    def part(self, name):
        """What is drawn meanwhile can be left out or moved: see src/ui/picture_words.h."""
        self._part = name
        yield
        self._part = None

    def _add(self, element, **values):
        kind = {"class": self._part} if self._part else {}
        self._elements.append(f"<{element} {attributes(kind | values)}/>")

    def text(self):
        lines = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{self.width}" height="{self.height}" '
                 f'viewBox="0 0 {self.width} {self.height}">']
        if self._gradients:
            lines.append("<defs>")
            lines += [_gradientText(kind, stops, name) for (kind, stops), name in self._gradients.items()]
            lines.append("</defs>")
        return "\n".join(lines + self._elements + ["</svg>", ""])


def _gradientText(kind, stops, name):
    inner = "".join(
        f'<stop offset="{number(stop[0])}" stop-color="{stop[1]}"'
        + (f' stop-opacity="{number(stop[2])}"' if len(stop) > 2 else "") + "/>" for stop in stops)
    return f'<{kind} id="{name}">{inner}</{kind.split()[0]}>'
