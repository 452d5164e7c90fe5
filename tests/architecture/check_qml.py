#!/usr/bin/env python3
"""QML reads only names that the types of this program have.

usage: check_qml.py QMLLINT MODULES SOURCES

MODULES is the folder of the built QML modules. What qmllint says of Qt's types does not count: it knows
many of them less well than the engine does. A map has no names that could be checked.
"""
import re
import subprocess
import sys
from pathlib import Path

UNKNOWN_NAME = re.compile(r'^Warning: (.*: Property "\w+" not found on type "(?:kestrio::\w+|QVariantMap)")', re.MULTILINE)


def faults(report):
    """The lines of qmllint's report that name something which a type of ours lacks."""
    return UNKNOWN_NAME.findall(report)


def check(qmllint, modules, sources):
    files = sorted(Path(sources).glob("*/views/qml/*.qml"))
    if not files:
        return [f"no QML files below {sources}"]
    # Its status is that of everything it has to say.
    run = subprocess.run([qmllint, "-I", modules, *files], capture_output=True, text=True, check=False,
                         timeout=100)
    report = run.stdout + run.stderr
    # Every module is imported by one of its files; what is not found would say nothing of its types.
    missing = re.findall(r"^Warning: (.*Failed to import Kestrio.*)", report, re.MULTILINE)
    return missing + faults(report)


def main():
    found = check(*sys.argv[1:4])
    print("\n".join(found))
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
