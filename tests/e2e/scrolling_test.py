#!/usr/bin/python3
"""Scrolling captures as a user does them, of a page whose content is known: what is delivered is compared
with the page bit for bit.

usage: scrolling_test.py PROGRAM FOLDER [unittest arguments]

FOLDER keeps pictures of the screen at failures; the program scrolling_page lies in it.
"""
import contextlib
import signal
import subprocess
import time
from pathlib import Path

from PIL import Image

import resident
from desktop import Desktop, Rect, wait_until
from resident import ALERT, EDITOR, OVERLAY, SETTINGS, with_tray

PANEL = "^Scrolling Capture$"
FRAME = "^Kestrio Region Frame$"
PAGE = "^Scrolling page$"
KEYS = "ctrl+alt+s"
SIZE = (1280, 900)
VIEW = Rect(100, 60, 900, 660)
HEADER, FOOTER = 50, 40
# Of the panel, in pixels from its left and from its lower edge.
CANCEL, START = 50, 180
BUTTON_FROM_BOTTOM = 50
BUSY = "nother capture is under way"


def text_of(rect):
    """As the option --region takes it."""
    return f"{rect.left},{rect.top},{rect.size[0]},{rect.size[1]}"


class ScrollingTest(resident.ResidentTestCase):
    @contextlib.contextmanager
    def desktop(self, environment=None):
        """Without the resident program."""
        with Desktop(*SIZE, environment=environment) as desktop:
            try:
                yield desktop
            except BaseException:
                desktop.screenshot().save(self.keep / f"failure-{self.id()}.png")
                print(desktop.log("kestrio"), desktop.log(), flush=True)
                raise

    @contextlib.contextmanager
    def resident_with_page(self, *options, environment=None, rows=2000, view=VIEW, size=SIZE):
        with self.resident(environment, size=size, prepare=with_tray) as desktop:
            desktop.end("xterm")
            self.open_page(desktop, *options, rows=rows, view=view)
            yield desktop

    def open_page(self, desktop, *options, rows=2000, view=VIEW, bands=(HEADER, FOOTER)):
        """A page at VIEW; afterwards desktop.truth is the file of all that it holds."""
        desktop.truth = desktop.folder / "page.png"
        size = "x".join(map(str, view.size))
        desktop.run([self.keep / "scrolling_page", "--size", size, "--at", f"{view.left},{view.top}",
                     "--rows", rows, "--sticky-header", bands[0], "--sticky-footer", bands[1], "--frameless",
                     "--write-page", desktop.truth, *options], "page")
        wait_until(lambda: "ready" in desktop.log("page"), "the page")
        desktop.wait_for_window(PAGE)

    def capture(self, desktop, *options):
        """A scrolling capture into desktop.file, which goes on."""
        desktop.file = desktop.folder / "captured.png"
        return self.start_command(desktop, "capture", "scrolling", "-o", desktop.file, *options)

    def delivered(self, desktop):
        with Image.open(desktop.file) as picture:
            return picture.convert("RGB")

    def page_of(self, desktop):
        with Image.open(desktop.truth) as page:
            return page.convert("RGB")

    def end_of(self, process, seconds=30):
        """Exit status and complaint."""
        complaint = process.communicate(timeout=seconds)[1].decode()
        return process.returncode, complaint

    def assert_whole_page(self, desktop, picture, cut=0):
        """Header and footer once, all rows between them; `cut` points are left out at the right."""
        page = self.page_of(desktop)
        self.assert_same(picture, page.crop((0, 0, page.width - cut, page.height)))

    def assert_top_of_page(self, desktop, picture, cut=0):
        """Rows from the page's start to somewhere, and below them the footer: nothing is lost or twice."""
        page = self.page_of(desktop)
        width, joined = page.width - cut, picture.height - FOOTER
        self.assertEqual(picture.width, width)
        self.assertLess(picture.height, page.height)
        self.assert_same(picture.crop((0, 0, width, joined)), page.crop((0, 0, width, joined)))
        footer = page.crop((0, page.height - FOOTER, width, page.height))
        self.assert_same(picture.crop((0, joined, width, picture.height)), footer)

    def scroll(self, desktop, clicks, delay=60):
        desktop.output(["xdotool", "mousemove", *VIEW.center])
        desktop.output(["xdotool", "click", "--repeat", clicks, "--delay", delay, 5], seconds=30)
        # The last click has been painted, or a smooth page has arrived.
        desktop.wait_for_stillness(VIEW)

    def select_view(self, desktop, view=VIEW):
        wait_until(lambda: desktop.windows(OVERLAY), "the overlay")
        desktop.wait_for_stillness()
        desktop.drag((view.left, view.top), (view.right, view.bottom))
        self.assert_gone(desktop, OVERLAY)

    def assert_nothing_left(self, desktop):
        for title in (PANEL, FRAME, OVERLAY):
            self.assert_gone(desktop, title)
        self.assertFalse(desktop.windows(EDITOR))

    # Automatic scrolling

    def test_automatic_alone_is_exact_and_puts_the_pointer_back(self):
        for options in ((), ("--smooth",)):
            with self.subTest(options=options), self.desktop() as desktop:
                self.open_page(desktop, *options)
                desktop.move((1111, 777))
                process = self.capture(desktop, "--auto", "--region", text_of(VIEW))
                self.assertEqual(self.end_of(process), (0, ""))
                self.assert_whole_page(desktop, self.delivered(desktop), cut=16)
                place = desktop.output(["xdotool", "getmouselocation"]).decode()
                self.assertTrue(place.startswith("x:1111 y:777 "), place)
                self.assert_nothing_left(desktop)

    def test_automatic_starts_by_click_and_by_key(self):
        with self.desktop() as desktop:
            self.open_page(desktop)
            for start in (lambda: self.press(desktop, START), lambda: desktop.key("Return")):
                process = self.capture(desktop, "--auto")
                self.select_view(desktop)
                wait_until(lambda: desktop.windows(PANEL), "the panel")
                waiting = desktop.wait_for_stillness(VIEW)
                start()
                self.assertEqual(self.end_of(process), (0, ""))
                self.assertNotEqual(desktop.screenshot(VIEW).tobytes(), waiting.tobytes())
                self.assert_whole_page(desktop, self.delivered(desktop), cut=16)
                desktop.file.unlink()
                desktop.key("Home")
                desktop.wait_for_stillness(VIEW)

    def test_over_the_bus(self):
        with self.resident_with_page() as desktop:
            desktop.file = desktop.folder / "captured.png"
            options = "{'auto': <true>, 'region': <'%s'>, 'output': <'%s'>}" % (text_of(VIEW), desktop.file)
            answer = desktop.output(["gdbus", "call", "--session", "--dest", "org.kestrio.Kestrio",
                                     "--object-path", "/org/kestrio/Kestrio", "--method",
                                     "org.kestrio.Kestrio1.Capture", "scrolling", options], seconds=30)
            self.assertIsNotNone(answer)
            self.assertIn(str(desktop.file), answer.decode())
            self.assert_whole_page(desktop, self.delivered(desktop), cut=16)
            self.assert_nothing_left(desktop)

    def test_regions_that_cannot_be_captured(self):
        with self.resident_with_page() as desktop:
            for region, complaint in (("5000,5000,300,300", "on the screen"), ("100,60,40,600", "too small"),
                                      ("1240,60,800,600", "too small")):
                with self.subTest(region=region):
                    status, text = self.end_of(self.capture(desktop, "--auto", "--region", region))
                    self.assertEqual(status, 1)
                    self.assertIn(complaint, text)
                    self.assertFalse(desktop.file.exists())
                    desktop.wait_for_window(ALERT)
                    desktop.key("Escape")
                    self.assert_gone(desktop, ALERT)
            self.assert_nothing_left(desktop)

    # Scrolling by hand

    def start_by_key(self, desktop, view=VIEW):
        desktop.key(KEYS)
        self.select_view(desktop, view)

    def test_manual_by_hotkey_ends_in_the_editor(self):
        with self.resident_with_page() as desktop:
            self.start_by_key(desktop)
            wait_until(lambda: desktop.windows(PANEL), "the panel")
            self.scroll(desktop, 30)
            desktop.key("Return")
            desktop.wait_for_window(EDITOR)
            self.assert_gone(desktop, PANEL)
            self.assert_gone(desktop, FRAME)
            desktop.key("ctrl+c")
            picture = self.copied(desktop)
            desktop.close()
            self.assert_gone(desktop, EDITOR)
            # With the backdrop that new pictures get.
            self.command(desktop, "edit", desktop.truth)
            desktop.wait_for_window(EDITOR)
            subprocess.run(["xclip", "-selection", "clipboard", "/dev/null"], env=desktop.environment,
                           stdout=subprocess.DEVNULL, check=True)
            desktop.key("ctrl+c")
            self.assert_same(picture, self.copied(desktop))

    def test_a_second_start_meanwhile_disturbs_nothing(self):
        with self.resident_with_page("--smooth") as desktop:
            process = self.capture(desktop)
            self.select_view(desktop)
            wait_until(lambda: desktop.windows(PANEL), "the panel")
            self.scroll(desktop, 8)
            desktop.key(KEYS)
            status, _, complaint = self.command(desktop, "capture", "scrolling")
            self.assertEqual(status, 1)
            self.assertIn(BUSY, complaint)
            self.assertFalse(desktop.windows(OVERLAY))
            self.assertFalse(desktop.windows(ALERT), "which would be in the picture")
            self.scroll(desktop, 25)
            desktop.key("Return")
            self.assertEqual(self.end_of(process), (0, ""))
            self.assert_whole_page(desktop, self.delivered(desktop))
            self.assertFalse(desktop.windows(EDITOR))

    def test_done_at_once_is_one_frame(self):
        with self.desktop() as desktop:
            self.open_page(desktop)
            process = self.capture(desktop)
            self.select_view(desktop)
            wait_until(lambda: desktop.windows(PANEL), "the panel")
            self.press(desktop, START)
            self.assertEqual(self.end_of(process), (0, ""))
            self.assert_same(self.delivered(desktop), desktop.screenshot(VIEW))

    def test_what_scrolls_by_itself_is_exact_or_reported(self):
        with self.desktop() as desktop:
            self.open_page(desktop, "--speed", "3000", rows=6000)
            process = self.capture(desktop)
            self.select_view(desktop)
            wait_until(lambda: desktop.windows(PANEL), "the panel")
            time.sleep(0.3)
            desktop.process("page").send_signal(signal.SIGUSR1)
            time.sleep(2.5)
            if not desktop.windows(ALERT):
                desktop.key("Return")
            wait_until(lambda: desktop.windows(ALERT) or process.poll() is not None, "an end", 20)
            if desktop.windows(ALERT):
                desktop.key("Return")
                self.assertEqual(self.end_of(process), (0, ""))
                self.assert_top_of_page(desktop, self.delivered(desktop))
            else:
                self.assertEqual(self.end_of(process), (0, ""))
                self.assert_whole_page(desktop, self.delivered(desktop))

    def test_a_region_that_fills_the_display_is_ruled_by_keys(self):
        view = Rect(0, 0, 800, 600)
        with self.resident_with_page(size=view.size, view=view) as desktop:
            process = self.capture(desktop)
            wait_until(lambda: desktop.windows(OVERLAY), "the overlay")
            desktop.wait_for_stillness()
            desktop.drag((0, 0), (799, 599))
            self.assert_gone(desktop, OVERLAY)
            time.sleep(0.5)
            self.assertFalse(desktop.windows(PANEL))
            desktop.key("Return")
            self.assertEqual(self.end_of(process), (0, ""))
            self.assertEqual(self.delivered(desktop).size, view.size)

    def test_the_mode_of_the_preferences_is_that_of_the_hotkey(self):
        with self.resident_with_page() as desktop:
            self.choose(desktop, "Up", "Up")
            window = desktop.rect(desktop.wait_for_window(SETTINGS))
            desktop.click(window.at(0.34, 0.08))
            desktop.wait_for_stillness()
            desktop.click(window.at(0.77, 0.645))
            desktop.wait_for_stillness()
            desktop.key("Down", "Return")
            desktop.wait_for_stillness()
            desktop.close()
            self.assert_gone(desktop, SETTINGS)
            before = desktop.wait_for_stillness(VIEW)
            self.start_by_key(desktop)
            wait_until(lambda: desktop.windows(PANEL), "the panel")
            desktop.key("Return")
            desktop.wait_for_window(EDITOR, 30)
            self.assert_gone(desktop, PANEL)
            desktop.close()
            self.assert_gone(desktop, EDITOR)
            self.assertNotEqual(desktop.screenshot(VIEW).tobytes(), before.tobytes())

    # Failures

    def spoil(self, desktop, spoil):
        """An automatic capture whose page is spoilt in the middle, until the alert asks."""
        process = self.capture(desktop, "--auto")
        self.select_view(desktop)
        wait_until(lambda: desktop.windows(PANEL), "the panel")
        before = desktop.wait_for_stillness(VIEW).tobytes()
        desktop.key("Return")
        wait_until(lambda: desktop.screenshot(VIEW).tobytes() != before, "the page to scroll")
        time.sleep(1)
        spoil()
        desktop.wait_for_window(ALERT)
        self.assert_gone(desktop, PANEL)
        return process

    def test_what_was_captured_before_a_failure_is_kept_or_not(self):
        with self.resident_with_page(rows=6000) as desktop:
            def cover():
                desktop.run(["xterm", "-geometry", "200x70+0+0", "-title", "in front"], "cover")
            process = self.spoil(desktop, cover)
            # Dismissing the alert keeps it too.
            desktop.key("Escape")
            self.assertEqual(self.end_of(process), (0, ""))
            self.assert_top_of_page(desktop, self.delivered(desktop), cut=16)
            desktop.file.unlink()
            desktop.end("cover")
            desktop.wait_for_no_window("in front")
            desktop.key("Home")
            desktop.wait_for_stillness(VIEW)

            process = self.spoil(desktop, lambda: desktop.end("page"))
            desktop.key("Tab", "space")
            status, complaint = self.end_of(process)
            self.assertEqual(status, 1)
            self.assertIn("confidence", complaint)
            self.assertFalse(desktop.file.exists())
            self.assert_gone(desktop, ALERT)
            self.assert_nothing_left(desktop)

    def test_tall_pictures_need_a_temporary_folder(self):
        view = Rect(10, 10, 1250, 870)
        rows = 13600  # more than 64 MiB
        with self.desktop() as desktop:
            temporary = desktop.folder / "temporary"
            temporary.mkdir()
            for folder, status in ((temporary, 0), (Path("/proc"), 1)):
                with self.subTest(folder=folder):
                    desktop.environment["TMPDIR"] = str(folder)
                    self.open_page(desktop, "--speed", "2500", rows=rows, view=view)
                    process = self.capture(desktop)
                    self.select_view(desktop, view)
                    time.sleep(0.5)
                    desktop.process("page").send_signal(signal.SIGUSR1)
                    time.sleep(0.3)
                    desktop.wait_for_stillness(view, seconds=20)
                    desktop.key("Return")
                    if status == 1:
                        desktop.wait_for_window(ALERT)
                        desktop.key("Return")
                    returned, complaint = self.end_of(process)
                    self.assertEqual((returned, "temporary folder /proc" in complaint), (status, status == 1))
                    self.assertEqual(desktop.file.exists(), status == 0)
                    self.assertEqual(list(temporary.iterdir()), [])
                    self.assert_nothing_left(desktop)
                    if status == 0:
                        self.assert_whole_page(desktop, self.delivered(desktop))
                        desktop.file.unlink()
                    desktop.end("page")

    def press(self, desktop, button):
        panel = desktop.rect(desktop.windows(PANEL)[-1])
        desktop.click((panel.left + button, panel.bottom - BUTTON_FROM_BOTTOM))

    def test_cancelling_leaves_nothing_in_any_state(self):
        def choosing(desktop):
            wait_until(lambda: desktop.windows(OVERLAY), "the overlay")
            desktop.wait_for_stillness()

        def beside_the_panel(desktop):
            self.select_view(desktop)
            wait_until(lambda: desktop.windows(PANEL), "the panel")

        def scrolling_by_itself(desktop):
            beside_the_panel(desktop)
            before = desktop.wait_for_stillness(VIEW).tobytes()
            desktop.key("Return")
            wait_until(lambda: desktop.screenshot(VIEW).tobytes() != before, "the page to scroll")

        def scrolled_by_hand(desktop):
            beside_the_panel(desktop)
            self.scroll(desktop, 3)

        states = [(choosing, ()), (beside_the_panel, ("--auto",)), (scrolling_by_itself, ("--auto",)),
                  (scrolled_by_hand, ())]
        with self.desktop() as desktop:
            self.open_page(desktop)
            temporary = desktop.folder / "temporary"
            temporary.mkdir()
            desktop.environment["TMPDIR"] = str(temporary)
            for reach, options in states:
                ways = [lambda: desktop.key("Escape"), lambda: self.press(desktop, CANCEL)]
                for number, cancel in enumerate(ways[:1] if reach is choosing else ways):
                    with self.subTest(state=reach.__name__, way=number):
                        process = self.capture(desktop, *options)
                        reach(desktop)
                        cancel()
                        self.assertEqual(self.end_of(process)[0], 3)
                        self.assert_nothing_left(desktop)
                        self.assertFalse(desktop.file.exists())
                        self.assertEqual(list(temporary.iterdir()), [])
            self.assert_keys_are_free(desktop)

    def assert_keys_are_free(self, desktop):
        typed = desktop.folder / "typed"
        script = f"read -rsn1 key; read -rs rest; printf %q \"$key$rest\" > {typed}"
        desktop.run(["xterm", "-title", "typing", "-e", "bash", "-c", script], "xterm")
        desktop.wait_for_window("typing")
        desktop.key("Escape", "Return")
        wait_until(typed.exists, "keys in another program")
        self.assertEqual(typed.read_text(), r"$'\E'")


if __name__ == "__main__":
    resident.main()
