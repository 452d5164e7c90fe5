#!/usr/bin/python3
"""Compares what was read with what stands on pages of render.py.

usage: score.py CORPUS READ [--lines]

READ has a file NAME.json for each page of CORPUS, in the form of "kestrio ocr --json". Prints for each kind of page
how many characters are wrong (insertions, deletions and replacements), without and with spaces, and how many
lines were read that are not there. Runs of spaces count as one. --lines shows each line that differs.
"""
import collections
import json
import re
import sys
import unicodedata
from pathlib import Path


def distance(a, b):
    row = list(range(len(b) + 1))
    for i, left in enumerate(a, 1):
        previous, row[0] = row[0], i
        for j, right in enumerate(b, 1):
            previous, row[j] = row[j], min(row[j] + 1, row[j - 1] + 1, previous + (left != right))
    return row[-1]


def matched(truth, read):
    """Each true line with what was read in its place, from the left; and what is in nobody's place."""
    height = truth["size"] * truth["density"] * 1.4
    lines = [(line["x"], line["y"], line["text"], []) for line in truth["lines"]]
    strangers = []
    for line in read["lines"]:
        x, y, width, box_height = line["rect"]
        middle = y + box_height / 2
        here = [one for one in lines if one[1] <= middle <= one[1] + height and one[0] - height < x]
        if here:
            max(here, key=lambda one: one[0])[3].append((x, line["text"]))
        else:
            strangers.append(line["text"])
    return [(text, " ".join(part for _, part in sorted(parts))) for _, _, text, parts in lines], strangers


def folded(text):
    return re.sub(r"\s+", " ", text).strip()


def main():
    corpus, read_folder = Path(sys.argv[1]), Path(sys.argv[2])
    totals = collections.defaultdict(lambda: [0, 0, 0, 0])
    for path in sorted(corpus.glob("*.json")):
        truth = json.loads(path.read_text(encoding="utf-8"))
        read = json.loads((read_folder / path.name).read_text(encoding="utf-8"))
        pairs, strangers = matched(truth, read)
        page = [0, 0, 0, len(strangers)]
        for true, found in pairs:
            true, found = folded(true), folded(found)
            page[0] += len(true.replace(" ", ""))
            page[1] += distance(true.replace(" ", ""), found.replace(" ", ""))
            page[2] += distance(true, found)
            if true != found and "--lines" in sys.argv:
                print(f"{path.stem}\n  {true}\n  {found}")
        group = path.stem.split("-")[0]
        for key in (truth["kind"], f"  {group}", f"    {truth['size']}px {truth['density']}x {group}"):
            totals[key] = [a + b for a, b in zip(totals[key], page)]
    for key in sorted(totals, key=lambda key: (key.count(" ") > 3, key)):
        count, wrong, with_spaces, strangers = totals[key]
        print(f"{key:24} {count:6} characters, wrong {100 * wrong / count:6.2f} %, with spaces "
              f"{100 * with_spaces / count:6.2f} %, lines of nothing {strangers}")


if __name__ == "__main__":
    main()
