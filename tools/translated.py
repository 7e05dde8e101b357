"""The program from outside, in the language WINDOW_LANGUAGE: what it shows is looked for by its English name."""

import os
import re
import xml.etree.ElementTree as ElementTree
from pathlib import Path

import driver

LANGUAGE = os.environ.get("WINDOW_LANGUAGE", "")
CATALOGUE = Path(__file__).resolve().parent.parent / f"resources/languages/{LANGUAGE}.ts"
HOLE = re.compile("%([1-9n])")
CHOOSER = "Dateiname:|Verzeichnis:|ファイル名.*|ディレクトリ.*"  # from Qt's own catalogues, where they are installed


def texts():
    """(the English text, its translation), of each form of each."""
    for message in ElementTree.parse(CATALOGUE).iter("message") if LANGUAGE else ():
        forms = [form.text for form in message.iter("numerusform")] or [message.findtext("translation")]
        yield message.findtext("source"), forms[-1]
        if one := message.findtext("comment"):
            yield one, forms[0]


def letters(text):
    return sum(sign.isalpha() for sign in HOLE.sub("", text))


# What says most comes first, and "%1 name" before "Loop %1". Without letters of its own, a text would be found
# everywhere.
TEXTS = sorted((text for text in texts() if letters(text[0])), key=lambda text: (-letters(text[0]), text[0][0] != "%"))


def named(english):
    """What the window says for it; nothing if that is not known."""
    for source, translation in TEXTS:
        parts = HOLE.split(source)
        pattern = "".join(f"(?P<a{part}>.+)" if at % 2 else re.escape(part) for at, part in enumerate(parts))
        if found := re.fullmatch(pattern, english):
            return HOLE.sub(lambda hole: found["a" + hole[1]], translation)
    return None


def piece(english):
    if found := named(english):
        return re.escape(found)
    begun = next((text for source, text in TEXTS if english and source.startswith(english)), None)
    return ".*".join(map(re.escape, HOLE.split(begun)[::2])) if begun else english


def said(pattern):
    if pattern == "File name:|Directory:":
        return f"{pattern}|{CHOOSER}"
    return ".*".join(map(piece, pattern.split(".*")))


def title(english):
    return named(english) or english


class Program(driver.Program):
    def window(self, name):
        wanted, about = title(name), title("About 7306 Loop Manager")  # which begins with the main window's in Japanese
        return next((window for window in self.windows() if window.name.startswith(wanted) and
                     (window.name != about or wanted == about)), None)

    def find(self, name, role=None):
        return super().find(said(name), role)
