"""A desktop of a test's own: an X server in memory, a window manager and a session bus, with real
pointer and key events, pictures of the screen and waiting for conditions.

    with Desktop(1920, 1080) as desktop:
        editor = desktop.run([program, "edit", "shot.png"])
        window = desktop.wait_for_window("shot")
        desktop.key("ctrl+c")

Nothing outside its own temporary folder is read or written: HOME and all XDG folders lie in it.
Coordinates are pixels of the screen from its top left corner.
"""
import contextlib
import ctypes
import os
import re
import shutil
import signal
import struct
import subprocess
import tempfile
import time
from pathlib import Path
from typing import NamedTuple

from PIL import Image

POLL_SECONDS = 0.02


class Failure(AssertionError):
    """What the desktop shows or does is not what was waited for."""


class Rect(NamedTuple):
    left: int
    top: int
    right: int
    bottom: int

    @property
    def center(self):
        return (self.left + self.right) // 2, (self.top + self.bottom) // 2

    @property
    def size(self):
        return self.right - self.left, self.bottom - self.top

    def at(self, x, y):
        """The point at these fractions of width and height."""
        return round(self.left + x * self.size[0]), round(self.top + y * self.size[1])

    def offset(self, x, y):
        return Rect(self.left + x, self.top + y, self.right + x, self.bottom + y)

    def inset(self, margin):
        return Rect(self.left + margin, self.top + margin, self.right - margin, self.bottom - margin)


def wait_until(condition, what, seconds=10):
    """What `condition` returns once it is true; fails with `what` after the time limit."""
    limit = time.monotonic() + seconds
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > limit:
            raise Failure(f"{what}: not within {seconds} s")
        time.sleep(POLL_SECONDS)


def _end_with_test():
    """Runs in a new process: a test that is killed leaves no servers behind."""
    set_parent_death_signal = 1
    ctypes.CDLL(None).prctl(set_parent_death_signal, signal.SIGTERM)


class Desktop:
    def __init__(self, width=1920, height=1080, environment=None):
        self.size = width, height
        self.folder = Path(tempfile.mkdtemp(prefix="kestrio-desktop-"))
        self.environment = {**self._private_environment(), **(environment or {})}
        self._processes = []
        self._named = {}
        self._frame = self.folder / "frame" / "Xvfb_screen0"

    def __enter__(self):
        try:
            self.start()
        except BaseException:
            self.stop()
            raise
        return self

    def __exit__(self, *_):
        self.stop()

    def _private_environment(self):
        kept = {name: os.environ[name] for name in ("PATH", "LD_LIBRARY_PATH") if name in os.environ}
        kept.update({name: value for name, value in os.environ.items() if "SAN_OPTIONS" in name})
        folders = {"HOME": "home", "XDG_CONFIG_HOME": "home/.config", "XDG_DATA_HOME": "home/.local/share",
                   "XDG_CACHE_HOME": "home/.cache", "XDG_RUNTIME_DIR": "run"}
        for name, folder in folders.items():
            (self.folder / folder).mkdir(parents=True, exist_ok=True, mode=0o700)
            kept[name] = str(self.folder / folder)
        return {**kept, "LANG": "C.UTF-8", "QT_QPA_PLATFORM": "xcb", "XDG_SESSION_TYPE": "x11"}

    # Start and stop

    def start(self):
        self._start_server()
        self._start_bus()
        self._launch(["openbox", "--sm-disable"], "openbox")
        wait_until(lambda: self._try_tool("get_num_desktops"), "a window manager")

    def _start_server(self):
        self._frame.parent.mkdir()
        width, height = self.size
        read_end, write_end = os.pipe()
        self._launch(["Xvfb", "-displayfd", str(write_end), "-screen", "0", f"{width}x{height}x24",
                      "-fbdir", str(self._frame.parent), "-nolisten", "tcp", "-noreset", "-dpi", "96"],
                     "xvfb", pass_fds=[write_end])
        os.close(write_end)
        with os.fdopen(read_end) as answer:
            number = answer.readline().strip()
        if not number:
            raise Failure("the X server does not start: " + self.log("xvfb"))
        self.environment["DISPLAY"] = ":" + number

    def _start_bus(self):
        daemon = self._launch(["dbus-daemon", "--session", "--nofork", "--print-address"], "bus",
                              stdout=subprocess.PIPE)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = daemon.stdout.readline().decode().strip()

    def stop(self):
        for process in reversed(self._processes):
            if process.poll() is None:
                process.terminate()
                with contextlib.suppress(subprocess.TimeoutExpired):
                    process.wait(5)
            if process.poll() is None:
                process.kill()
                process.wait()
            if process.stdout:
                process.stdout.close()
        self._processes.clear()
        shutil.rmtree(self.folder, ignore_errors=True)

    # Programs

    def _launch(self, command, name, **options):
        with open(self.folder / f"{name}.log", "ab") as log:
            options.setdefault("stdout", log)
            process = subprocess.Popen([str(part) for part in command], env=self.environment,
                                       stdin=subprocess.DEVNULL, stderr=log, cwd=self.environment["HOME"],
                                       preexec_fn=_end_with_test, **options)
        self._processes.append(process)
        self._named[name] = process
        return process

    def run(self, command, name="program"):
        """Starts a program on the desktop; what it writes is kept in log(name)."""
        return self._launch(command, name)

    def process(self, name="program"):
        """The program, or the desktop's server, that was started last under this name."""
        return self._named[name]

    def end(self, name):
        """Kills a program that run() started."""
        self.process(name).kill()
        self.process(name).wait()

    def log(self, name="program"):
        file = self.folder / f"{name}.log"
        return file.read_text(errors="replace") if file.exists() else ""

    def output(self, command, seconds=10):
        """Runs a helper to its end: what it writes, as bytes, or None where it fails."""
        done = subprocess.run([str(part) for part in command], env=self.environment, timeout=seconds,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              check=False)
        return done.stdout if done.returncode == 0 else None

    # Windows

    def _try_tool(self, *arguments):
        answer = self.output(["xdotool", *arguments])
        return answer.decode() if answer is not None else None

    def _tool(self, *arguments):
        answer = self._try_tool(*arguments)
        if answer is None:
            raise Failure("xdotool fails: " + " ".join(map(str, arguments)))
        return answer

    def windows(self, title):
        """The visible windows whose title matches this regular expression."""
        return (self._try_tool("search", "--onlyvisible", "--name", title) or "").split()

    def wait_for_window(self, title, seconds=10):
        """The window of that title, once it is shown and takes the keys."""
        window = wait_until(lambda: self.windows(title), f"a window {title!r}", seconds)[-1]
        wait_until(lambda: (self._try_tool("getactivewindow") or "").strip() == window,
                   f"the window {title!r} to be active", seconds)
        return window

    def wait_for_no_window(self, title, seconds=10):
        wait_until(lambda: not self.windows(title), f"no window {title!r}", seconds)

    def rect(self, window):
        """Where the window is, without its frame. Moves the pointer there: what xdotool tells of a
        window's place counts the frame twice."""
        size = dict(re.findall(r"^(WIDTH|HEIGHT)=(\d+)$", self._tool("getwindowgeometry", "--shell", window),
                               re.MULTILINE))
        answer = self._tool("mousemove", "--window", window, 0, 0, "getmouselocation", "--shell")
        place = dict(re.findall(r"^([XY])=(\d+)$", answer, re.MULTILINE))
        left, top = int(place["X"]), int(place["Y"])
        return Rect(left, top, left + int(size["WIDTH"]), top + int(size["HEIGHT"]))

    def close(self):
        """Asks the active window to close, as its close button does."""
        self.key("alt+F4")

    # Pointer and keys

    def move(self, point):
        self._tool("mousemove", "--sync", *point)

    def park(self):
        """Takes the pointer, which the screen's pictures show, to the lower right corner."""
        width, height = self.size
        self._tool("mousemove", width - 1, height - 1)

    def click(self, point, button=1, count=1):
        self._tool("mousemove", *point, "click", "--repeat", count, "--delay", 60, button)

    def drag(self, *points, steps=6):
        """Presses at the first point, moves through the others and releases at the last."""
        command = ["mousemove", *points[0], "mousedown", 1]
        for start, end in zip(points, points[1:]):
            for step in range(1, steps + 1):
                command += ["sleep", "0.01", "mousemove",
                            round(start[0] + (end[0] - start[0]) * step / steps),
                            round(start[1] + (end[1] - start[1]) * step / steps)]
        self._tool(*command, "sleep", "0.02", "mouseup", 1)

    def key(self, *names):
        """Keys one after the other, like "ctrl+shift+z"."""
        self._tool("key", "--delay", 8, *names)

    def type(self, text):
        self._tool("type", "--delay", 8, text)

    # Pictures of the screen

    def screenshot(self, rect=None):
        """The screen, or a part of it, as an RGB picture."""
        data = self._frame.read_bytes()
        header_size = struct.unpack(">I", data[:4])[0]
        width, height, line, colors = (struct.unpack(">I", data[at:at + 4])[0] for at in (16, 20, 48, 76))
        start = header_size + 12 * colors
        image = Image.frombytes("RGB", (width, height), data[start:start + line * height], "raw", "BGRX", line)
        return image.crop(rect) if rect else image

    def wait_for_stillness(self, rect=None, seconds=10, still=0.3):
        """The picture of this part of the screen once it has not changed for a while."""
        limit = time.monotonic() + seconds
        last, since = self.screenshot(rect), time.monotonic()
        while time.monotonic() - since < still:
            if time.monotonic() > limit:
                raise Failure(f"the screen goes on changing after {seconds} s")
            time.sleep(POLL_SECONDS)
            now = self.screenshot(rect)
            if now.tobytes() != last.tobytes():
                last, since = now, time.monotonic()
        return last

    # Clipboard, through another program

    def clipboard_targets(self):
        return (self.output(["xclip", "-selection", "clipboard", "-t", "TARGETS", "-o"]) or b"").decode().split()

    def clipboard(self, target):
        return self.output(["xclip", "-selection", "clipboard", "-t", target, "-o"])
