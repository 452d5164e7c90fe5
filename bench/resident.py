#!/usr/bin/python3
"""Measures the resident program on a desktop of its own as a user drives it, 3840 x 2160 pixels large.

usage: bench/resident.py [--quick] [--program PROGRAM] [--captures COUNT]

Where the package flameshot is installed, its overlay is timed beside ours, turn by turn. Its figure
includes the small process "flameshot gui", as bound to a key by its users; ours includes xdotool.
--quick runs everything once on a small screen, to see that it still works.
"""
import argparse
import mmap
import os
import shutil
import statistics
import struct
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "e2e"))

from desktop import Desktop, wait_until  # noqa: E402
from resident import EDITOR, OVERLAY, PANEL_HEIGHT, with_tray  # noqa: E402

PICTURE = ROOT / "tests" / "support" / "pictures" / "dashboard-4k.png"
TICKS = os.sysconf("SC_CLK_TCK")
# Longer than the program keeps what the last window needed.
IDLE_SECONDS = 13


class Screen:
    """Points all over the screen, read from the X server's memory."""

    def __init__(self, desktop):
        with open(desktop.folder / "frame" / "Xvfb_screen0", "rb") as file:
            self._memory = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
        header, line, colors = (struct.unpack(">I", self._memory[at:at + 4])[0] for at in (0, 48, 76))
        width, height = desktop.size
        spots = [(0.07, 0.06), (0.93, 0.06), (0.31, 0.52), (0.07, 0.9), (0.93, 0.9)]
        self._offsets = [header + 12 * colors + int(y * height) * line + int(x * width) * 4 for x, y in spots]

    def colors(self):
        return [self._memory[at:at + 3] for at in self._offsets]

    def time_to_change(self, trigger):
        """Milliseconds from the trigger until all points have changed."""
        before = self.colors()
        start = time.perf_counter()
        trigger()
        while any(now == old for now, old in zip(self.colors(), before)):
            if time.perf_counter() - start > 10:
                raise SystemExit("nothing was painted")
        return (time.perf_counter() - start) * 1000


def status(process, field):
    with open(f"/proc/{process.pid}/status") as file:
        return next(int(line.split()[1]) for line in file if line.startswith(field + ":"))


def resident_megabytes(process):
    return status(process, "VmRSS") * 1024 / 1e6


def processor_milliseconds(process):
    with open(f"/proc/{process.pid}/stat") as file:
        fields = file.read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) * 1000 / TICKS


def tell(name, figure, unit, bound=None):
    verdict = "" if bound is None else f"at most {bound:<5} {'ok' if figure <= bound else 'MISSED'}"
    print(f"{name:58} {figure:8.2f} {unit:6} {verdict}", flush=True)


def start(desktop, program):
    process = desktop.run([program], "kestrio")
    folder = Path(desktop.environment["XDG_RUNTIME_DIR"]) / "kestrio"
    wait_until(lambda: list(folder.glob("*.socket")), "the program's socket")
    return process


def cancel(desktop, screen, ground):
    desktop.key("Escape")
    wait_until(lambda: screen.colors() == ground, "the overlay to go")
    time.sleep(0.4)


def measure_start(desktop, program, rounds):
    width, height = desktop.size
    panel = (0, height - PANEL_HEIGHT, width, height)
    empty, times = desktop.screenshot(panel).tobytes(), []
    for _ in range(rounds):
        begun = time.perf_counter()
        process = desktop.run([program], "kestrio")
        wait_until(lambda: desktop.screenshot(panel).tobytes() != empty, "the icon")
        times.append((time.perf_counter() - begun) * 1000)
        time.sleep(0.5)
        process.terminate()
        process.wait()
        wait_until(lambda: desktop.screenshot(panel).tobytes() == empty, "no icon")
    tell("start of the process to the icon in the tray", statistics.median(times), "ms", 250)


def measure_overlay(desktop, screen, rounds):
    has_peer = shutil.which("flameshot") is not None
    if has_peer:
        config = Path(desktop.environment["XDG_CONFIG_HOME"]) / "flameshot" / "flameshot.ini"
        config.parent.mkdir()
        config.write_text("[General]\nshowStartupLaunchMessage=false\nshowDesktopNotification=false\n")
        desktop.run(["flameshot"], "flameshot")
        time.sleep(2)
    desktop.park()
    time.sleep(1)
    ground = screen.colors()
    ours, theirs = [], []
    for round_ in range(rounds + 1):
        time_ours = screen.time_to_change(lambda: desktop.key("ctrl+alt+a"))
        cancel(desktop, screen, ground)
        if has_peer:
            time_theirs = screen.time_to_change(lambda: desktop.run(["flameshot", "gui"], "gui"))
            cancel(desktop, screen, ground)
        if round_ > 0:  # The first warms both up.
            ours.append(time_ours)
            theirs.append(time_theirs if has_peer else 0)
    tell("hotkey to overlay painted", statistics.median(ours), "ms")
    if has_peer:
        tell("flameshot, to its overlay painted", statistics.median(theirs), "ms")
        tell("ratio", statistics.median(ours) / statistics.median(theirs), "", 0.4)
        desktop.process("flameshot").terminate()


def measure_pointer(desktop, process, moves):
    width, height = desktop.size
    desktop.key("ctrl+alt+a")
    wait_until(lambda: desktop.windows(OVERLAY), "the overlay")
    time.sleep(0.5)
    before = processor_milliseconds(process)
    command = []
    for i in range(moves):
        command += ["mousemove", 100 + i * 7919 % (width - 200), 100 + i * 4111 % (height - 200), "sleep", "0.012"]
    desktop.output(["xdotool", *command], seconds=60)
    spent = processor_milliseconds(process) - before
    desktop.key("Escape")
    wait_until(lambda: not desktop.windows(OVERLAY), "no overlay")
    tell(f"work an event of the pointer, {moves} far moves, magnifier on", spent / moves, "ms", 8)


def measure_memory_after_editors(desktop, process, program, count):
    for _ in range(count):
        desktop.output([program, "edit", PICTURE])
        desktop.wait_for_window(EDITOR)
        desktop.close()
        desktop.wait_for_no_window(EDITOR)
    time.sleep(IDLE_SECONDS)
    tell(f"resident memory after {count} editors", resident_megabytes(process), "MB", 90)


def capture_into_editor(desktop):
    width, height = desktop.size
    desktop.key("ctrl+alt+a")
    wait_until(lambda: desktop.windows(OVERLAY), "the overlay")
    time.sleep(0.25)
    desktop.drag((width // 4, height // 4), (width // 2, height // 2))
    time.sleep(0.1)
    desktop.key("Return")
    desktop.wait_for_window(EDITOR)
    time.sleep(0.2)
    desktop.close()
    desktop.wait_for_no_window(EDITOR)


def measure_growth(desktop, process, count):
    early = 0
    for i in range(1, count + 1):
        capture_into_editor(desktop)
        if i == min(10, count):
            early, threads = resident_megabytes(process), status(process, "Threads")
    late = resident_megabytes(process)
    tell(f"growth of resident memory from capture 10 to {count}", late - early, "MB", 5)
    tell("threads gained", status(process, "Threads") - threads, "", 0)
    windows = desktop.output(["xdotool", "search", "--onlyvisible", "--name", "Kestrio"]) or b""
    tell("windows left", len(windows.split()), "", 0)
    time.sleep(IDLE_SECONDS)
    tell("resident memory when idle again", resident_megabytes(process), "MB", 90)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    parser.add_argument("--quick", action="store_true")
    parser.add_argument("--program", type=Path, default=ROOT / "build" / "release" / "kestrio")
    parser.add_argument("--captures", type=int, default=100)
    options = parser.parse_args()
    options.program = options.program.resolve()
    global IDLE_SECONDS
    rounds, moves, editors, captures = 7, 600, 10, options.captures
    size = (3840, 2160)
    if options.quick:
        rounds, moves, editors, captures, IDLE_SECONDS = 1, 20, 1, 2, 0.5
        size = (1280, 800)
    with Desktop(*size) as desktop:
        desktop.output(["xsetroot", "-solid", "#7090b0"])
        with_tray(desktop)
        screen = Screen(desktop)
        measure_start(desktop, options.program, rounds)
        process = start(desktop, options.program)
        time.sleep(IDLE_SECONDS)
        tell("resident memory when idle", resident_megabytes(process), "MB", 60)
        measure_overlay(desktop, screen, rounds)
        measure_pointer(desktop, process, moves)
        measure_memory_after_editors(desktop, process, options.program, editors)
        measure_growth(desktop, process, captures)


if __name__ == "__main__":
    main()
