#!/usr/bin/python3
"""What is not exported yet outlives the program: it is killed, its screen is lost, it is ended by a signal,
and the next start offers the picture again.

usage: drafts_test.py PROGRAM FOLDER [unittest arguments]

FOLDER keeps pictures of the screen at failures.
"""
import contextlib
import signal
import time
from pathlib import Path

import pictures
import resident
from desktop import Desktop, wait_until
from editor import Editor, make_picture
from resident import ALERT, EDITOR, with_tray

ARROW = [(0.1, 0.8), (0.9, 0.2)]
MARK_CELL = (1, 1)
DISCARD_BUTTON = (-160, 44)  # from the middle of the window that asks
WRITTEN_SECONDS = 4


class DraftsTest(resident.ResidentTestCase):
    @contextlib.contextmanager
    def desktop(self, home=None):
        """A desktop whose failure leaves a picture; with the files of another one, `home`."""
        environment = home and {"HOME": str(home), "XDG_DATA_HOME": str(home / ".local/share"),
                                "XDG_CONFIG_HOME": str(home / ".config")}
        with Desktop(1600, 1000, environment=environment) as desktop:
            try:
                yield desktop
            except BaseException:
                desktop.screenshot().save(self.keep / f"failure-{self.id()}.png")
                print(desktop.log("kestrio"), desktop.log("editor"), flush=True)
                raise

    def open_editor(self, desktop, name="first"):
        picture = make_picture(desktop.folder / f"{name}.png", (900, 600))
        return Editor(desktop, desktop.run([self.program, "edit", picture], "editor"), name)

    def draw(self, editor):
        editor.marks_area  # as long as it is plain
        editor.toggle_annotations(True)
        cell = editor.cell(*MARK_CELL)
        before = editor.desktop.screenshot(cell)
        editor.choose_tool("a")
        editor.desktop.drag(*(cell.at(*point) for point in ARROW))
        editor.deselect()
        editor.wait_for_change(cell, before, "a mark")
        editor.toggle_annotations(False)
        editor.desktop.park()

    def drafts(self, desktop):
        folder = Path(desktop.environment["XDG_DATA_HOME"]) / "kestrio/drafts"
        return [each for each in folder.glob("*/document.json") if each.parent.name[0] != "."]

    def wait_for_drafts(self, desktop, count):
        wait_until(lambda: len(self.drafts(desktop)) == count, f"{count} drafts", WRITTEN_SECONDS)

    def leave_drawing(self, desktop):
        """An editor with a mark that is on the disk; what its canvas shows, too."""
        editor = self.open_editor(desktop)
        self.draw(editor)
        self.wait_for_drafts(desktop, 1)
        return editor, desktop.wait_for_stillness(editor.stage)

    def start_resident(self, desktop):
        with_tray(desktop)
        self.start(desktop)
        desktop.wait_for_window(ALERT)

    def answer(self, desktop, *keys):
        desktop.key(*keys)
        self.assert_gone(desktop, ALERT)

    def assert_restored(self, desktop, drawn, process, what):
        restored = Editor(desktop, process, "first")
        self.assertEqual(restored.stage.size, drawn.size)
        wait_until(lambda: pictures.difference(desktop.screenshot(restored.stage), drawn) < 0.02,
                   what + ": the canvas as it was")
        return restored

    def test_what_a_kill_interrupted_is_restored_and_goes_with_its_export(self):
        with self.desktop() as desktop:
            editor, drawn = self.leave_drawing(desktop)
            desktop.end("editor")
            self.assertEqual(len(self.drafts(desktop)), 1)
            self.start_resident(desktop)
            self.answer(desktop, "Return")
            restored = self.assert_restored(desktop, drawn, desktop.process("kestrio"), "a killed program")
            self.wait_for_drafts(desktop, 1)
            # It is still unsaved: killed again, it is offered again.
            desktop.end("kestrio")
            self.start(desktop)
            desktop.wait_for_window(ALERT)
            self.answer(desktop, "Return")
            restored = self.assert_restored(desktop, drawn, desktop.process("kestrio"), "killed twice")
            desktop.wait_for_window("first")
            desktop.key("ctrl+c")
            wait_until(lambda: "image/png" in desktop.clipboard_targets(), "the picture on the clipboard")
            self.wait_for_drafts(desktop, 0)
            desktop.close()
            desktop.wait_for_no_window(EDITOR)
            self.assertEqual(self.drafts(desktop), [])

    def test_undo_and_discarding_leave_no_draft(self):
        with self.desktop() as desktop:
            editor, _ = self.leave_drawing(desktop)
            desktop.key("ctrl+z")
            self.wait_for_drafts(desktop, 0)
            self.draw(editor)
            self.wait_for_drafts(desktop, 1)
            desktop.close()
            desktop.wait_for_stillness(editor.frame)
            self.assertEqual(len(self.drafts(desktop)), 1, "while it asks")
            x, y = editor.frame.center
            desktop.click((x + DISCARD_BUTTON[0], y + DISCARD_BUTTON[1]))
            self.assertEqual(editor.process.wait(10), 0)
            self.assertEqual(self.drafts(desktop), [])

    def test_a_signal_leaves_the_last_change_and_later_keeps_it(self):
        with self.desktop() as desktop:
            editor = self.open_editor(desktop)
            self.draw(editor)
            drawn = desktop.screenshot(editor.stage)
            desktop.process("editor").send_signal(signal.SIGTERM)
            desktop.process("editor").wait(5)
            self.assertEqual(len(self.drafts(desktop)), 1, "written as the program ended")
            for keys in (["Escape"], ["Tab", "Tab", "Return"]):
                self.start_resident(desktop)
                self.answer(desktop, *keys)
                desktop.process("kestrio").send_signal(signal.SIGTERM)
                self.assertEqual(desktop.process("kestrio").wait(10), 0)
                self.assertEqual(len(self.drafts(desktop)), 1)
            second = desktop.run([self.program, "edit", make_picture(desktop.folder / "second.png")], "editor")
            desktop.wait_for_window(ALERT)
            self.assertTrue(desktop.windows("second"))
            self.answer(desktop, "Return")
            self.assert_restored(desktop, drawn, second, "a program that was ended")

    def test_discarding_removes_it(self):
        with self.desktop() as desktop:
            self.leave_drawing(desktop)
            desktop.end("editor")
            self.start_resident(desktop)
            self.answer(desktop, "Tab", "Return")
            self.wait_for_drafts(desktop, 0)
            self.assertFalse(desktop.windows(EDITOR))

    def test_a_lost_screen_loses_no_work_and_a_living_editor_keeps_its_own(self):
        with self.desktop() as desktop:
            editor, drawn = self.leave_drawing(desktop)
            home = Path(desktop.environment["HOME"])
            with self.desktop(home) as other:
                with_tray(other)
                self.start(other)
                time.sleep(1)
                self.assertFalse(other.windows(ALERT), "the draft of a living program is offered")
                other.end("kestrio")
                desktop.process("xvfb").kill()
                editor.process.wait(10)
                self.start(other)
                other.wait_for_window(ALERT)
                self.answer(other, "Return")
                self.assert_restored(other, drawn, other.process("kestrio"), "a lost screen")


if __name__ == "__main__":
    resident.main()
