#!/usr/bin/python3
"""Captures as a user does it with the resident program: hotkeys, overlays, pins, commands, the bus, with a
window manager and a second program. What is delivered is compared with the screen bit for bit.

usage: resident_test.py PROGRAM FOLDER [unittest arguments]

FOLDER keeps pictures of the screen at failures.
"""
import signal
import time
from pathlib import Path

from PIL import Image

import resident
from desktop import Desktop, wait_until
from resident import ALERT, COUNTDOWN, EDITOR, OVERLAY, PICKER, PIN, REGION, TOAST


class CaptureTest(resident.ResidentTestCase):
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
            self.assertFalse(desktop.windows(ALERT), "no alert")

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

    def test_handles_adjust_and_the_magnifier_shows(self):
        with self.resident() as desktop:
            self.open_overlay(desktop)
            in_window, beside = (600, 350), (60, 700)
            desktop.move(in_window)
            desktop.wait_for_stillness()
            center = in_window[0] + 24 + 65, in_window[1] - 24 - 150 + 50
            desktop.move(beside)
            dark = desktop.wait_for_stillness().getpixel((center[0] + 12, center[1] + 12))
            desktop.move(in_window)
            shown = desktop.wait_for_stillness().getpixel((center[0] + 12, center[1] + 12))
            self.assertNotEqual(shown, dark)
            self.assertEqual(shown, (255, 255, 255), "the second program's white, not dimmed")
            self.select(desktop)
            corner = REGION[1]
            desktop.drag(corner, (corner[0] + 60, corner[1] + 40))
            desktop.drag((REGION[0][0], 400), (REGION[0][0] - 30, 420))
            desktop.wait_for_stillness()
            desktop.key("ctrl+c")
            self.assertEqual(self.copied(desktop).size, (490, 340))

    def test_each_button_of_the_toolbar_ends_its_way(self):
        # Points from the toolbar's middle, and what has to come of a click there.
        endings = {
            "pin": (180, lambda desktop: desktop.windows(PIN)),
            "copy": (214, lambda desktop: "image/png" in desktop.clipboard_targets()),
            "save": (248, lambda desktop: list(desktop.save_folder.glob("Kestrio_*.webp"))),
            "ocr": (282, lambda desktop: desktop.windows(EDITOR)),
            "cancel": (324, lambda desktop: not desktop.windows(OVERLAY)),
            "done": (358, lambda desktop: desktop.windows(EDITOR)),
        }
        with self.resident() as desktop:
            desktop.save_folder = Path(desktop.environment["HOME"]) / "Desktop"
            for name, (place, has_ended) in endings.items():
                with self.subTest(button=name):
                    self.open_overlay(desktop)
                    self.select(desktop)
                    self.assertTrue(name == "cancel" or not has_ended(desktop))
                    desktop.click((sum(x for x, _ in REGION) // 2 + place, REGION[1][1] + 32))
                    wait_until(lambda: has_ended(desktop), f"what {name!r} is for")
                    self.assert_gone(desktop, OVERLAY)
                    if desktop.windows(EDITOR):
                        desktop.wait_for_window(EDITOR)
                        desktop.close()
                        desktop.wait_for_no_window(EDITOR)
            file, = desktop.save_folder.iterdir()
            self.assertEqual(Image.open(file).size, (400, 300))

    def test_a_save_folder_that_takes_no_files_loses_nothing_else(self):
        def occupy(desktop):
            (Path(desktop.environment["HOME"]) / "Desktop").write_text("not a folder")
        with self.resident(prepare=occupy) as desktop:
            self.open_overlay(desktop)
            self.select(desktop)
            desktop.key("ctrl+s")
            self.assert_gone(desktop, OVERLAY)
            wait_until(lambda: "saving: " in desktop.log("kestrio"), "the reason in the log")
            desktop.wait_for_window(ALERT)
            self.open_overlay(desktop)
            self.select(desktop)
            desktop.key("ctrl+c")
            self.assertEqual(self.copied(desktop).size, (400, 300))
            desktop.output(["xdotool", "search", "--name", ALERT, "windowactivate"])
            desktop.wait_for_window(ALERT)
            desktop.key("Escape")
            desktop.wait_for_window(EDITOR)

    def test_a_new_capture_leaves_the_open_editor_alone(self):
        with self.resident() as desktop:
            for count in (1, 2):
                self.open_overlay(desktop)
                self.select(desktop)
                desktop.key("Return")
                wait_until(lambda: len(desktop.windows(EDITOR)) == count, f"{count} editors")
                desktop.wait_for_stillness()

    def mark(self, desktop):
        """An editor with a mark that is nowhere else."""
        self.open_overlay(desktop)
        self.select(desktop)
        desktop.key("r")
        window = desktop.rect(desktop.wait_for_window(EDITOR))
        desktop.wait_for_stillness()
        desktop.drag(window.at(0.35, 0.4), window.at(0.45, 0.6))
        desktop.wait_for_stillness()

    def test_a_changed_document_asks_before_it_closes(self):
        with self.resident() as desktop:
            self.mark(desktop)
            desktop.close()
            desktop.wait_for_stillness()
            self.assertTrue(desktop.windows(EDITOR))
            desktop.key("Escape")
            desktop.wait_for_stillness()
            desktop.close()
            desktop.wait_for_stillness()
            desktop.key("Return")
            desktop.wait_for_no_window(EDITOR)
            files = list((Path(desktop.environment["HOME"]) / "Desktop").glob("Kestrio_*.webp"))
            self.assertEqual(len(files), 1, "saved")

    def test_quitting_by_key_asks_and_sigterm_does_not(self):
        with self.resident() as desktop:
            self.mark(desktop)
            desktop.key("ctrl+q")
            desktop.wait_for_window(ALERT)
            desktop.key("Escape")
            self.assert_gone(desktop, ALERT)
            self.assertIsNone(desktop.process("kestrio").poll())
            desktop.process("kestrio").send_signal(signal.SIGTERM)
            self.assertEqual(desktop.process("kestrio").wait(5), 0)

    def test_from_corner_to_corner_is_the_whole_display(self):
        with self.resident() as desktop:
            width, height = desktop.size
            self.open_overlay(desktop)
            desktop.drag((0, 0), (width - 1, height - 1))
            desktop.wait_for_stillness()
            desktop.key("ctrl+c")
            self.assertEqual(self.copied(desktop).size, desktop.size)

    def test_a_countdown_shows_and_escape_ends_it(self):
        with self.resident() as desktop:
            process = self.start_command(desktop, "capture", "display", "--delay", "20", "--copy")
            wait_until(lambda: desktop.windows(COUNTDOWN), "the seconds on the screen")
            desktop.key("Escape")
            self.assertEqual(process.wait(10), 3)
            process.communicate()
            self.assert_gone(desktop, COUNTDOWN)
            desktop.park()
            before = desktop.wait_for_stillness()
            file = desktop.folder / "later.png"
            self.assertEqual(self.command(desktop, "capture", "display", "--delay", "1", "-o", file)[0], 0)
            part = (0, 0, desktop.size[0] - 40, desktop.size[1] - 40)
            self.assert_same(Image.open(file).convert("RGB").crop(part), before.crop(part))

    def test_a_window_that_closes_before_it_is_picked_is_reported(self):
        with self.resident() as desktop:
            process = self.start_command(desktop, "capture", "window", "--output", desktop.folder / "x.png")
            wait_until(lambda: desktop.windows(PICKER), "the picker")
            desktop.wait_for_stillness()
            desktop.end("xterm")
            desktop.wait_for_no_window("second program")
            desktop.click((460, 300))
            _, complaint = process.communicate(timeout=10)
            self.assertEqual(process.returncode, 1)
            self.assertIn("Target window not found", complaint.decode())
            self.assertFalse((desktop.folder / "x.png").exists())

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

    def test_a_command_alone_stays_for_its_toast(self):
        with Desktop(800, 600) as desktop:
            process = self.start_command(desktop, "capture", "display", "--copy")
            wait_until(lambda: desktop.windows(TOAST), "the toast")
            self.assertIsNone(process.poll())
            self.assertEqual(process.wait(10), 0)
            process.communicate()


if __name__ == "__main__":
    resident.main()
