#!/usr/bin/env python3
"""Fails when a room links other rooms than its files include, or when a CMakeLists.txt or a QML file
takes files from the folder of another room.

usage: check_cmake.py PROJECT
"""
import re
import sys
from pathlib import Path

from check_includes import read_includes

LIBRARY = re.compile(r"kestrio_(room|views)\((\w+)([^)]*)\)")
EXECUTABLE = re.compile(r"target_link_libraries\((kestrio) PRIVATE([^)]*)\)")
LINKS = re.compile(r"\bLINKS\s+((?:[\w:${}]+\s*)*)")
QML_MODULE = re.compile(r"^\s*import\s+Kestrio\.(\w+)", re.MULTILINE)
QML_FOLDER = re.compile(r"""^\s*import\s+["']\.\./""", re.MULTILINE)
# From the project's root, or upward from where the file lies.
OUTSIDE = re.compile(r"""\$\{(?:PROJECT|CMAKE)_SOURCE_DIR\}/([^\s)"';]*)|((?:\.\./)+[^\s)"';]*)""")


def commands(path):
    return re.sub(r"#.*", "", path.read_text(encoding="utf-8"))


def rooms_in(words):
    return {word for word in words.split() if word.startswith("kestrio_")}


def read_targets(source):
    """The rooms that each target links, by the folder and the suffix that tell its files apart."""
    targets = {}
    for path in sorted(source.rglob("CMakeLists.txt")):
        folder, text = path.parent.relative_to(source).as_posix(), commands(path)
        for kind, name, rest in LIBRARY.findall(text):
            found = LINKS.search(rest)
            suffix = "_views" if kind == "views" else ""
            targets[folder, suffix] = (f"kestrio_{name}{suffix}", rooms_in(found[1] if found else ""))
        for name, words in EXECUTABLE.findall(text):
            targets[folder, "main"] = (name, rooms_in(words))
    return targets


def target_of(name, targets):
    """The place among `targets` of the one that a file is compiled into; none for files of no room."""
    folder, _, file = name.rpartition("/")
    if file == "main.cpp":
        return folder, "main"
    suffix = "_views" if "/views" in folder else ""
    folder = folder.split("/views")[0]
    while folder and (folder, suffix) not in targets:
        folder = folder.rpartition("/")[0]
    return (folder, suffix) if folder else None


def wrong_links(source):
    targets = read_targets(source)
    needed = {place: set() for place in targets}
    for name, includes in read_includes(source).items():
        place = target_of(name, targets)
        for include in includes if place in targets else []:
            other = target_of(include, targets)
            if other in targets:
                needed[place].add(targets[other][0])
    for path in source.rglob("views/qml/*.qml"):
        place = target_of(path.relative_to(source).as_posix(), targets)
        for module in QML_MODULE.findall(path.read_text(encoding="utf-8")) if place in targets else []:
            needed[place].add(f"kestrio_{module.lower()}_views")
    faults = []
    for place, (target, links) in targets.items():
        # Views come with their room.
        own = {target, target.removesuffix("_views")}
        faults += [f"{target} does not link {room}, which it includes"
                   for room in sorted(needed[place] - links - own)]
        faults += [f"{target} links {room}, which it does not include"
                   for room in sorted(links - needed[place])]
    return faults


def foreign_files(source):
    faults = []
    for path in sorted(source.rglob("*/CMakeLists.txt")):
        name = path.relative_to(source).as_posix()
        own = f"src/{name.split('/')[0]}"
        for absolute, upward in OUTSIDE.findall(commands(path)):
            if upward or absolute.split("/")[0] != "assets" and not f"{absolute}/".startswith(f"{own}/"):
                faults.append(f"{name} takes {absolute or upward} from outside its room")
    for path in sorted(source.rglob("*.qml")):
        if QML_FOLDER.search(path.read_text(encoding="utf-8")):
            faults.append(f"{path.relative_to(source).as_posix()} imports a folder instead of a module")
    return faults


def check(source):
    return wrong_links(source) + foreign_files(source)


if __name__ == "__main__":
    found = check(Path(sys.argv[1]) / "src")
    print("\n".join(found) or "all rooms link what they include and keep to their folders")
    sys.exit(1 if found else 0)
