#!/usr/bin/python3
"""`kestrio stitch` as users and scripts run it: files of frames in, one tall picture out, and a true exit status.

usage: stitch_test.py PROGRAM FOLDER [unittest arguments]

FOLDER has the program that paints the page which the frames show.
"""
import json
import os
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

from PIL import Image

WIDTH, HEIGHT, STEP, PAGE_ROWS = 800, 600, 240, 3600
BAR = 40  # the header and the footer
MAPPED_FROM = 64 << 20  # bytes of a bitmap that lies in the temporary folder
DONE, FAILED, USAGE, CANCELLED = 0, 1, 2, 3
LONGEST_END = 2  # seconds from Ctrl-C to the end


def paint_page(folder, file):
    command = [folder / "scrolling_page", "--size", f"{WIDTH}x{HEIGHT}", "--rows", str(PAGE_ROWS),
               "--sticky-header", str(BAR), "--sticky-footer", str(BAR), "--write-page", file]
    with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}) as process:
        process.stdout.readline()  # as soon as the window shows it
        process.terminate()
    with Image.open(file) as picture:
        return picture.convert("RGB")


def rows(picture, top, bottom):
    return picture.crop((0, top, picture.width, bottom))


def stacked(*parts):
    picture = Image.new("RGB", (parts[0].width, sum(part.height for part in parts)))
    top = 0
    for part in parts:
        picture.paste(part, (0, top))
        top += part.height
    return picture


class StitchTest(unittest.TestCase):
    program = folder = page = header = footer = None

    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory() as place:
            whole = paint_page(cls.folder, Path(place) / "page.png")
        cls.header = rows(whole, 0, BAR)
        cls.page = rows(whole, BAR, BAR + PAGE_ROWS)
        cls.footer = rows(whole, BAR + PAGE_ROWS, whole.height)

    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.place = Path(place.name)
        self.output = self.place / "out.png"
        self.temporary = self.place / "temporary"
        self.temporary.mkdir()
        runtime = self.place / "runtime"
        runtime.mkdir(mode=0o700)
        self.environment = {**os.environ, "LANGUAGE": "en", "LC_ALL": "C.UTF-8", "TMPDIR": str(self.temporary),
                            "XDG_RUNTIME_DIR": str(runtime)}

    def frame(self, name, picture):
        picture.save(self.place / f"{name}.png", compress_level=1)
        return self.place / f"{name}.png"

    def frames(self, *tops):
        return [self.frame(f"frame{top}", rows(self.page, top, top + HEIGHT)) for top in tops]

    def endless_frames(self, count):
        """The page begins anew where it ends."""
        endless = stacked(self.page, rows(self.page, 0, HEIGHT))
        files = [self.frame(f"endless{top}", rows(endless, top, top + HEIGHT)) for top in range(0, PAGE_ROWS, STEP)]
        return [files[number % len(files)] for number in range(count)]

    def command(self, *arguments):
        return [self.program, "stitch", *arguments]

    def run_program(self, command, status, **variables):
        """`variables` are those of the environment that differ."""
        process = subprocess.run(command, capture_output=True, text=True, timeout=120, check=False,
                                 env={**self.environment, **variables})
        self.assertEqual(process.returncode, status, process.stderr)
        return process

    def stitch(self, *arguments, status=DONE, **variables):
        """The report on standard output, and what standard error says."""
        process = self.run_program(self.command("--json", *arguments, "-o", self.output), status, **variables)
        return json.loads(process.stdout), process.stderr

    def assert_picture(self, expected):
        with Image.open(self.output) as picture:
            self.assertEqual(picture.size, expected.size)
            self.assertEqual(picture.convert("RGB").tobytes(), expected.tobytes())

    def assert_nothing_left(self):
        self.assertFalse(self.output.exists())
        self.assertEqual(list(self.temporary.iterdir()), [])
        self.assertEqual([each for each in self.place.iterdir() if each.name.startswith(".")], [])

    def test_frames_make_the_page_bit_for_bit(self):
        tops = [0, 240, 480, 481, 700, 1120]
        files = self.frames(*tops)
        report, errors = self.stitch(*files)
        self.assert_picture(rows(self.page, 0, 1120 + HEIGHT))
        self.assertEqual((report["path"], report["width"], report["height"]),
                         (str(self.output), WIDTH, 1120 + HEIGHT))
        self.assertGreater(report["seconds"], 0)
        self.assertGreater(report["peakRetainedBytes"], WIDTH * HEIGHT * 4)
        frames = report["frames"]
        self.assertEqual([frame["input"] for frame in frames], [str(file) for file in files])
        self.assertEqual([frame["disposition"] for frame in frames],
                         ["seeded", "appended", "appended", "noMotion", "appended", "appended"])
        self.assertEqual([frame["addedRows"] for frame in frames], [HEIGHT, 240, 240, 0, 220, 420])
        self.assertEqual([frame["motion"] for frame in frames[1:]], [240, 240, 1, 220, 420])
        self.assertTrue(all(0.5 < frame["confidence"] <= 1 for frame in frames))
        self.assertTrue(all(frame["horizontalOffset"] == 0 for frame in frames))
        self.assertEqual(len(errors.splitlines()), 1)
        self.assertIn("frame481.png", errors)

    def test_bars_that_stand_still_appear_once(self):
        visible = HEIGHT - 2 * BAR
        tops = range(0, 1200, STEP)
        files = [self.frame(f"bars{top}", stacked(self.header, rows(self.page, top, top + visible), self.footer))
                 for top in tops]
        self.stitch(*files)
        self.assert_picture(stacked(self.header, rows(self.page, 0, tops[-1] + visible), self.footer))

    def test_frames_without_news_are_named_and_no_failure(self):
        first, second = self.frames(0, STEP)
        for files, height in (([first], HEIGHT), ([first] * 3, HEIGHT), ([first, second, second], HEIGHT + STEP),
                              ([first, second, first], HEIGHT + STEP)):
            with self.subTest(files=len(files), height=height):
                report, errors = self.stitch(*files)
                self.assert_picture(rows(self.page, 0, height))
                idle = [frame for frame in report["frames"] if frame["addedRows"] == 0]
                self.assertEqual(len(errors.splitlines()), len(idle))
                self.assertEqual(sum(frame["addedRows"] for frame in report["frames"]), height)
                self.output.unlink()

    def test_what_makes_no_picture_writes_none(self):
        first, second, far = self.frames(0, STEP, 2400)
        for files, reason in (([first, second, far], str(far)), ([second, first], "above the first frame"),
                              ([far, second, first], str(first))):
            with self.subTest(reason=reason):
                report, errors = self.stitch(*files, status=FAILED)
                self.assertIsNone(report["path"])
                self.assertIn(reason, errors)
                self.assertIn("--keep-going", errors)
                self.assert_nothing_left()

    def test_a_frame_after_a_gap_closes_it(self):
        first, second, far = self.frames(0, STEP, 2400)
        third = self.frames(2 * STEP)[0]
        _, errors = self.stitch(first, second, far, third)
        self.assert_picture(rows(self.page, 0, 2 * STEP + HEIGHT))
        self.assertIn(str(far), errors)

    def test_keep_going_joins_and_names_the_break(self):
        first, second, far, further = self.frames(0, STEP, 2400, 2400 + STEP)
        report, errors = self.stitch("--keep-going", first, second, far, further)
        self.assert_picture(stacked(rows(self.page, 0, STEP + HEIGHT), rows(self.page, 2400, 2400 + STEP + HEIGHT)))
        self.assertEqual([frame.get("joinedAsBreak", False) for frame in report["frames"]],
                         [False, False, True, False])
        self.assertEqual(report["frames"][2]["addedRows"], HEIGHT)
        self.assertEqual(len(errors.splitlines()), 1)
        self.assertIn(str(far), errors)
        self.assertIn(f"row {STEP + HEIGHT} ", errors)

    def test_other_sizes_are_refused(self):
        first, second, third = self.frames(0, STEP, 2 * STEP)
        narrow = self.frame("narrow", rows(self.page, STEP, STEP + HEIGHT).crop((0, 0, WIDTH - 1, HEIGHT)))
        low = self.frame("low", rows(self.page, STEP, STEP + HEIGHT - 1))
        report, errors = self.stitch(first, narrow, second, low, third)
        self.assert_picture(rows(self.page, 0, 2 * STEP + HEIGHT))
        self.assertEqual(errors.count("size"), 2)
        self.assertEqual([frame.get("obstacle") for frame in report["frames"]],
                         [None, "otherSize", None, "otherSize", None])
        self.output.unlink()
        # Not even as a break can it be joined: its rows are missing from what is written.
        self.stitch("--keep-going", first, low, status=FAILED)
        self.assert_picture(rows(self.page, 0, HEIGHT))

    def test_files_that_cannot_be_read_fail_the_run(self):
        first, second, third = self.frames(0, STEP, 2 * STEP)
        damaged = self.place / "damaged.png"
        damaged.write_bytes(first.read_bytes()[:5000])
        for bad in (self.place / "missing.png", damaged, self.place):
            with self.subTest(bad=bad.name):
                report, errors = self.stitch(first, bad, second, third, status=FAILED)
                self.assertIn(str(bad), errors)
                self.assertEqual(report["frames"][1]["input"], str(bad))
                self.assertTrue(report["frames"][1]["failure"])
                self.assert_picture(rows(self.page, 0, 2 * STEP + HEIGHT))
                self.output.unlink()
                self.stitch(bad, status=FAILED)
                self.assert_nothing_left()

    def test_wrong_usage_is_told_apart(self):
        frame = self.frames(0)[0]
        for arguments in ([frame], ["-o", self.output], [frame, "-o", self.place / "out.xyz"],
                          [frame, "-o", self.output, "--no-such-option"]):
            with self.subTest(arguments=arguments):
                process = self.run_program(self.command(*arguments), USAGE)
                self.assertTrue(process.stderr)
                self.assert_nothing_left()
        self.run_program(self.command(frame, "-o", self.place / "no" / "folder.png"), FAILED)

    def test_an_old_file_survives_a_failure(self):
        first, far = self.frames(0, 2400)
        self.output.write_bytes(b"old")
        self.stitch(first, far, status=FAILED)
        self.assertEqual(self.output.read_bytes(), b"old")

    def test_ctrl_c_ends_it_without_a_file(self):
        files = self.endless_frames(2000)
        with subprocess.Popen(self.command(*files, "-o", self.output), stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, env=self.environment) as process:
            time.sleep(1)
            self.assertIsNone(process.poll(), "it was done before it could be stopped")
            start = time.monotonic()
            process.send_signal(signal.SIGINT)
            process.communicate(timeout=30)
            self.assertLess(time.monotonic() - start, LONGEST_END)
        self.assertEqual(process.returncode, CANCELLED)
        self.assert_nothing_left()

    def large(self):
        count = (MAPPED_FROM // (WIDTH * 4) - HEIGHT) // STEP + 3
        return self.endless_frames(count), HEIGHT + (count - 1) * STEP

    def test_large_pictures_lie_in_the_temporary_folder(self):
        files, height = self.large()
        report, _ = self.stitch(*files)
        self.assertEqual(report["height"], height)
        copies = [self.page] * (height // PAGE_ROWS + 1)
        self.assert_picture(rows(stacked(*copies), 0, height))
        self.assertEqual(list(self.temporary.iterdir()), [])

    def test_a_full_temporary_folder_is_told(self):
        files, _ = self.large()
        mounted = ["unshare", "--mount", "--map-root-user", "sh", "-c",
                   'mount -t tmpfs -o size=8m none "$TMPDIR" && exec "$@"', "sh"]
        if subprocess.run([*mounted, "true"], check=False, capture_output=True,
                          env=self.environment).returncode != 0:
            self.skipTest("no folder can be mounted here")
        process = self.run_program([*mounted, *self.command(*files, "-o", self.output)], FAILED)
        self.assertIn("temporary folder", process.stderr)
        self.assert_nothing_left()

    def test_a_missing_temporary_folder_is_told(self):
        files, _ = self.large()
        process = self.run_program(self.command(*files, "-o", self.output), FAILED,
                                   TMPDIR=str(self.place / "none"))
        self.assertIn("temporary folder", process.stderr)
        self.assert_nothing_left()


def main():
    StitchTest.program, StitchTest.folder = (Path(argument).resolve() for argument in sys.argv[1:3])
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)


if __name__ == "__main__":
    main()
