#!/usr/bin/python3
"""Text in pictures as users and scripts read it: the command, and the frames in the editor.

usage: text_test.py PROGRAM FOLDER [unittest arguments]

FOLDER keeps pictures of the screen at failures.
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

from PIL import Image, ImageChops, ImageDraw, ImageFont

from desktop import wait_until
from editor import open_editor

DONE, FAILED, USAGE, CANCELLED = 0, 1, 2, 3
LONGEST_END = 2  # seconds from Ctrl-C to the end
PROSE = "Your order has been shipped to the red house."
CODE = "return value == other"
FONT_FOLDER = "/usr/share/fonts/truetype/dejavu"
PROSE_PLACE, CODE_PLACE = (60, 40), (60, 140)
SIZE = (1000, 400)


def make_page(path):
    page = Image.new("RGB", SIZE, "white")
    draw = ImageDraw.Draw(page)
    draw.text(PROSE_PLACE, PROSE, font=ImageFont.truetype(f"{FONT_FOLDER}/DejaVuSans.ttf", 24), fill="black")
    draw.text(CODE_PLACE, CODE, font=ImageFont.truetype(f"{FONT_FOLDER}/DejaVuSansMono.ttf", 24), fill="black")
    page.save(path)
    return path


class TextTest(unittest.TestCase):
    program = keep = None

    def setUp(self):
        place = tempfile.TemporaryDirectory()
        self.addCleanup(place.cleanup)
        self.place = Path(place.name)
        self.page = make_page(self.place / "page.png")

    def command(self, *arguments, **variables):
        return {"args": [self.program, "ocr", *map(str, arguments)], "stdin": subprocess.DEVNULL,
                "stdout": subprocess.PIPE, "stderr": subprocess.PIPE, "text": True,
                "env": {**os.environ, "LANGUAGE": "en", "LC_ALL": "C.UTF-8", **variables}}

    def ocr(self, *arguments, status=DONE, **variables):
        """What it printed, and its complaint."""
        done = subprocess.run(**self.command(*arguments, **variables), timeout=60, check=False)
        self.assertEqual(done.returncode, status, done.stderr)
        self.assertLessEqual(len(done.stderr.splitlines()), 1)
        self.assertEqual(bool(done.stderr), status != DONE)
        return done.stdout, done.stderr

    def picture(self, name, size, color, mode="RGB"):
        path = self.place / name
        Image.new(mode, size, color).save(path)
        return path

    def test_lines_come_as_text_and_with_their_places(self):
        self.assertEqual(self.ocr(self.page)[0].splitlines(), [PROSE, CODE])
        prose, code = json.loads(self.ocr("--json", self.page)[0])["lines"]
        self.assertEqual((prose["text"], prose["isCode"], prose["language"]), (PROSE, False, None))
        self.assertEqual((code["text"], code["isCode"]), (CODE, True))
        for line, place in ((prose, PROSE_PLACE), (code, CODE_PLACE)):
            left, top, width, height = line["rect"]
            self.assertAlmostEqual(left, place[0], delta=12)
            self.assertAlmostEqual(top, place[1], delta=16)
            self.assertGreater(width, 250)
            self.assertLess(height, 50)
            self.assertTrue(0.5 < line["confidence"] <= 1)

    def test_a_region_is_read_alone_and_has_to_lie_within(self):
        below = json.loads(self.ocr("--json", "--region", f"0,110,{SIZE[0]},90", self.page)[0])["lines"]
        self.assertEqual([line["text"] for line in below], [CODE])
        self.assertAlmostEqual(below[0]["rect"][1], CODE_PLACE[1], delta=16)
        for outside in (f"0,0,{SIZE[0] + 1},10", "-1,0,10,10"):
            _, complaint = self.ocr("--region=" + outside, self.page, status=FAILED)
            self.assertIn("outside image bounds", complaint)
        for wrong in ("1,2,3", "0,0,0,10", "0.5,0,10,10", "a,b,c,d"):
            self.ocr("--region=" + wrong, self.page, status=USAGE)

    def test_pictures_without_text_print_nothing(self):
        for picture in (self.picture("one.png", (1, 1), "white"), self.picture("blank.png", (800, 600), "navy"),
                        self.picture("clear.png", (300, 200), (0, 0, 0, 0), "RGBA"),
                        self.picture("long.png", (20000, 400), "white")):
            with self.subTest(picture=picture.name):
                self.assertEqual(self.ocr(picture)[0], "")
                self.assertEqual(json.loads(self.ocr("--json", picture)[0]), {"lines": []})

    def test_what_cannot_be_read_is_said_in_one_line(self):
        broken = self.place / "broken.png"
        broken.write_bytes(self.page.read_bytes()[:500])
        for path in (self.place / "none.png", broken, self.place):
            self.assertEqual(self.ocr(path, status=FAILED)[0], "")
        self.ocr(status=USAGE)
        self.ocr(self.page, self.page, status=USAGE)
        _, complaint = self.ocr(self.page, status=FAILED, KESTRIO_RECOGNITION=str(self.place / "none"))
        self.assertIn("not installed", complaint)

    def test_control_c_ends_it(self):
        noise = self.place / "noise.png"
        Image.effect_noise((6000, 4000), 90).convert("RGB").save(noise, compress_level=1)
        with subprocess.Popen(**self.command(noise)) as process:
            time.sleep(1.2)
            process.send_signal(signal.SIGINT)
            sent = time.monotonic()
            self.assertEqual(process.wait(20), CANCELLED)
            self.assertLess(time.monotonic() - sent, LONGEST_END)
            self.assertEqual(process.stdout.read() + process.stderr.read(), "")

    def test_a_click_on_a_frame_copies_its_line(self):
        for name, keys in (("plain", ["v"]), ("zoomed", ["ctrl+plus"] * 2)):
            with self.subTest(view=name), open_editor(self.program, self.page, self.keep) as editor:
                desktop = editor.desktop
                desktop.key(*keys)
                desktop.wait_for_stillness(editor.frame)
                before = desktop.screenshot(editor.stage)
                desktop.key("ctrl+t")
                wait_until(lambda: self.marked(editor, before), "frames round the text")
                desktop.wait_for_stillness(editor.frame)
                desktop.click(self.marked(editor, before))
                wait_until(lambda: desktop.clipboard("UTF8_STRING") == PROSE.encode(), "the line on the clipboard")

    def marked(self, editor, before):
        """A point of the upmost frame, which is the first line's, near its left end; None where there is none."""
        changed = ImageChops.difference(editor.desktop.screenshot(editor.stage), before).convert("L")
        changed = changed.point(lambda value: 255 if value > 8 else 0)
        # Behind the note that the picture is being read.
        box = changed.crop((0, 80, changed.width, changed.height)).getbbox()
        return box and (editor.stage.left + box[0] + 20, editor.stage.top + 80 + box[1] + 8)


def main():
    TextTest.program, TextTest.keep = (Path(argument).resolve() for argument in sys.argv[1:3])
    TextTest.keep.mkdir(parents=True, exist_ok=True)
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)


if __name__ == "__main__":
    main()
