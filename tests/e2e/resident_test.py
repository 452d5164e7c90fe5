#!/usr/bin/python3
"""Drives the resident program as a user does: hotkeys, overlays, pins, commands, the bus, with a window
manager and a second program. What is delivered is compared with the screen bit for bit.

usage: resident_test.py PROGRAM FOLDER [unittest arguments]

FOLDER keeps pictures of the screen at failures.
"""
import contextlib
import signal
import subprocess
import sys
import time
import unittest
from io import BytesIO
from pathlib import Path

from PIL import Image

from desktop import Desktop, wait_until

PROGRAM = Path()
KEEP = Path()
OVERLAY = "Kestrio Region Capture"
PICKER = "Kestrio Window Picker"
PIN = "Pinned Screenshot"
EDITOR = "Kestrio Editor"
REGION = ((300, 220), (700, 520))  # of the screen, two corners in pixels


class ResidentTest(unittest.TestCase):
    @contextlib.contextmanager
    def resident(self, environment=None, size=(1280, 800)):
        with Desktop(*size, environment=environment) as desktop:
            desktop.run(["xterm", "-geometry", "60x16+420+260", "-title", "second program"], "xterm")
            desktop.wait_for_window("second program")
            process = desktop.run([PROGRAM], "kestrio")
            socket = Path(desktop.environment["XDG_RUNTIME_DIR"]) / "kestrio"
            wait_until(lambda: list(socket.glob("*.socket")), "the running program's socket")
            try:
                yield desktop
                process.send_signal(signal.SIGTERM)
                self.assertEqual(process.wait(10), 0)
            except BaseException:
                desktop.screenshot().save(KEEP / f"failure-{self.id()}.png")
                print(desktop.log("kestrio"), flush=True)
                raise

    def command(self, desktop, *arguments):
        """A command to its end: exit status, what it wrote, and its complaint."""
        done = subprocess.run([PROGRAM, *map(str, arguments)], env=desktop.environment, timeout=20,
                              stdin=subprocess.DEVNULL, capture_output=True, check=False,
                              cwd=desktop.environment["HOME"])
        return done.returncode, done.stdout.decode().strip(), done.stderr.decode().strip()

    def start_command(self, desktop, *arguments):
        return subprocess.Popen([PROGRAM, *map(str, arguments)], env=desktop.environment,
                                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE)

    def open_overlay(self, desktop, keys="ctrl+alt+a", title=OVERLAY):
        desktop.key(keys)
        wait_until(lambda: desktop.windows(title), f"the overlay {title!r}")
        desktop.wait_for_stillness()

    def assert_gone(self, desktop, title):
        wait_until(lambda: not desktop.windows(title), f"no {title!r}")

    def select(self, desktop):
        desktop.drag(*REGION)
        desktop.wait_for_stillness()

    def copied(self, desktop):
        wait_until(lambda: "image/png" in desktop.clipboard_targets(), "a picture on the clipboard")
        return Image.open(BytesIO(desktop.clipboard("image/png"))).convert("RGB")

    def assert_same(self, picture, expected):
        self.assertEqual(picture.size, expected.size)
        self.assertEqual(picture.tobytes(), expected.tobytes())

    def expected(self, desktop):
        (left, top), (right, bottom) = REGION
        return desktop.screenshot((left, top, right, bottom))

    def test_what_was_frozen_is_copied_bit_for_bit(self):
        for scale in ("1", "2"):
            with self.subTest(scale=scale), self.resident({"QT_SCALE_FACTOR": scale}) as desktop:
                desktop.park()
                before = self.expected(desktop)
                self.open_overlay(desktop)
                self.select(desktop)
                desktop.key("ctrl+c")
                self.assert_gone(desktop, OVERLAY)
                self.assert_same(self.copied(desktop), before)

    def test_escape_ends_every_phase_and_a_second_hotkey_does_nothing(self):
        with self.resident() as desktop:
            self.open_overlay(desktop)
            desktop.key("ctrl+alt+a")
            time.sleep(0.3)
            self.assertEqual(len(desktop.windows(OVERLAY)), 1)
            desktop.key("Escape")
            self.assert_gone(desktop, OVERLAY)
            self.open_overlay(desktop)
            self.select(desktop)
            desktop.key("Escape")
            self.assert_gone(desktop, OVERLAY)
            self.open_overlay(desktop, "ctrl+alt+w", PICKER)
            desktop.key("Escape")
            self.assert_gone(desktop, PICKER)
            self.assertFalse(desktop.windows("^Kestrio$"), "no alert")

    def test_a_click_snaps_to_a_window_and_a_tool_opens_the_editor(self):
        with self.resident() as desktop:
            self.open_overlay(desktop)
            desktop.click((600, 350))
            desktop.wait_for_stillness()
            desktop.key("r")
            desktop.wait_for_window(EDITOR)
            desktop.close()
            desktop.wait_for_no_window(EDITOR)

    def test_pins_float_and_close(self):
        with self.resident() as desktop:
            self.open_overlay(desktop)
            self.select(desktop)
            desktop.key("ctrl+p")
            pin = wait_until(lambda: desktop.windows(PIN), "a pin")[-1]
            place = desktop.rect(pin)
            self.assertEqual(place.size, (400, 300))
            desktop.drag(place.center, (place.center[0] + 60, place.center[1] + 40))
            wait_until(lambda: desktop.rect(pin).left == place.left + 60, "the pin to have moved")
            moved = desktop.rect(pin)
            desktop.drag((moved.right - 2, moved.center[1]), (moved.right + 98, moved.center[1]))
            wait_until(lambda: desktop.rect(pin).size == (500, 375), "the pin to have grown in its ratio")
            grown = desktop.rect(pin)
            desktop.click((grown.right - 20, grown.top + 20))
            self.assert_gone(desktop, PIN)

    def test_the_picker_takes_covered_windows_whole(self):
        with self.resident() as desktop:
            desktop.run(["xterm", "-geometry", "40x10+620+420", "-title", "in front"], "xterm2")
            desktop.wait_for_window("in front")
            file = desktop.folder / "window.png"
            process = self.start_command(desktop, "capture", "window", "--output", file)
            wait_until(lambda: desktop.windows(PICKER), "the picker")
            desktop.wait_for_stillness()
            desktop.click((460, 300))
            self.assertEqual(process.wait(10), 0)
            self.assertEqual(process.stdout.read().decode().strip(), str(file))
            picture = Image.open(file).convert("RGB")
            process.stdout.close()
            process.stderr.close()
            # The lower right part lies under the other window, and is white in the picture.
            width, height = picture.size
            self.assertEqual(picture.getpixel((width - 40, height - 40)), (255, 255, 255))

    def test_commands_report_how_it_went(self):
        with self.resident() as desktop:
            file = desktop.folder / "display.png"
            desktop.park()
            self.assertEqual(self.command(desktop, "capture", "display", "-o", file), (0, str(file), ""))
            # All but the corner with the pointer, which is not captured.
            part = (0, 0, desktop.size[0] - 40, desktop.size[1] - 40)
            self.assert_same(Image.open(file).convert("RGB").crop(part), desktop.screenshot(part))
            self.assertEqual(self.command(desktop, "capture", "moon")[0], 2)
            self.assertEqual(self.command(desktop, "capture", "display", "-o", "/nowhere/x.png")[0], 2)
            self.assertEqual(self.command(desktop, "edit", "/no/such.png")[0], 1)
            self.assertEqual(self.command(desktop)[0], 0)
            self.assertEqual(self.command(desktop, "edit", file)[0], 0)
            desktop.wait_for_window(EDITOR)
            process = self.start_command(desktop, "capture", "region")
            wait_until(lambda: desktop.windows(OVERLAY), "the overlay")
            process.send_signal(signal.SIGINT)
            self.assertEqual(process.wait(10), 3)
            process.communicate()
            self.assert_gone(desktop, OVERLAY)

    def test_other_programs_ask_over_the_bus(self):
        with self.resident() as desktop:
            def capture(kind):
                return desktop.output(["gdbus", "call", "--session", "--dest", "org.kestrio.Kestrio",
                                       "--object-path", "/org/kestrio/Kestrio", "--method",
                                       "org.kestrio.Kestrio1.Capture", kind, "{}"])
            answer = wait_until(lambda: capture("display"), "an answer on the bus")
            path = Path(answer.decode().split("'")[1])
            self.assertEqual(Image.open(path).size, desktop.size)
            path.unlink()
            self.assertIsNone(capture("moon"))

    def test_the_clipboard_outlives_command_and_program(self):
        with Desktop(800, 600) as desktop:
            self.assertEqual(self.command(desktop, "capture", "display", "--copy")[0], 0)
            self.assertEqual(self.copied(desktop).size, (800, 600))


if __name__ == "__main__":
    PROGRAM, KEEP = (Path(argument).resolve() for argument in sys.argv[1:3])
    KEEP.mkdir(parents=True, exist_ok=True)
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
