#!/usr/bin/env python3
"""Refuses an include that goes up the house: a folder may include only what stands below it."""
import pathlib
import re
import sys

TOP = pathlib.Path(__file__).resolve().parent.parent
# Lowest first. Folders of one row are subjects beside each other and do not include one another,
# except that a screen may use the models of the row below it.
ROWS = [["platform"], ["zrtool"], ["link"], ["core"], ["gfx"], ["widgets"], ["ui"],
        ["users", "cameras", "storage", "ai"], ["live", "playback", "settings", "alarms"]]
LEVEL = {room: row for row, rooms in enumerate(ROWS) for room in rooms}
# A public header of a room above libzrtool carries a line "// room: NAME".
ROOM_LINE = re.compile(r"^// room: (\w+)", re.M)
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.M)


def public_rooms():
    rooms = {}
    for header in (TOP / "include" / "pub").iterdir():
        found = ROOM_LINE.search(header.read_text())
        rooms[header.name] = found.group(1) if found else "zrtool"
    return rooms


def room_of_include(name, public):
    if name in public:
        return public[name]
    head = name.split("/")[0]
    return head if "/" in name and head in LEVEL else None


def main():
    public = public_rooms()
    files = [(p, p.relative_to(TOP / "src").parts[0]) for p in (TOP / "src").rglob("*")
             if p.suffix in (".h", ".cpp") and len(p.relative_to(TOP / "src").parts) > 1]
    files += [(TOP / "include" / "pub" / name, room) for name, room in public.items()]
    faults = []
    for path, room in files:
        for _, name in INCLUDE.findall(path.read_text(errors="replace")):
            other = room_of_include(name, public)
            if other is None or other == room:
                continue
            if other not in LEVEL or room not in LEVEL or LEVEL[other] >= LEVEL[room]:
                faults.append(f"{path.relative_to(TOP)} ({room}) includes {name} ({other})")
    # The product knows nothing of the workbench or the tests.
    for path, _ in files:
        if re.search(r'#include "(workbench|tests|bench)/', path.read_text(errors="replace")):
            faults.append(f"{path.relative_to(TOP)} includes from outside the product")
    print("\n".join(faults) if faults else "every include goes down the house")
    return 1 if faults else 0


sys.exit(main())
