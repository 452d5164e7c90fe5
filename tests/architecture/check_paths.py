#!/usr/bin/env python3
"""Fails when ARCHITECTURE.md or README.md names a path of the project that does not exist.

usage: check_paths.py PROJECT
"""
import re
import sys
from pathlib import Path

# Anything in backticks that starts with a folder or file of the project's root.
QUOTED = re.compile(r"`((?:\./)?(?:src|tests|bench|fuzz|cmake|scripts|docs|assets|\.ci)/[^`\s*<>]*)`")
LINKED = re.compile(r"\]\(((?!https?:|#)[^)\s]+)\)")


def named_paths(text):
    return [*QUOTED.findall(text), *LINKED.findall(text)]


def missing(project, document):
    return [f"{document}: {path}" for path in named_paths((project / document).read_text(encoding="utf-8"))
            if not (project / path).exists()]


def check(project):
    return [fault for document in ("ARCHITECTURE.md", "README.md") for fault in missing(project, document)]


if __name__ == "__main__":
    found = check(Path(sys.argv[1]))
    print("\n".join(found) or "all named paths exist")
    sys.exit(1 if found else 0)
