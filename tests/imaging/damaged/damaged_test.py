#!/usr/bin/env python3
"""usage: damaged_test.py KESTRIO [CASE...]

Renders sound, damaged and hostile pictures of every format and judges the results beside Pillow's.
"""
import io
import json
import os
import subprocess
import sys
import tempfile
import unittest
import warnings
from pathlib import Path

from PIL import Image, ImageChops

import pictures

KESTRIO = sys.argv.pop(1)
# The picture alone, pixel by pixel.
BARE = ["--backdrop", "none", "--padding", "0", "--corner-radius", "0", "--shadow", "off"]
LIMIT = 60  # seconds for hundreds of small pictures
LOSSY = (".jpg", "jpeg.tiff", "lossy.webp", "alpha.webp", "moving.webp")
MEGABYTE = 1 << 20


def by_pillow(data):
    """The first frame as Pillow sees it, or none where it finds fault."""
    try:
        with warnings.catch_warnings():
            warnings.simplefilter("ignore")
            picture = Image.open(io.BytesIO(data))
            picture.load()
            if picture.mode.startswith("I"):
                return picture.point(lambda v: v / 257).convert("RGBA")
            return picture.convert("RGBA")
    except Exception:  # its plugins raise whatever they meet
        return None


def difference(one, other):
    """The largest difference of any channel where both are seen; 255 for other sizes."""
    if one.size != other.size:
        return 255
    worst = 0
    for a, b in zip(one.getdata(), other.getdata()):
        alpha = abs(a[3] - b[3])
        # Colours of what is hardly opaque are rounded away when it is premultiplied.
        colour = max(abs(x - y) for x, y in zip(a[:3], b[:3])) * max(a[3], b[3]) // 255
        worst = max(worst, alpha, colour)
    return worst


class Outcome:
    """What one call made of many files."""

    def __init__(self, folder, files, perturb=0, extra=()):
        out = folder / f"out{perturb}"
        out.mkdir()
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen",
                           GLIBC_TUNABLES=f"glibc.malloc.perturb={perturb}")
        command = [KESTRIO, "render", *map(str, files), *map(str, extra), "-o", str(out), "--format",
                   "png", "--json", *BARE]
        process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   env=environment)
        stdout, stderr = process.communicate(timeout=LIMIT)
        self.status = process.returncode
        self.lines = stderr.decode().splitlines()
        report = json.loads(stdout)
        self.made = {Path(each["input"]).name: Path(each["path"]) for each in report["outputs"]}
        self.refused = {Path(each["input"]).name: each["message"] for each in report["failures"]}

    def picture(self, name):
        return Image.open(self.made[name]).convert("RGBA")


class DamagedPictures(unittest.TestCase):
    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.folder = Path(place.name)

    def written(self, rows):
        self.data = dict(rows)
        files = []
        for name, data in self.data.items():
            files.append(self.folder / name)
            files[-1].write_bytes(data)
        return files

    def check_lines(self, outcome):
        """One line for each failure, of our own."""
        self.assertEqual(outcome.status, 1 if outcome.refused else 0)
        self.assertEqual(len(outcome.lines), len(outcome.refused), outcome.lines)
        for line in outcome.lines:
            self.assertRegex(line, r"^kestrio: ")

    def check_agreement(self, outcome, name):
        expected = by_pillow(self.data[name])
        if expected is None:
            return False
        allowed = 6 if name.endswith(LOSSY) else 1
        self.assertLessEqual(difference(outcome.picture(name), expected), allowed, name)
        return True

    def test_sound_pictures_are_read_as_pillow_reads_them(self):
        outcome = Outcome(self.folder, self.written(pictures.sound_pictures()))
        self.assertEqual(outcome.refused, {})
        self.check_lines(outcome)
        for name in self.data:
            self.assertTrue(self.check_agreement(outcome, name), name)

    def test_pictures_that_end_early_are_refused(self):
        rows = [row for name, data in pictures.sound_pictures().items()
                for row in pictures.truncated(name, data)]
        outcome = Outcome(self.folder, self.written(rows))
        self.assertEqual(sorted(outcome.made), [])
        self.check_lines(outcome)

    def test_hostile_bitmaps_and_gifs_are_refused(self):
        rows = [*pictures.hostile_bitmaps(), *pictures.hostile_gifs()]
        outcome = Outcome(self.folder, self.written(rows))
        self.assertEqual(sorted(outcome.made), [])
        self.assertEqual([line for line in outcome.refused.values() if "damaged" not in line], [])
        self.check_lines(outcome)

    def test_garbled_pictures_show_nothing_of_the_heap(self):
        rows = [row for name, data in pictures.sound_pictures().items()
                for row in pictures.garbled(name, data)]
        # Rows that a run length leaves out belong to nobody.
        skipping = b"\x10\x03\0\2\x05\x03" * 9
        rows.append(("gaps-rle.bmp", pictures.bmp(8, 1, skipping + b"\0\1", pictures.WIDTH,
                                              pictures.HEIGHT - 1, pictures.COLOURS)))
        files = self.written(rows)
        outcomes = [Outcome(self.folder, files, perturb) for perturb in (85, 170)]
        self.check_lines(outcomes[0])
        self.assertEqual(outcomes[0].refused, outcomes[1].refused)
        agreed = 0
        for name in outcomes[0].made:
            same = ImageChops.difference(outcomes[0].picture(name), outcomes[1].picture(name))
            self.assertEqual([extreme for extreme in same.getextrema() if extreme != (0, 0)], [],
                             name)
            # Where broken run lengths leave a row, each decoder goes on elsewhere.
            if "rle" not in name:
                agreed += self.check_agreement(outcomes[0], name)
        self.assertIn("gaps-rle.bmp", outcomes[0].made)
        self.assertGreater(agreed, 20)

    def test_claims_beyond_memory_are_refused_unread(self):
        files = self.written(pictures.giants())
        sparse, pipe = self.folder / "sparse.png", self.folder / "pipe.png"
        with open(sparse, "wb") as file:
            file.truncate(3 << 30)
        os.mkfifo(pipe)
        extra = [sparse, pipe, "/dev/zero", "/dev/null"]
        outcome = Outcome(self.folder, files, extra=extra)
        self.assertEqual(sorted(outcome.made), [])
        self.assertEqual(len(outcome.refused), len(files) + len(extra))
        for name in self.data:
            self.assertRegex(outcome.refused[name], "claims .* pixels", name)
        self.check_lines(outcome)
        for file in files + extra:
            self.assertLess(self.peak_memory(file), 120 * MEGABYTE, file)

    def peak_memory(self, file):
        process = subprocess.Popen([KESTRIO, "render", str(file), "-o", str(self.folder / "x.png"), *BARE],
                                   stderr=subprocess.DEVNULL,
                                   env=dict(os.environ, QT_QPA_PLATFORM="offscreen"))
        _, _, usage = os.wait4(process.pid, 0)
        process.returncode = 1
        return usage.ru_maxrss * 1024

    def test_unsupported_kinds_of_tiff_are_told_apart_from_damage(self):
        outcome = Outcome(self.folder, self.written({"big.tiff": pictures.big_tiff(),
                                                     "float.tiff": pictures.float_tiff()}))
        self.assertEqual(len(outcome.refused), 2)
        for message in outcome.refused.values():
            self.assertIn("not supported", message)
        self.check_lines(outcome)


if __name__ == "__main__":
    unittest.main()
