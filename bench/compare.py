#!/usr/bin/python3
"""Runs the benchmarks beside other programs on this machine and prints the ratios.

usage: bench/compare.py [--skia FOLDER] [--webp] [--stitch]

FOLDER holds the Skia peer (compose.mjs and package.json); it is copied and installed with npm.
--webp adds the slow comparison with cwebp (package webp). --stitch measures the joining of frames instead, its
estimator beside OpenCV's features (package python3-opencv). Needs a release build.
"""
import argparse
import json
import os
import shutil
import statistics
import subprocess
import tempfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "release"
SAMPLE = ROOT / "tests" / "support" / "pictures" / "dashboard-4k.png"
BITMAP_BYTES = 3840 * 2160 * 4
FRAME, STEP, PAGE_ROWS = (2560, 1440), 432, 8640  # pixels, as in bench/stitch.cpp
STITCHED_FRAMES = 300


def medians(program, pattern, repetitions=7):
    """The median milliseconds of each benchmark that matches."""
    command = [BUILD / "bench" / program, f"--benchmark_filter={pattern}", "--benchmark_format=json",
               f"--benchmark_repetitions={repetitions}", "--benchmark_report_aggregates_only=true"]
    report = json.loads(subprocess.run(command, capture_output=True, check=True,
                                       env={**os.environ, "QT_QPA_PLATFORM": "offscreen"}).stdout)
    return {row["run_name"].split("/process_time")[0].removesuffix("/real_time"): row["real_time"]
            for row in report["benchmarks"] if row["aggregate_name"] == "median"}


def skia_figures(folder):
    with tempfile.TemporaryDirectory() as place:
        peer = Path(place) / "skia"
        shutil.copytree(folder, peer)
        subprocess.run(["npm", "install"], cwd=peer, check=True, capture_output=True)
        output = subprocess.run(["node", "compose.mjs", SAMPLE, "7"], cwd=peer, check=True,
                                capture_output=True).stdout
        return json.loads(output)


def timed(command, runs):
    """The median seconds of a whole process and its peak memory in bytes."""
    seconds, peak = [], 0
    for _ in range(runs):
        start = time.perf_counter()
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        _, status, usage = os.wait4(process.pid, 0)
        seconds.append(time.perf_counter() - start)
        peak = max(peak, usage.ru_maxrss * 1024)
        if status != 0:
            raise SystemExit(f"{command[0]} failed")
    return statistics.median(seconds), peak


def tell(name, ours, bound, peer=None, unit="ms"):
    figure = ours / peer if peer else ours
    beside = f"{ours:8.1f} / {peer:7.1f} {unit}" if peer else f"{ours:8.2f} {unit}"
    verdict = "" if bound is None else f"at most {bound:<5} {'ok' if figure <= bound else 'MISSED'}"
    print(f"{name:42} {beside:24} {figure:6.2f}  {verdict}")


def compare_with_skia(folder):
    # Skia runs before and after ours, so that a machine that slows down meanwhile shows in both.
    before = skia_figures(folder)
    ours = {**medians("bench_render", "composePlain|composeEverything"), **medians("bench_filters", "^blur/20/"),
            **medians("bench_codecs", "encodePngOurs|encodePngLibpng")}
    after = skia_figures(folder)
    skia = {key: (before[key] + after[key]) / 2 for key in ("compose_ms", "blur20_ms", "png_ms")}
    worst = max(value for key, value in ours.items() if key.startswith("composeEverything"))
    tell("compose, plain", ours["composePlain"], 0.4, skia["compose_ms"])
    tell("compose, everything, slowest pattern", worst, 1.0, skia["compose_ms"])
    tell("Gaussian blur, sigma 20", ours["blur/20"], 0.3, skia["blur20_ms"])
    tell("PNG encoding", ours["encodePngOurs"], 0.25, skia["png_ms"])
    tell("PNG encoding beside libpng", ours["encodePngOurs"], None, ours["encodePngLibpng"])


def compare_process():
    with tempfile.TemporaryDirectory() as place:
        command = [BUILD / "kestrio", "render", SAMPLE, "--density", "2", "--preset", "sunset",
                   "-o", Path(place) / "out.png"]
        seconds, peak = timed(command, 9)
    tell("kestrio render to PNG, whole process", seconds, 0.5, unit="s")
    tell("its peak memory in output bitmaps", peak / BITMAP_BYTES, 5.0, unit="bitmaps")


def compare_webp():
    with tempfile.TemporaryDirectory() as place:
        composed = Path(place) / "composed.png"
        render = [BUILD / "kestrio", "render", SAMPLE, "--density", "2", "--preset", "sunset", "--json"]
        subprocess.run([*render, "-o", composed], check=True, capture_output=True)
        # cwebp reads, encodes and writes; so the stages of ours that do the same count.
        # By turns, so that a machine that slows down meanwhile shows in both.
        ours, theirs = [], []
        for _ in range(5):
            report = json.loads(subprocess.run([*render, "-o", Path(place) / "out.webp"], check=True,
                                               capture_output=True).stdout)
            stages = report["outputs"][0]["milliseconds"]
            ours.append((stages["load"] + stages["encode"] + stages["write"]) / 1000)
            theirs.append(timed(["cwebp", "-quiet", "-z", "6", "-near_lossless", "90", "-mt", composed,
                                 "-o", Path(place) / "peer.webp"], 1)[0])
    tell("WebP beside cwebp", statistics.median(ours), 1.0, statistics.median(theirs), unit="s")


def write_page(file):
    """The page of bench/stitch.cpp, which two pixels a point make twice as large."""
    command = [BUILD / "e2e" / "scrolling_page", "--size", f"{FRAME[0] // 2}x{FRAME[1] // 2}",
               "--rows", str(PAGE_ROWS // 2), "--write-page", file]
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "QT_SCALE_FACTOR": "2"}
    with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, env=environment) as process:
        process.stdout.readline()  # as soon as the window shows it
        process.terminate()


def write_frames(page, folder):
    """The files of a long capture of the page, which begins anew where it ends."""
    from PIL import Image
    whole = Image.open(page)
    names = []
    for y in range(0, whole.height, STEP):
        frame = Image.new("RGB", FRAME)
        for top in (-y, whole.height - y):
            frame.paste(whole, (0, top))
        names.append(folder / f"{y}.png")
        frame.save(names[-1], compress_level=1)
    return [names[number % len(names)] for number in range(STITCHED_FRAMES)]


def compare_estimators(page):
    def peer():
        command = ["/usr/bin/python3", ROOT / "bench" / "peers" / "orb_motion.py", page, str(FRAME[1]), str(STEP)]
        return json.loads(subprocess.run(command, capture_output=True, check=True).stdout)["orb_ms"]

    before = peer()
    ours = medians("bench_stitch", "estimate/plain")["estimate/plain"]
    tell("motion of a frame beside ORB", ours, 0.2, (before + peer()) / 2)


def compare_stitching():
    with tempfile.TemporaryDirectory() as place:
        page = Path(place) / "page.png"
        write_page(page)
        compare_estimators(page)
        ours = medians("bench_stitch", "ingest|analyse|compressStrip|compose")
        tell("joining a frame", ours["ingest/plain"], 33)
        tell("joining a frame with bars", ours["ingest/bars"], 33)
        tell("of it, finding out about the frame", ours["analyse"], None)
        tell("of it, compressing its strip", ours["compressStrip"], None)
        growth = medians("bench_stitch", "growth", 3)
        late, early = (growth[f"growth/{count}/iterations:15"] for count in (290, 10))
        tell("joining a frame, late beside early", late, 1.2, early)
        output = Path(place) / "out.png"
        seconds, peak = timed([BUILD / "kestrio", "stitch", *write_frames(page, Path(place)), "-o", output], 1)
    bitmap = FRAME[0] * 4 * (FRAME[1] + (STITCHED_FRAMES - 1) * STEP)
    tell(f"kestrio stitch, {STITCHED_FRAMES} frames", seconds, None, unit="s")
    tell("its peak memory beside the bitmap", (peak - bitmap) / 1e6, 400, unit="MB")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    parser.add_argument("--skia", type=Path, help="folder of the Skia peer")
    parser.add_argument("--webp", action="store_true", help="compare with cwebp too")
    parser.add_argument("--stitch", action="store_true", help="measure the joining of frames instead")
    options = parser.parse_args()
    if options.stitch:
        compare_stitching()
        return
    if options.skia:
        compare_with_skia(options.skia)
    compare_process()
    if options.webp:
        compare_webp()


if __name__ == "__main__":
    main()
