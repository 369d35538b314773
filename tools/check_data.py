#!/usr/bin/env python3
"""Holds code and data together: no picture, pointer, style file or style key that src/ names is missing,
and the palette is the same in docs/look.md, in the icon maker and in style/.

A name that the code puts together is told to this check by a comment beside it:
    // data: images/mainview-layout*.png images/more-layout{,-hover}.png
    // data: style/commonstyle.ini Zr{LineEdit,SpinBox}/Border/{Normal,Hover,Focus,Disabled}
Each word with braces stands for all its forms, which must exist; one with a "*" must have at least one
match; a word that begins with neither folder is a key of the style file before it. The rows of
src/ui/commonstyle.cpp tell their keys themselves, by a prefix and a set of states.

    --unused   lists what no code names, instead of checking
"""
import fnmatch
import pathlib
import re
import sys

TOP = pathlib.Path(__file__).resolve().parent.parent
LITERAL = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
DATA_LINE = re.compile(r"//\s*data:\s*(.*)")
KEY = re.compile(r"^[A-Za-z0-9]+(?:/[A-Za-z0-9_]+)+$")
STATE_ROW = re.compile(r'"([\w/]+/)",\s*ColorKeys::ByState,\s*([\w| ]+),')
STATES = {"N": "Normal", "H": "Hover", "F": "Focus", "D": "Disabled"}
COMMON_STYLE = "style/commonstyle.ini"
FOLDERS = ("images/", "cursor-image/")
COLOR = re.compile(r"rgb\((\d+), (\d+), (\d+)\)")
PALETTE_ROW = re.compile(r"^\| (\w+) \| `#([0-9A-F]{6})` \|", re.M)
PALETTE_ENTRY = re.compile(r'\{"(\w+)", \{(\d+), (\d+), (\d+)\}\}')


def expand(pattern):
    """All forms of a word with {a,b} groups."""
    found = re.search(r"\{([^{}]*)\}", pattern)
    if not found:
        return [pattern]
    head, tail = pattern[: found.start()], pattern[found.end():]
    return [form for part in found[1].split(",") for form in expand(head + part + tail)]


def table_names(name):
    lines = (TOP / "images" / name).read_text().splitlines()
    return [line.split()[0] for line in lines if line and line[0] not in "# "]


def pictures():
    """Every file that the tables of images/ make."""
    names = [form for pattern in table_names("icons.txt") for form in expand(pattern)]
    modes = re.findall(r'\{\d+,\s*"([^"]+)"', (TOP / "src/live/splitmodes.cpp").read_text())
    names += [f"mainview-layout{mode}{twin}" for mode in modes for twin in ("", "-hover")]
    pointers = [pointer + twin for pointer in table_names("pointers.txt") for twin in ("", "-max")]
    doubles = sorted({name for name in names if names.count(name) > 1})
    if doubles:
        sys.exit("icons.txt makes twice: " + ", ".join(doubles))
    return {f"images/{name}.png" for name in names} | {f"cursor-image/{name}.png" for name in pointers}


def style_keys(path):
    keys, section = set(), ""
    for line in path.read_text().splitlines():
        if line.startswith("["):
            section = line[1:line.index("]")]
        elif " = " in line and not line.startswith(";"):
            keys.add(section + "/" + line.split(" = ")[0])
    return keys


class Checker:
    def __init__(self):
        self.pictures = pictures()
        self.styles = {f"style/{path.name}": style_keys(path) for path in (TOP / "style").glob("*.ini")}
        self.sections = {key.split("/")[0] for keys in self.styles.values() for key in keys}
        self.used = set()
        self.faults = []

    def check_source(self, path):
        text = path.read_text(errors="replace")
        lines = text.splitlines()
        told = [(number, found[1]) for number, line in enumerate(lines, 1)
                if (found := DATA_LINE.search(line))]
        named = [name for _, words in told for name in words.split() if name in self.styles]
        self.place = lambda number: f"{path.relative_to(TOP)}:{number}"
        for number, words in told:
            self.check_told(words.split(), number)
        literals = [(number, found[1]) for number, line in enumerate(lines, 1)
                    for found in LITERAL.finditer(line.split("//")[0])]
        named += [text for _, text in literals if text.startswith("style/")]
        if "commonStyleFile()" in text:
            named.append(COMMON_STYLE)
        prefixes = self.check_state_rows(text)
        for number, literal in literals:
            self.check_literal(literal, number, named, bool(told) or literal in prefixes)

    def check_state_rows(self, text):
        prefixes = set()
        for row in STATE_ROW.finditer(text):
            prefixes.add(row[1])
            for letter in "NHFD" if row[2] == "All" else row[2].split(" | "):
                key = row[1] + STATES[letter]
                self.need(key in self.styles[COMMON_STYLE], text.count("\n", 0, row.start()) + 1, key)
        return prefixes

    def need(self, isThere, number, name):
        if isThere:
            self.used.add(name)
        else:
            self.faults.append(f"{self.place(number)}: no such data: {name}")

    def check_told(self, words, number):
        keys = None
        for word in words:
            for name in expand(word):
                if name.startswith("style/"):
                    keys = self.styles.get(name)
                    self.need(keys is not None, number, name)
                    continue
                pool = self.pictures if name.startswith(FOLDERS) else keys or set()
                matches = set(fnmatch.filter(pool, name))
                self.used |= matches
                self.need(bool(matches), number, name)

    def check_literal(self, literal, number, named, isTold):
        if literal.startswith("style/"):
            self.need(literal in self.styles, number, literal)
        elif literal.startswith(FOLDERS):
            if literal.endswith(".png"):
                self.need(literal in self.pictures, number, literal)
            elif not isTold:
                self.faults.append(f"{self.place(number)}: tell the names made of \"{literal}\" "
                                   'in a "// data:" line')
        elif literal.split("/")[0] in self.sections and "/" in literal:
            if KEY.match(literal):
                files = [self.styles[name] for name in named if name in self.styles]
                self.need(any(literal in keys for keys in files or self.styles.values()), number, literal)
            elif not isTold:
                self.faults.append(f"{self.place(number)}: tell the keys made of \"{literal}\" "
                                   'in a "// data:" line')

    def check_palette(self):
        told = {name: tuple(int(rgb[i:i + 2], 16) for i in (0, 2, 4))
                for name, rgb in PALETTE_ROW.findall((TOP / "docs/look.md").read_text())}
        maker = {name: tuple(map(int, rgb)) for name, *rgb in
                 PALETTE_ENTRY.findall((TOP / "tools/icons/palette.cpp").read_text())}
        for name, color in maker.items():
            if told.get(name) != color:
                self.faults.append(f"tools/icons/palette.cpp: docs/look.md has another {name}")
        for path in sorted((TOP / "style").glob("*.ini")):
            for number, line in enumerate(path.read_text().splitlines(), 1):
                for rgb in COLOR.findall(line):
                    if tuple(map(int, rgb)) not in told.values():
                        self.faults.append(f"{path.relative_to(TOP)}:{number}: not in the palette of "
                                           f"docs/look.md: {line}")

    def unused(self):
        everything = self.pictures | {key for keys in self.styles.values() for key in keys}
        return sorted(everything - self.used)


def main():
    checker = Checker()
    for path in sorted((TOP / "src").rglob("*")):
        if path.suffix in (".h", ".cpp"):
            checker.check_source(path)
    if "--unused" in sys.argv:
        print("\n".join(checker.unused()))
        return 0
    checker.check_palette()
    print("\n".join(checker.faults) if checker.faults else "code and data agree")
    return 1 if checker.faults else 0


sys.exit(main())
