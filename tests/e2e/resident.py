"""The resident program on a desktop of its own, with a second program beside it: what its end-to-end
tests share."""
import contextlib
import signal
import subprocess
import sys
import unittest
from io import BytesIO
from pathlib import Path

from PIL import Image

from desktop import Desktop, wait_until

OVERLAY = "Kestrio Region Capture"
PICKER = "Kestrio Window Picker"
PIN = "Pinned Screenshot"
EDITOR = "Kestrio Editor"
SETTINGS = "Kestrio Settings"
ALERT = "^Kestrio$"
TOAST = "Kestrio Toast"
COUNTDOWN = "Kestrio Countdown"
REGION = ((300, 220), (700, 520))  # of the screen, two corners in pixels

PANEL_HEIGHT = 40
PANEL = f"""panel_items = S
panel_size = 100% {PANEL_HEIGHT}
panel_position = bottom center horizontal
panel_background_id = 0
systray_background_id = 0
"""


def with_tray(desktop):
    config = desktop.folder / "tint2rc"
    config.write_text(PANEL)
    desktop.run(["tint2", "-c", config], "tint2")
    wait_until(lambda: desktop.windows("tint2"), "the panel")


class ResidentTestCase(unittest.TestCase):
    program = Path()
    keep = Path()

    @contextlib.contextmanager
    def resident(self, environment=None, size=(1280, 800), prepare=lambda desktop: None):
        """The program with its icon in the tray, asked to quit in the end. `prepare` is done before
        it starts."""
        with Desktop(*size, environment=environment) as desktop:
            prepare(desktop)
            desktop.run(["xterm", "-geometry", "60x16+420+260", "-title", "second program"], "xterm")
            desktop.wait_for_window("second program")
            process = self.start(desktop)
            try:
                yield desktop
                if process.poll() is None:
                    process.send_signal(signal.SIGTERM)
                self.assertEqual(process.wait(10), 0)
            except BaseException:
                desktop.screenshot().save(self.keep / f"failure-{self.id()}.png")
                print(desktop.log("kestrio"), flush=True)
                raise

    def start(self, desktop):
        """The program, once it takes commands."""
        process = desktop.run([self.program], "kestrio")
        socket = Path(desktop.environment["XDG_RUNTIME_DIR"]) / "kestrio"
        wait_until(lambda: list(socket.glob("*.socket")), "the running program's socket")
        return process

    def command(self, desktop, *arguments):
        """A command to its end: exit status, what it wrote, and its complaint."""
        done = subprocess.run([self.program, *map(str, arguments)], env=desktop.environment, timeout=20,
                              stdin=subprocess.DEVNULL, capture_output=True, check=False,
                              cwd=desktop.environment["HOME"])
        return done.returncode, done.stdout.decode().strip(), done.stderr.decode().strip()

    def start_command(self, desktop, *arguments):
        return subprocess.Popen([self.program, *map(str, arguments)], env=desktop.environment,
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

    def open_menu(self, desktop):
        """That of the program's icon, which with_tray() makes room for."""
        width, height = desktop.size
        panel = (0, height - PANEL_HEIGHT, width, height)
        icon = wait_until(lambda: desktop.screenshot(panel).getbbox(), "an icon in the tray")
        desktop.wait_for_stillness(panel)
        before = desktop.screenshot().tobytes()
        desktop.click(((icon[0] + icon[2]) // 2, panel[1] + (icon[1] + icon[3]) // 2), button=3)
        wait_until(lambda: desktop.screenshot().tobytes() != before, "the menu")
        desktop.wait_for_stillness()

    def choose(self, desktop, *keys):
        """An entry of the menu, by the keys that lead to it."""
        self.open_menu(desktop)
        desktop.key(*keys, "Return")


def main():
    """Runs the tests of the calling script.

    usage: SCRIPT PROGRAM FOLDER [unittest arguments]
    FOLDER keeps pictures of the screen at failures."""
    ResidentTestCase.program, ResidentTestCase.keep = (Path(argument).resolve() for argument in sys.argv[1:3])
    ResidentTestCase.keep.mkdir(parents=True, exist_ok=True)
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
