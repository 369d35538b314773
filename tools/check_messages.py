#!/usr/bin/env python3
"""Refuses bare message numbers: the App link's messages are named in src/link/app_messages.h."""
import pathlib
import re
import sys

TOP = pathlib.Path(__file__).resolve().parent.parent
CATALOGUE = "app_messages.h"
ARGUMENT = r"\s*(?:uint16_t\s*\(|std::uint16_t\s*\()?\s*(\d+)\b"
FAULTS = [
    # A number as the main or sub type of a call.
    re.compile(r"\b(?:appSend|appRequest|appRequestData|appWaitState)\s*\(" + ARGUMENT),
    re.compile(r"\b(?:appSend|appRequest|appRequestData)\s*\([^,;()]*," + ARGUMENT),
    # A number that a message's type is compared with or set to.
    re.compile(r"\b(?:mainType|subType)\s*(?:\(\))?\s*(?:==|!=|<=|>=|<|>)\s*(\d+)\b"),
    re.compile(r"\.(?:mainType|subType)\s*=\s*([1-9]\d*)\b"),
    re.compile(r"\bis\s*\(\s*(\d+)\s*,"),
]


def without_comments(text):
    text = re.sub(r"//[^\n]*", "", text)
    return re.sub(r"/\*.*?\*/", lambda m: "\n" * m.group().count("\n"), text, flags=re.S)


def main():
    faults = []
    for folder in ("src", "workbench"):
        for path in sorted((TOP / folder).rglob("*")):
            if path.suffix not in (".h", ".cpp") or path.name == CATALOGUE:
                continue
            text = without_comments(path.read_text(errors="replace"))
            for rule in FAULTS:
                for found in rule.finditer(text):
                    line = text.count("\n", 0, found.start()) + 1
                    faults.append(f"{path.relative_to(TOP)}:{line}: {found.group().strip()}")
    print("\n".join(faults) if faults else "every message goes by its name")
    return 1 if faults else 0


sys.exit(main())
