#!/usr/bin/env python3
"""Holds code and data together: every text that the code names is in the English package, and texts
go by their names in src/ui/text_ids.h, not by bare numbers."""
import pathlib
import re
import sys
import xml.etree.ElementTree

TOP = pathlib.Path(__file__).resolve().parent.parent
NAMES = "text_ids.h"
BARE = re.compile(r"(?<![\w.>:])(?:ZrTranslation::)?tr\s*\(\s*\d+\s*\)")
NAMED = re.compile(r"=\s*(\d+)\s*,")
TABLE = re.compile(r"\bTextIds\[\]\s*=\s*\{([^}]*)\}")


def without_comments(text):
    text = re.sub(r"//[^\n]*", "", text)
    return re.sub(r"/\*.*?\*/", lambda m: "\n" * m.group().count("\n"), text, flags=re.S)


def main():
    package = xml.etree.ElementTree.parse(TOP / "language" / "tran_english.xml")
    english = {int(text.get("id")) for text in package.iter("tr")}
    faults = []
    named = 0

    def expect(path, text, at, number):
        nonlocal named
        named += 1
        if number not in english:
            line = text.count("\n", 0, at) + 1
            faults.append(f"{path.relative_to(TOP)}:{line}: {number} has no English text")

    for path in sorted((TOP / "src").rglob("*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        text = without_comments(path.read_text(errors="replace"))
        for found in BARE.finditer(text):
            line = text.count("\n", 0, found.start()) + 1
            faults.append(f"{path.relative_to(TOP)}:{line}: {found.group()}")
        if path.name == NAMES:
            for found in NAMED.finditer(text):
                expect(path, text, found.start(), int(found[1]))
        for table in TABLE.finditer(text):
            for number in re.findall(r"(?<!-)\b\d+", table[1]):
                expect(path, text, table.start(), int(number))
    if named == 0:
        faults.append("no text has a name: is src/ui/text_ids.h still there?")
    print("\n".join(faults) if faults else f"all {named} texts that the code names are there")
    return 1 if faults else 0


sys.exit(main())
