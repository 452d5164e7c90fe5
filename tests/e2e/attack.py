"""What a hostile or unlucky environment does to the program: kills, parallel starts, floods of
connections and senseless calls. Each function attacks `count` times, checks that nothing was lost or
hung, and returns what it counted. The test suite runs them for seconds, scripts/soak for long.
"""
import concurrent.futures
import contextlib
import os
import random
import shutil
import signal
import socket
import subprocess
import time
from pathlib import Path

from PIL import Image

from desktop import Failure, wait_until

CORES = os.cpu_count() or 2


def picture(path, size=(1200, 800), color=(20, 90, 160)):
    """A picture whose encoding takes long enough to be killed in."""
    noise = Image.effect_noise(size, 40).convert("RGB")
    Image.blend(noise, Image.new("RGB", size, color), 0.5).save(path)
    return path


def run(desktop, command, seconds=60):
    return subprocess.run([str(part) for part in command], env=desktop.environment, timeout=seconds,
                          stdin=subprocess.DEVNULL, capture_output=True, check=False,
                          cwd=desktop.environment["HOME"])


def start(desktop, command):
    return subprocess.Popen([str(part) for part in command], env=desktop.environment,
                            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                            stderr=subprocess.DEVNULL, cwd=desktop.environment["HOME"])


def is_whole(path):
    try:
        with Image.open(path) as image:
            image.load()
        return True
    except OSError:
        return False


def strange_files(folder, suffix):
    return [entry.name for entry in folder.iterdir() if entry.suffix != suffix or entry.name.startswith(".")]


def kill_while_writing(desktop, command, folder, suffix, count, longest):
    """Kills `command` at random moments; every file in the folder has to be a whole picture."""
    killed, checked = 0, set()
    for _ in range(count):
        process = start(desktop, command)
        time.sleep(random.uniform(0, longest))
        if process.poll() is None:
            killed += 1
        process.send_signal(signal.SIGKILL)
        process.wait()
        for file in folder.glob("[!.]*"):
            state = file.name, file.stat().st_ino
            if state not in checked and not is_whole(file):
                raise Failure(f"after a kill: {file.name} is broken")
            checked.add(state)
    # What a kill left in the very moment of a replacement goes with the next one.
    duration(desktop, command)
    if strange_files(folder, suffix):
        raise Failure(f"left over: {strange_files(folder, suffix)}")
    return {"kills": count, "while running": killed, "files": len(list(folder.iterdir()))}


def duration(desktop, command):
    began = time.monotonic()
    done = run(desktop, command)
    if done.returncode:
        raise Failure(f"{command} fails: {done.stderr.decode()}")
    return time.monotonic() - began


def kills_of_render(program, desktop, count):
    folder = desktop.folder / "render"
    folder.mkdir()
    source = picture(desktop.folder / "source.png")
    output = folder / "out.png"
    command = [program, "render", source, "-o", output, "--preset", "ocean"]
    took = duration(desktop, command)
    return kill_while_writing(desktop, command, folder, ".png", count, took * 1.1)


def kills_of_quick_save(program, desktop, count):
    folder = save_folder(desktop)
    source = picture(desktop.folder / "quick.png")
    command = [program, "render", source, "--quick-save", "--format", "png"]
    took = duration(desktop, command)
    return kill_while_writing(desktop, command, folder, ".png", count, took * 1.1)


def kills_of_capture(program, desktop, count):
    folder = desktop.folder / "capture"
    folder.mkdir()
    command = [program, "capture", "display", "-o", folder / "out.png"]
    took = duration(desktop, command)
    return kill_while_writing(desktop, command, folder, ".png", count, took * 1.1)


def save_folder(desktop):
    """Where quick saves go, in the settings of the desktop's user."""
    folder = Path(desktop.environment["HOME"]) / "Desktop"
    folder.mkdir(exist_ok=True)
    return folder


def together(desktop, commands, at_once):
    """Runs the commands, `at_once` at the same time: how each ended, and its complaint."""
    with concurrent.futures.ThreadPoolExecutor(at_once) as pool:
        return [(done.returncode, done.stderr.decode().strip())
                for done in pool.map(lambda command: run(desktop, command, 120), commands)]


def require_done(results):
    failures = [result for result in results if result[0]]
    if failures:
        raise Failure(f"{len(failures)} of {len(results)} failed: {failures[:3]}")


def parallel_saves(program, desktop, count, command=None):
    """As many files as commands that ended well, all of them whole."""
    folder = save_folder(desktop)
    before = len(list(folder.iterdir()))
    source = picture(desktop.folder / "parallel.png", (200, 150))
    command = command or [program, "render", source, "--quick-save", "--format", "png"]
    require_done(together(desktop, [command] * count, min(count, 200)))
    files = [file for file in folder.iterdir() if is_whole(file)]
    if len(files) - before != count:
        raise Failure(f"{count} saves left {len(files) - before} files")
    return {"saves": count, "files": count}


def starts_at_once(program, desktop, count):
    return parallel_saves(program, desktop, count, [program, "capture", "display", "--save"])


def instance_socket(desktop):
    folder = Path(desktop.environment["XDG_RUNTIME_DIR"]) / "kestrio"
    return str(next(folder.glob("*.socket")))


def idle_connections(program, desktop, count):
    """The running program goes on taking commands while others only hold the line."""
    path = instance_socket(desktop)
    held = []
    try:
        for number in range(count):
            line = socket.socket(socket.AF_UNIX)
            line.settimeout(5)
            line.connect(path)
            held.append(line)
            if number % 400 == 0:
                require_command(program, desktop)
        require_command(program, desktop)
    finally:
        for line in held:
            line.close()
    require_command(program, desktop)
    return {"connections": count}


def require_command(program, desktop):
    folder = desktop.folder / "commands"
    folder.mkdir(exist_ok=True)
    began = time.monotonic()
    done = run(desktop, [program, "capture", "display", "-o", folder / "x.png"], 20)
    if done.returncode:
        raise Failure(f"a command fails: {done.stderr.decode()}")
    return time.monotonic() - began


SENSELESS_LINES = [b"", b"{}", b"[]", b"null", b"\xff\xfe", b'{"verb":7}', b'{"verb":"capture","delay":"x"}',
                   b'{"verb":"capture","kind":"display","delay":1e9}',
                   b'{"verb":"capture","kind":"display","output":"relative.png"}',
                   b'{"verb":"capture","kind":"display","output":"/tmp/x\\u0000.png"}',
                   b'{"verb":"capture","kind":"display","output":"/dev/null"}',
                   b'{"verb":"capture","kind":"display","output":"/tmp/kestrio.txt"}',
                   b'{"verb":"edit","file":"x.png"}', b'{"verb":"edit","file":"/x.png","density":-1}',
                   b'{"verb":"edit","file":"/x.png","density":1e300}', b"{" * 5000]


def senseless_requests(_program, desktop, count):
    """Each line is answered with a refusal, and nothing is written."""
    path = instance_socket(desktop)
    for number in range(count):
        with socket.socket(socket.AF_UNIX) as line:
            line.settimeout(5)
            line.connect(path)
            line.sendall(SENSELESS_LINES[number % len(SENSELESS_LINES)] + b"\n")
            answer = line.makefile("rb").read()
        if b'"status":2' not in answer:
            raise Failure(f"{SENSELESS_LINES[number % len(SENSELESS_LINES)]!r} gives {answer!r}")
    return {"requests": count}


BUS_CALLS = [["Capture", "display", "{'output': <'relative.png'>}"],
             ["Capture", "display", "{'output': <'/dev/null'>}"],
             ["Capture", "display", "{'output': <'/tmp/kestrio.txt'>}"],
             ["Capture", "display", "{'output': <''>}"],
             ["Capture", "display", "{'delay': <-1>}"],
             ["Capture", "display", "{'delay': <100000>}"],
             ["Capture", "display", "{'delay': <'soon'>}"],
             ["Capture", "display", "{'action': <'destroy'>}"],
             ["Capture", "display", "{'unknown': <1>}"],
             ["Capture", "everything", "{}"],
             ["Edit", "relative.png"],
             ["Edit", "/nonexistent/x.png"]]


def senseless_bus_calls(_program, desktop, count):
    def call(number):
        name, *arguments = BUS_CALLS[number % len(BUS_CALLS)]
        done = run(desktop, ["gdbus", "call", "--session", "--timeout", "20", "--dest", "org.kestrio.Kestrio",
                             "--object-path", "/org/kestrio/Kestrio", "--method",
                             f"org.kestrio.Kestrio1.{name}", *arguments], 30)
        return done.returncode, done.stderr.decode()

    with concurrent.futures.ThreadPoolExecutor(4 * CORES) as pool:
        for number, (status, message) in enumerate(pool.map(call, range(count))):
            if status == 0 or "org.kestrio.Kestrio1.Error" not in message:
                raise Failure(f"{BUS_CALLS[number % len(BUS_CALLS)]} gives {status} {message}")
    return {"calls": count}


def removals_of_socket(program, desktop, count):
    """The program is found again, and stays the only one, however often its folder is removed."""
    folder = Path(desktop.environment["XDG_RUNTIME_DIR"]) / "kestrio"
    for number in range(count):
        if number % 2:
            Path(instance_socket(desktop)).unlink()
        else:
            shutil.rmtree(folder.rename(folder.with_name(f"removed-{number}")))
        second = start(desktop, [program])
        if wait_until(lambda: second.poll() is not None, "the second start to end", 10) and second.returncode:
            raise Failure(f"a second start ends with {second.returncode}")
        wait_until(lambda: list(folder.glob("*.socket")), "the socket", 5)
        require_command(program, desktop)
    return {"removals": count}


def stalling_owners(program, desktop, count):
    """Owners of the clipboard that do not answer hold up neither captures nor, for long, a paste."""
    slowest_capture = slowest_paste = 0
    for number in range(count):
        owner = start(desktop, ["xclip", "-quiet", "-selection", "clipboard", "/etc/passwd"])
        wait_until(lambda: b"root" in (desktop.clipboard("STRING") or b""), "another program's text")
        owner.send_signal(signal.SIGSTOP)
        try:
            began = time.monotonic()
            paste = start(desktop, [program, "edit"])
            slowest_capture = max(slowest_capture, require_command(program, desktop))
            if paste.wait(10) != 1:
                raise Failure(f"pasting what nobody gives ends with {paste.returncode}")
            slowest_paste = max(slowest_paste, time.monotonic() - began)
            if number % 2 and run(desktop, [program, "capture", "display", "--copy"], 20).returncode:
                raise Failure("a copy over a silent owner fails")
        finally:
            owner.kill()
            owner.wait()
    if slowest_capture > 2 or slowest_paste > 5:
        raise Failure(f"captures took {slowest_capture:.1f} s, pastes {slowest_paste:.1f} s")
    return {"owners": count, "slowest capture": f"{slowest_capture:.2f} s",
            "slowest paste": f"{slowest_paste:.2f} s"}


def keepers(desktop):
    """The processes of this desktop that hold a clipboard."""
    found = []
    home = f"HOME={desktop.environment['HOME']}".encode()
    for process in Path("/proc").glob("[0-9]*"):
        with contextlib.suppress(OSError):
            words = (process / "cmdline").read_bytes().split(b"\0")
            if b"hold-clipboard" in words and home in (process / "environ").read_bytes().split(b"\0"):
                found.append(int(process.name))
    return found


def lone_copies(program, desktop, count):
    """However many programs copy and end, one process holds what was copied last."""
    require_done(together(desktop, [[program, "capture", "display", "--copy"]] * count, 4))
    wait_until(lambda: len(keepers(desktop)) == 1, "one process that holds the clipboard", 10)
    if "image/png" not in desktop.clipboard_targets():
        raise Failure("the clipboard is empty")
    os.kill(keepers(desktop)[0], signal.SIGTERM)
    return {"copies": count, "processes left": 1}
