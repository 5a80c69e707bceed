#!/usr/bin/env python3
"""Refuses an include from a lower room to a higher one, a circle of files, and a widget outside of the window rooms.
Usage: floors.py ROOT"""
import pathlib
import re
import sys

# From the ground up. A folder that is not named here belongs to the room that it stands in. The room `window` of a
# floor stands on its whole floor and on all below it, windows included.
ROOMS = {
    "src": "base office database handover shell data stock dialogs output "
           "bills bills/lines bills/paper bills/life bills/saving "
           "assembly assembly/voucher assembly/life assembly/saving frame".split(),
    "tools/acctset": ". asking making posting checking".split(),
}
WIDGET = re.compile(r"<Q(Widget|Application|MainWindow|Dialog|Label|Push|Table|Tree|Line|Painter|Icon|Tool|Menu)")
INCLUDE = re.compile(r'^#include ("[^"]+"|<[^>]+>)', re.M)


def height(path, rooms):
    """Where a file stands: its room's height, of a window that of its floor's highest room and a half."""
    folders = path.parent.parts
    if "window" in folders:
        floor = folders[0]
        return max(i for i, room in enumerate(rooms) if room.split("/")[0] == floor) + 0.5
    for parts in range(len(folders), -1, -1):
        room = "/".join(folders[:parts]) or "."
        if room in rooms:
            return rooms.index(room)
    return None


def circles(arrows):
    """One circle of files for each that there is, as a list of names."""
    done, path = set(), []

    def visit(name):
        if name in path:
            yield path[path.index(name):] + [name]
        elif name not in done:
            path.append(name)
            for below in sorted(arrows.get(name, ())):
                yield from visit(below)
            path.pop()
            done.add(name)

    for name in sorted(arrows):
        yield from visit(name)


def faults(root, rooms):
    arrows = {}
    for file in sorted([*root.rglob("*.h"), *root.rglob("*.cpp")]):
        name = file.relative_to(root)
        own = height(name, rooms)
        if own is None:
            yield f"{name} stands in no room"
            continue
        for quoted in INCLUDE.findall(file.read_text(encoding="utf-8")):
            included = pathlib.PurePath(quoted[1:-1])
            if quoted[0] == "<":
                if WIDGET.match(quoted) and "window" not in name.parts:
                    yield f"{name} is no window but uses one: {quoted}"
            elif (root / included).exists():
                if height(included, rooms) > own:
                    yield f"{name} includes upwards: {quoted}"
                if included.with_suffix("") != name.with_suffix(""):
                    arrows.setdefault(str(name.with_suffix("")), set()).add(str(included.with_suffix("")))
    for circle in circles(arrows):
        yield "a circle: " + " -> ".join(circle)


found = [f"{folder}: {fault}" for folder, rooms in ROOMS.items()
         for fault in faults(pathlib.Path(sys.argv[1]) / folder, rooms)]
print("\n".join(found))
sys.exit(bool(found))
