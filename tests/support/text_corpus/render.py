#!/usr/bin/python3
"""Has a browser draw pages of known text, and writes what stands on them beside each picture.

usage: render.py FOLDER [SEED | samples | screens | dense]

Needs chromium. Each page becomes NAME.png and NAME.json: its kind and its lines from the top, each with its
place in pixels of the picture.
"""
import json
import subprocess
import sys
from pathlib import Path

import pages
import screens


def render(page, folder):
    source = folder / f"{page.name}.html"
    source.write_text(pages.html(page), encoding="utf-8")
    picture = folder / f"{page.name}.png"
    subprocess.run(["chromium", "--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars",
                    f"--force-device-scale-factor={page.density}", f"--screenshot={picture}",
                    f"--window-size={page.width},{page.height}", source.as_uri()],
                   check=True, timeout=60, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    source.unlink()
    truth = {"kind": page.kind, "size": page.size, "density": page.density,
             "lines": [{"text": line.text, "x": line.left * page.density, "y": line.top * page.density}
                       for line in page.lines]}
    picture.with_suffix(".json").write_text(json.dumps(truth, ensure_ascii=False, indent=1), encoding="utf-8")


def main():
    folder = Path(sys.argv[1]).resolve()
    folder.mkdir(parents=True, exist_ok=True)
    what = sys.argv[2] if len(sys.argv) > 2 else "1"
    sets = {"samples": pages.samples, "screens": screens.pages_of_screens,
            "dense": lambda: [screens.dense(1), screens.dense(2)]}
    for page in sets.get(what, lambda: pages.pages(int(what)))():
        render(page, folder)


if __name__ == "__main__":
    main()
