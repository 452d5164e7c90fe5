#!/usr/bin/env python3
"""Fails when a room includes a room that does not lie below it, or when files, or the folders inside a
room, include each other in a circle.

usage: check_includes.py PROJECT
"""
import re
import sys
from pathlib import Path

# What each room may include besides itself, from the lowest floor up.
ROOMS = ["core", "imaging", "platform", "settings", "ui", "annotation", "render", "text", "library",
         "capture", "scrolling", "recording", "editor", "app"]

INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)


def read_includes(source):
    """Every file below `source` with the project files that it includes."""
    files = {path.relative_to(source).as_posix(): path
             for path in source.rglob("*") if path.suffix in (".h", ".cpp")}
    return {name: [target for target in INCLUDE.findall(path.read_text(encoding="utf-8"))
                   if target in files]
            for name, path in files.items()}


def room_of(name):
    return name.split("/")[0] if "/" in name else None


def upward_includes(includes):
    faults = []
    for name, targets in includes.items():
        room = room_of(name)
        if room is None:
            continue
        if room not in ROOMS:
            faults.append(f"{name}: room {room} has no floor")
            continue
        for target in targets:
            if ROOMS.index(room_of(target)) > ROOMS.index(room):
                faults.append(f"{name} includes {target} from a room above it")
    return faults


def inner_folders(includes):
    """Each folder with the other folders of its room that its own files include."""
    graph = {}
    for name, targets in includes.items():
        folder = name.rpartition("/")[0]
        for target in targets:
            other = target.rpartition("/")[0]
            if other != folder and room_of(other + "/") == room_of(name):
                graph.setdefault(folder, set()).add(other)
    return {folder: sorted(others) for folder, others in sorted(graph.items())}


def circles(includes, what="circle"):
    faults, done, path = [], set(), []

    def visit(name):
        if name in done:
            return
        if name in path:
            faults.append(f"{what}: " + " -> ".join(path[path.index(name):] + [name]))
            return
        path.append(name)
        for target in includes.get(name, []):
            visit(target)
        path.pop()
        done.add(name)

    for name in includes:
        visit(name)
    return faults


def check(source):
    includes = read_includes(source)
    return (upward_includes(includes) + circles(includes)
            + circles(inner_folders(includes), "circle of folders"))


if __name__ == "__main__":
    found = check(Path(sys.argv[1]) / "src")
    print("\n".join(found) or "no upward includes and no circles")
    sys.exit(1 if found else 0)
