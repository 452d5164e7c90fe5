#!/usr/bin/python3
"""What scripts/soak does for long, for seconds: kills, parallel starts, floods, senseless requests; and
faults of the environment that need no repetition.

usage: attack_test.py PROGRAM FOLDER [unittest arguments]

FOLDER keeps pictures of the screen at failures.
"""
import contextlib
import json
import os
import resource
import shutil
import signal
import stat
import subprocess
import time
import uuid
from pathlib import Path

import attack
import resident
from desktop import Desktop, wait_until


def heavy_stroke(number):
    """Takes long to paint: it is wide, long and crosses itself everywhere."""
    points = [[(x * 7919 + number) % 4000, (x * 104729) % 3000] for x in range(9000)]
    return {"type": "brush", "data": {"id": str(uuid.uuid4()), "points": points, "isHighlighter": False,
                                      "strokeWidth": 60,
                                      "color": {"red": 1, "green": 0.2, "blue": 0.2, "alpha": 0.5}}}


class WritingTest(resident.ResidentTestCase):
    """Without a resident program."""

    def test_kills_leave_whole_files(self):
        with Desktop(640, 480) as desktop:
            attack.kills_of_render(self.program, desktop, 12)
            attack.kills_of_quick_save(self.program, desktop, 12)
            attack.kills_of_capture(self.program, desktop, 6)

    def test_parallel_saves_and_starts_never_share_a_name(self):
        with Desktop(640, 480) as desktop:
            attack.parallel_saves(self.program, desktop, 24)
            attack.starts_at_once(self.program, desktop, 12)

    def test_results_that_cannot_be_written_are_failures(self):
        with Desktop(320, 240) as desktop, open("/dev/full", "wb") as full:
            source = attack.picture(desktop.folder / "in.png", (40, 30))
            linked = desktop.folder / "linked.png"
            os.link(source, linked)
            before = source.read_bytes()
            for arguments in (["--help"], ["--version"], ["render", "--help"], ["capture", "--help"],
                              ["render", source, "--quick-save"], ["render", source, "-o", "x.png", "--json"]):
                done = subprocess.run([self.program, *arguments], env=desktop.environment, stdout=full,
                                      stderr=subprocess.PIPE, timeout=20, check=False,
                                      cwd=desktop.environment["HOME"])
                self.assertEqual(done.returncode, 1, arguments)
                self.assertIn(b"standard output", done.stderr, arguments)
            self.assertEqual(self.command(desktop, "render", source, "-o", linked)[0], 2)
            self.assertEqual(source.read_bytes(), before)
            limited = subprocess.run(
                [self.program, "render", source, "-o", source.with_name("big.png"), "--canvas", "900x900",
                 "--pattern", "noise"], env=desktop.environment, capture_output=True, timeout=20, check=False,
                preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (2000, 2000)))
            self.assertEqual(limited.returncode, 1)
            self.assertIn(b"File too large", limited.stderr)
            self.assertFalse(source.with_name("big.png").exists())

    def test_pictures_that_do_not_fit_are_refused_at_once(self):
        with Desktop(320, 240) as desktop:
            source = attack.picture(desktop.folder / "in.png", (40, 30))
            for canvas, name, reason in (("70000x100", "x.jpg", "65500"), ("17000x100", "x.webp", "16383")):
                status, _, complaint = self.command(desktop, "render", source, "-o", name, "--canvas", canvas)
                self.assertEqual(status, 1)
                self.assertIn(reason, complaint)

    def test_little_memory_is_a_message(self):
        with Desktop(320, 240) as desktop:
            source = attack.picture(desktop.folder / "in.png", (3000, 2000))
            for mebibytes in (60, 120, 200, 280, 360, 480, 640):
                limit = mebibytes << 20
                done = subprocess.run(
                    [self.program, "render", source, "-o", "x.png", "--canvas", "6000x4000"],
                    env=desktop.environment, capture_output=True, timeout=30, check=False,
                    cwd=desktop.environment["HOME"],
                    preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (limit, limit)))
                # Where not even the libraries load, the loader says so.
                self.assertIn(done.returncode, (0, 1, 127), (mebibytes, done.stderr))
                self.assertTrue(done.returncode == 0 or done.stderr, mebibytes)

    def test_closed_streams_and_names_that_are_no_text(self):
        with Desktop(320, 240) as desktop:
            home = desktop.environment["HOME"]
            name = os.fsencode(home) + b"/in\xff\x1b[2J.png"
            shutil.copy(attack.picture(desktop.folder / "in.png", (40, 30)), name)
            output = os.fsencode(home) + b"/out\xfe.png"
            self.assertEqual(subprocess.run([self.program, "render", name, "-o", output],
                                            env=desktop.environment, timeout=20, check=False).returncode, 0)
            self.assertTrue(attack.is_whole(output))
            done = subprocess.run([self.program, "render", b"no\x1b[2J\xff.png", "-o", "x.png"],
                                  env=desktop.environment, capture_output=True, timeout=20, check=False)
            self.assertEqual(done.returncode, 1)
            self.assertNotIn(b"\x1b", done.stderr)
            closed = subprocess.run(f"'{self.program}' render in.png -o closed.png <&- >&- 2>&-", shell=True,
                                    env=desktop.environment, timeout=20, check=False, cwd=desktop.folder)
            self.assertEqual(closed.returncode, 0)
            self.assertTrue(attack.is_whole(desktop.folder / "closed.png"))

    def test_folders_of_the_settings(self):
        for folder, expected in (("", "Desktop"), ("~/pictures", "pictures"), ("some/where", "some/where")):
            with Desktop(320, 240) as desktop:
                home = Path(desktop.environment["HOME"])
                (home / ".config/kestrio").mkdir(parents=True)
                (home / ".config/kestrio/kestrio.ini").write_text(
                    '[General]\ncom.kestrio.appSettings="{\\"defaultSavePath\\":\\"%s\\"}"\n' % folder)
                source = attack.picture(desktop.folder / "in.png", (40, 30))
                status, _, complaint = self.command(desktop, "render", source, "--quick-save")
                self.assertEqual(status, 0, complaint)
                self.assertEqual(len(list((home / expected).iterdir())), 1, folder)


class DoorTest(resident.ResidentTestCase):
    def test_floods_and_senseless_requests(self):
        with self.resident(size=(640, 480)) as desktop:
            attack.idle_connections(self.program, desktop, 300)
            attack.senseless_requests(self.program, desktop, 2 * len(attack.SENSELESS_LINES))
            attack.senseless_bus_calls(self.program, desktop, len(attack.BUS_CALLS))
            attack.removals_of_socket(self.program, desktop, 4)

    def test_captures_that_ask_together_wait_their_turn(self):
        with self.resident(size=(640, 480)) as desktop:
            attack.starts_at_once(self.program, desktop, 16)

    def test_folders_of_others_are_not_trusted(self):
        with Desktop(320, 240) as desktop:
            del desktop.environment["XDG_RUNTIME_DIR"]
            shared = desktop.folder / "tmp"
            shared.mkdir()
            desktop.environment["TMPDIR"] = str(shared)
            trap = shared / f"kestrio-{os.getuid()}"
            trap.mkdir(mode=0o777)
            trap.chmod(0o777)
            status, _, complaint = self.command(desktop, "capture", "display", "-o", "x.png")
            self.assertEqual(status, 1)
            self.assertIn(str(trap), complaint)
            trap.rmdir()
            trap.symlink_to(desktop.folder / "run")
            self.assertEqual(self.command(desktop, "capture", "display", "-o", "x.png")[0], 1)
            trap.unlink()
            self.assertEqual(self.command(desktop, "capture", "display", "-o", "x.png")[0], 0)
            self.assertEqual(stat.S_IMODE(trap.stat().st_mode), 0o700)

    def test_an_unwritable_folder_costs_no_time(self):
        with Desktop(320, 240) as desktop:
            desktop.environment["XDG_RUNTIME_DIR"] = "/proc/self"
            began = time.monotonic()
            self.assertEqual(self.command(desktop, "capture", "display", "-o", "x.png")[0], 0)
            self.assertLess(time.monotonic() - began, 3)


class WaitingTest(resident.ResidentTestCase):
    @contextlib.contextmanager
    def stopped(self, process):
        process.send_signal(signal.SIGSTOP)
        try:
            yield
        finally:
            process.send_signal(signal.SIGCONT)

    def test_a_stopped_bus_does_not_hold_up_the_start(self):
        with Desktop(640, 480) as desktop:
            with self.stopped(desktop.process("bus")):
                began = time.monotonic()
                process = self.start(desktop)
                attack.require_command(self.program, desktop)
                self.assertLess(time.monotonic() - began, 4)
                process.send_signal(signal.SIGTERM)
                self.assertEqual(process.wait(3), 0)

    def test_pipes_and_hung_files_hold_up_nothing(self):
        with self.resident(size=(640, 480)) as desktop:
            pipe = desktop.folder / "pipe.png"
            os.mkfifo(pipe)
            for arguments in (["edit", pipe], ["render", pipe, "-o", "x.png"],
                              ["render", pipe, "-o", "x.png", "--style", pipe]):
                began = time.monotonic()
                self.assertEqual(self.command(desktop, *arguments)[0], 1, arguments)
                self.assertLess(time.monotonic() - began, 2)

    def test_a_folder_that_hangs_holds_up_nothing(self):
        with Desktop(640, 480) as desktop:
            hung = desktop.folder / "hung"
            hung.mkdir()
            home = Path(desktop.environment["HOME"])
            (home / ".config/kestrio").mkdir(parents=True)
            (home / ".config/kestrio/kestrio.ini").write_text(
                '[General]\ncom.kestrio.appSettings="{\\"defaultSavePath\\":\\"%s\\"}"\n' % hung)
            desktop.environment.update(LD_PRELOAD=str(self.keep / "stall.so"), KESTRIO_STALL=str(hung))
            process = self.start(desktop)
            del desktop.environment["LD_PRELOAD"]
            asking = [attack.start(desktop, [self.program, *command]) for command in (
                ["capture", "display", "--save"], ["edit", hung / "x.png"],
                ["capture", "display", "-o", hung / "x.png"])]
            for _ in range(3):
                self.assertLess(attack.require_command(self.program, desktop), 2)
            self.assertTrue(all(each.poll() is None for each in asking), "these wait for the folder")
            began = time.monotonic()
            process.send_signal(signal.SIGTERM)
            self.assertEqual(process.wait(5), 0)
            self.assertLess(time.monotonic() - began, 2)
            self.assertTrue(all(each.wait(5) for each in asking), "what was not done is no success")

    def test_signals_end_everything_soon(self):
        with Desktop(640, 480) as desktop:
            process = self.start(desktop)
            began = time.monotonic()
            process.send_signal(signal.SIGTERM)
            self.assertEqual(process.wait(5), 0)
            self.assertLess(time.monotonic() - began, 1)
            source = attack.picture(desktop.folder / "big.png", (4000, 3000))
            strokes = desktop.folder / "strokes.json"
            strokes.write_text(json.dumps([heavy_stroke(number) for number in range(40)]))
            for signal_number, style in ((signal.SIGINT, []), (signal.SIGTERM, ["--annotations", strokes])):
                busy = attack.start(desktop, [self.program, "render", source, "-o", "x.webp", *style])
                time.sleep(1)
                began = time.monotonic()
                busy.send_signal(signal_number)
                self.assertEqual(busy.wait(5), 3)
                self.assertLess(time.monotonic() - began, 2)


if __name__ == "__main__":
    resident.main()
