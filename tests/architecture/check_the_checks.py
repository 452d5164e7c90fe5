#!/usr/bin/env python3
"""Holds the two architecture checks against small trees with known faults."""
import tempfile
import unittest
from pathlib import Path

import check_includes
import check_paths


def tree(files):
    root = Path(tempfile.mkdtemp())
    for name, text in files.items():
        path = root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
    return root


class Includes(unittest.TestCase):
    def faults(self, **files):
        return check_includes.check(tree({name.replace("__", "/") + ".h": text
                                          for name, text in files.items()}))

    def test_downward_is_fine(self):
        self.assertEqual(self.faults(core__A="", render__B='#include "core/A.h"'), [])

    def test_upward_is_found(self):
        self.assertEqual(len(self.faults(core__A='#include "render/B.h"', render__B="")), 1)

    def test_circles_are_found(self):
        self.assertEqual(len(self.faults(core__A='#include "core/B.h"', core__B='#include "core/C.h"',
                                         core__C='#include "core/A.h"')), 1)

    def test_rooms_without_a_floor_are_found(self):
        self.assertEqual(len(self.faults(cellar__A="")), 1)


class Paths(unittest.TestCase):
    def test_dead_paths_are_found(self):
        root = tree({"README.md": "see `src/core/A.h` and [this](docs/x.md)", "ARCHITECTURE.md": "`src/gone/`",
                     "src/core/A.h": ""})
        self.assertEqual(check_paths.check(root), ["ARCHITECTURE.md: src/gone/", "README.md: docs/x.md"])


if __name__ == "__main__":
    unittest.main()
