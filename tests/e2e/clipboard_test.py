"""End-to-end tests of the clipboard: what is copied outlives the program, and programs that do not
answer hold up nothing. See resident.main() for the arguments."""
import contextlib
import os
import signal
import socket
import subprocess
import threading
import time
from pathlib import Path

from PIL import Image

import pictures
import resident
from attack import keepers
from desktop import Desktop, Rect, wait_until
from resident import EDITOR, with_tray

LONGEST_STALL = 1.0  # seconds without an answer of the main loop; a machine under load needs some
FAILURE_COLOR = (217, 45, 32)
RED = (250, 20, 30)
OWNER = "other program"


class Heartbeat:
    """Asks the program's main loop for an answer ten times a second; `longest` is the longest wait."""

    def __init__(self, desktop):
        self.longest = 0
        self._desktop = desktop
        self._end = threading.Event()
        self._thread = threading.Thread(target=self._run)

    def __enter__(self):
        self._thread.start()
        return self

    def __exit__(self, *_):
        self._end.set()
        self._thread.join()

    def _run(self):
        while not self._end.wait(0.1):
            start = time.monotonic()
            self._desktop.output(["gdbus", "introspect", "--session", "--dest", "org.kestrio.Kestrio",
                                  "--object-path", "/org/kestrio/Kestrio"], seconds=120)
            self.longest = max(self.longest, time.monotonic() - start)


class ClipboardTest(resident.ResidentTestCase):
    @contextlib.contextmanager
    def alone(self):
        """A desktop without the resident program, and the folder for temporary files on it."""
        with Desktop(800, 600) as desktop:
            temporary = desktop.folder / "temporary"
            temporary.mkdir()
            desktop.environment["TMPDIR"] = str(temporary)
            try:
                yield desktop, temporary
            finally:
                for process in keepers(desktop):
                    os.kill(process, signal.SIGKILL)

    def stall(self, desktop):
        """Another program copies and then answers nobody."""
        desktop.run(["xclip", "-quiet", "-selection", "clipboard", "/etc/passwd"], OWNER)
        wait_until(lambda: b"root" in (desktop.clipboard("STRING") or b""), "another program's text")
        desktop.process(OWNER).send_signal(signal.SIGSTOP)

    def test_many_copies_leave_one_process_that_holds_the_last(self):
        with self.alone() as (desktop, temporary):
            for _ in range(3):
                commands = []
                for _ in range(5):
                    commands.append(self.start_command(desktop, "capture", "display", "--copy"))
                    time.sleep(0.1)
                for command in commands:
                    _, complaint = command.communicate(timeout=30)
                    self.assertEqual((command.returncode, complaint), (0, b""))
            wait_until(lambda: len(keepers(desktop)) == 1, "one process that holds the clipboard")
            self.assertEqual(self.copied(desktop).size, (800, 600))
            self.assertTrue(desktop.clipboard("image/bmp").startswith(b"BM"))
            self.assertFalse(list(temporary.iterdir()))
            subprocess.run(["xclip", "-selection", "clipboard", "/dev/null"], env=desktop.environment,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
            wait_until(lambda: not keepers(desktop), "no process that holds what is no longer there", 1)

    def test_what_is_held_comes_from_the_program_alone(self):
        with self.alone() as (desktop, temporary):
            file = temporary / "mine"
            file.write_text("mine")
            for arguments in ([], [file]):
                with file.open() as given:
                    done = subprocess.run([self.program, "hold-clipboard", *arguments], stdin=given, timeout=20,
                                          env=desktop.environment, capture_output=True, check=False)
                self.assertEqual(done.returncode, 2)
            self.assertEqual(file.read_text(), "mine")
            self.assertFalse(desktop.clipboard_targets())

    def test_processes_killed_while_one_hands_over_leave_nothing(self):
        with self.alone() as (desktop, temporary):
            command = self.start_command(desktop, "capture", "display", "--copy")
            started = wait_until(lambda: keepers(desktop), "the process that takes over")
            for process in (*started, command.pid):
                os.kill(process, signal.SIGKILL)
            command.communicate()
            self.assertFalse(list(temporary.iterdir()))
            self.assertFalse(keepers(desktop))

    def test_what_a_killed_command_copied_is_taken_over(self):
        with self.alone() as (desktop, _):
            command = self.start_command(desktop, "capture", "display", "--copy")
            started, = wait_until(lambda: keepers(desktop), "the process that takes over")
            os.kill(started, signal.SIGSTOP)
            command.kill()
            command.communicate()
            os.kill(started, signal.SIGCONT)
            self.assertEqual(self.copied(desktop).size, (800, 600))

    def test_a_copy_that_nobody_can_hold_is_a_failure(self):
        with self.alone() as (desktop, _):
            command = self.start_command(desktop, "capture", "display", "--copy")
            self.copied(desktop)
            with self.full_display(desktop):
                _, complaint = command.communicate(timeout=30)
                with self.full_display(desktop):
                    refused = self.command(desktop, "capture", "display", "--copy")
            self.assertEqual(command.returncode, 1)
            self.assertEqual(len(complaint.splitlines()), 1, complaint)
            self.assertEqual(refused[0], 1)
            self.assertIn("kestrio: the display refuses", refused[2])

    @contextlib.contextmanager
    def full_display(self, desktop):
        """A display that takes no further program."""
        address = "\0/tmp/.X11-unix/X" + desktop.environment["DISPLAY"][1:]
        version_11 = b"l\0\x0b\0" + bytes(8)
        clients = []
        try:
            while True:
                client = socket.socket(socket.AF_UNIX)
                clients.append(client)
                client.connect(address)
                client.sendall(version_11)
                if client.recv(1) != b"\1":
                    break
            yield
        finally:
            for client in clients:
                client.close()

    def test_an_owner_that_does_not_answer_holds_up_nothing(self):
        with self.resident(prepare=with_tray) as desktop, Heartbeat(desktop) as heart:
            self.stall(desktop)
            self.open_overlay(desktop)
            self.select(desktop)
            desktop.key("Return")
            window = desktop.rect(desktop.wait_for_window(EDITOR))
            # Its fields hear of another change.
            desktop.end(OWNER)
            self.stall(desktop)
            canvas = Rect(window.left + 50, window.top + 100, window.left + 850, window.top + 600)
            before = desktop.wait_for_stillness(canvas)
            desktop.click((window.left + 200, window.top + 26))  # the zoom
            desktop.key("ctrl+v", "5", "0", "Return")
            wait_until(lambda: pictures.difference(desktop.screenshot(canvas), before) > 0.05,
                       "the zoom that was typed after a text that does not come")
            desktop.key("ctrl+v")
            wait_until(lambda: pictures.bounds_of(desktop.screenshot(window), FAILURE_COLOR),
                       "the failure to paste a picture")
            result = self.command(desktop, "edit")
            self.assertEqual((result[0], len(result[2].splitlines())), (1, 1), result)
            self.assertEqual(self.command(desktop, "capture", "display", "--copy")[0], 0)
            self.assertEqual(self.copied(desktop).size, desktop.size)
        self.assertLess(heart.longest, LONGEST_STALL)

    def test_what_another_program_has_is_pasted(self):
        with self.resident() as desktop:
            self.command(desktop, "capture", "display", "--edit")
            window = desktop.rect(desktop.wait_for_window(EDITOR))
            canvas = Rect(window.left + 50, window.top + 100, window.left + 850, window.top + 600)
            subprocess.run(["xclip", "-selection", "clipboard"], input=b"20\n", env=desktop.environment,
                           stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
            before = desktop.wait_for_stillness(canvas)
            desktop.click((window.left + 200, window.top + 26))
            desktop.key("ctrl+v", "Return")
            wait_until(lambda: pictures.difference(desktop.screenshot(canvas), before) > 0.05,
                       "the zoom that was pasted")
            file = desktop.folder / "red.png"
            Image.new("RGB", (300, 200), RED).save(file)
            desktop.run(["xclip", "-quiet", "-selection", "clipboard", "-t", "image/png", file], OWNER)
            wait_until(lambda: "image/png" in desktop.clipboard_targets(), "another program's picture")
            desktop.key("ctrl+v")
            wait_until(lambda: pictures.bounds_of(desktop.screenshot(canvas), RED), "the picture that was pasted")
            desktop.key("ctrl+shift+v")
            desktop.wait_for_window("Clipboard")


if __name__ == "__main__":
    resident.main()
