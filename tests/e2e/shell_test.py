#!/usr/bin/python3
"""What stands around the captures of the resident program: tray and menu, preferences, hotkeys beside
those of other programs, several displays, and faults from outside.

usage: shell_test.py PROGRAM FOLDER [unittest arguments]

FOLDER keeps pictures of the screen at failures.
"""
import subprocess
import time
from pathlib import Path

from PIL import Image

import resident
from desktop import Desktop, wait_until
from resident import ALERT, EDITOR, OVERLAY, PICKER, SETTINGS, with_tray

HELD_KEYS = """<?xml version="1.0"?>
<openbox_config xmlns="http://openbox.org/3.4/rc"><keyboard>
<keybind key="C-A-a"><action name="Execute"><command>touch held</command></action></keybind>
</keyboard></openbox_config>
"""
NO_KEYS = """<?xml version="1.0"?>
<openbox_config xmlns="http://openbox.org/3.4/rc"><keyboard/></openbox_config>
"""
SECOND_DISPLAY = (640, 0, 1280, 800)


def with_two_displays(desktop):
    """The screen's right half is a display of its own."""
    left, top, right, bottom = SECOND_DISPLAY
    for name, place, output in (("A", f"{left}/170x{bottom}/210+0+0", "screen"),
                                ("B", f"{right - left}/170x{bottom}/210+{left}+{top}", "none")):
        desktop.output(["xrandr", "--setmonitor", name, place, output])


class ShellTest(resident.ResidentTestCase):
    def test_the_menu_of_the_tray(self):
        with self.resident(prepare=with_tray) as desktop:
            self.choose(desktop, "Down")
            wait_until(lambda: desktop.windows(OVERLAY), "the overlay")
            desktop.key("Escape")
            self.assert_gone(desktop, OVERLAY)
            self.choose(desktop, "Down", "Down")
            wait_until(lambda: desktop.windows(PICKER), "the picker")
            desktop.key("Escape")
            self.assert_gone(desktop, PICKER)
            self.choose(desktop, *["Up"] * 2)
            desktop.wait_for_window(SETTINGS)
            desktop.close()
            self.assert_gone(desktop, SETTINGS)

    def test_quitting_by_the_menu(self):
        with self.resident(prepare=with_tray) as desktop:
            self.choose(desktop, "Up")
            self.assertEqual(desktop.process("kestrio").wait(10), 0)

    def test_a_recorded_hotkey_is_live_at_once(self):
        with self.resident() as desktop:
            self.command(desktop)  # A second start shows the preferences where there is no tray.
            window = desktop.rect(desktop.wait_for_window(SETTINGS))
            desktop.click(window.at(0.5, 0.08))
            desktop.wait_for_stillness()
            desktop.click(window.at(0.79, 0.39))
            desktop.wait_for_stillness()
            desktop.key("ctrl+alt+y")
            desktop.wait_for_stillness()
            self.open_overlay(desktop, "ctrl+alt+y")
            desktop.key("Escape")
            self.assert_gone(desktop, OVERLAY)
            desktop.key("ctrl+alt+a")
            time.sleep(0.5)
            self.assertFalse(desktop.windows(OVERLAY), "the combination before")

    def test_print_screen_can_be_the_hotkey(self):
        with self.resident(prepare=with_tray) as desktop:
            self.configure_keys(desktop, NO_KEYS)
            self.choose(desktop, *["Up"] * 2)
            window = desktop.rect(desktop.wait_for_window(SETTINGS))
            desktop.click(window.at(0.5, 0.08))
            desktop.wait_for_stillness()
            desktop.click(window.at(0.79, 0.41))
            desktop.wait_for_stillness()
            desktop.key("Print")
            desktop.wait_for_stillness()
            self.open_overlay(desktop, "Print")
            desktop.key("Escape")
            self.assert_gone(desktop, OVERLAY)

    def configure_keys(self, desktop, text):
        """The window manager holds the keys of this configuration alone."""
        config = Path(desktop.environment["XDG_CONFIG_HOME"]) / "openbox" / "rc.xml"
        config.parent.mkdir(parents=True)
        config.write_text(text)
        desktop.output(["openbox", "--reconfigure"])

    def test_a_combination_of_another_program_stays_with_it(self):
        def hold(desktop):
            self.configure_keys(desktop, HELD_KEYS)
            held = Path(desktop.environment["HOME"]) / "held"
            def is_held():
                desktop.key("ctrl+alt+a")
                return held.exists()
            wait_until(is_held, "the other program's combination")
            held.unlink()
        with self.resident(prepare=hold) as desktop:
            desktop.key("ctrl+alt+a")
            wait_until((Path(desktop.environment["HOME"]) / "held").exists, "the other program's answer")
            self.assertFalse(desktop.windows(OVERLAY))
            self.open_overlay(desktop, "ctrl+alt+w", PICKER)
            desktop.key("Escape")
            self.assert_gone(desktop, PICKER)

    def test_displays_of_different_scales(self):
        scales = {"QT_SCREEN_SCALE_FACTORS": "A=1;B=2"}
        with self.resident(scales, prepare=with_two_displays) as desktop:
            for corner, far in (((100, 120), (400, 480)), ((700, 120), (1100, 520))):
                with self.subTest(corner=corner):
                    desktop.move((far[0] + 60, far[1] + 200))
                    before = desktop.screenshot((*corner, *far))
                    self.open_overlay(desktop)
                    overlay = desktop.rect(desktop.windows(OVERLAY)[-1])
                    self.assertEqual((overlay.left, overlay.size), (corner[0] // 640 * 640, (640, 800)))
                    desktop.drag(corner, far)
                    desktop.wait_for_stillness()
                    desktop.key("ctrl+c")
                    self.assert_gone(desktop, OVERLAY)
                    self.assert_same(self.copied(desktop), before)
                    subprocess.run(["xclip", "-selection", "clipboard", "/dev/null"], env=desktop.environment,
                                   stdout=subprocess.DEVNULL, check=True)

    def test_a_display_that_is_unplugged_ends_its_capture(self):
        with self.resident(prepare=with_two_displays) as desktop:
            desktop.move((900, 300))
            self.open_overlay(desktop)
            desktop.output(["xrandr", "--delmonitor", "B"])
            desktop.output(["xrandr", "--delmonitor", "A"])
            self.assert_gone(desktop, OVERLAY)
            desktop.wait_for_window(ALERT)
            desktop.key("Return")
            self.assert_gone(desktop, ALERT)
            self.open_overlay(desktop)
            self.select(desktop)
            desktop.key("ctrl+c")
            self.assertEqual(self.copied(desktop).size, (400, 300))

    def test_a_desktop_without_a_tray_is_told_of(self):
        with self.resident() as desktop:
            desktop.wait_for_window(ALERT)
            desktop.key("Return")
            desktop.wait_for_window(SETTINGS)

    def test_of_two_starts_at_one_moment_one_stays(self):
        with Desktop(800, 600) as desktop:
            starts = [desktop.run([self.program], name) for name in ("one", "other")]
            wait_until(lambda: any(start.poll() is not None for start in starts), "one of the two to end")
            ended, = (start for start in starts if start.poll() is not None)
            self.assertEqual(ended.returncode, 0)
            self.assertEqual(self.command(desktop, "capture", "display", "--copy")[0], 0)

    def test_a_lost_screen_ends_the_program_with_a_message(self):
        with Desktop(800, 600) as desktop:
            process = self.start(desktop)
            self.command(desktop)
            desktop.process("xvfb").kill()
            self.assertEqual(process.wait(10), 1)
            self.assertEqual(len(desktop.log("kestrio").splitlines()), 1, desktop.log("kestrio"))

    def test_pasting_from_an_owner_that_dies(self):
        with self.resident(prepare=with_tray) as desktop:
            picture = desktop.folder / "owned.png"
            Image.new("RGB", (300, 200), (9, 99, 200)).save(picture)
            desktop.run(["xclip", "-quiet", "-selection", "clipboard", "-t", "image/png", picture], "xclip")
            wait_until(lambda: "image/png" in desktop.clipboard_targets(), "the other program's picture")
            desktop.process("xclip").send_signal(resident.signal.SIGSTOP)
            self.choose(desktop, *["Down"] * 6)
            time.sleep(0.3)
            desktop.end("xclip")
            self.open_overlay(desktop)
            desktop.key("Escape")
            self.assert_gone(desktop, OVERLAY)
            self.assertFalse(desktop.windows(EDITOR))


if __name__ == "__main__":
    resident.main()
