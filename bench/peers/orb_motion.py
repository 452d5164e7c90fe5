#!/usr/bin/python3
"""Estimates the motion between frames of a page by OpenCV's ORB features, cross-checked brute-force matches and
RANSAC, and prints the median milliseconds for a pair of frames and the share of right answers as JSON.

usage: orb_motion.py PAGE HEIGHT STEP

Frames have the page's width, HEIGHT rows, and begin STEP rows below one another, as in bench/stitch.cpp.
Needs the Debian package python3-opencv, which nothing else needs.
"""
import json
import statistics
import sys
import time

import cv2
import numpy

TOLERANCE = 4  # pixels, as in bench/stitch.cpp
THREADS = 2
ROUNDS = 3


def frames_of(page, height, step):
    """The page begins anew where it ends."""
    endless = numpy.concatenate([page, page[:height]])
    return [numpy.ascontiguousarray(endless[y:y + height]) for y in range(0, page.shape[0], step)]


def motion(previous, current):
    """How far the content moved up; None where nothing agrees."""
    orb = cv2.ORB_create()
    found = [orb.detectAndCompute(cv2.cvtColor(frame, cv2.COLOR_BGRA2GRAY), None)
             for frame in (previous, current)]
    if any(descriptors is None for _, descriptors in found):
        return None
    matches = cv2.BFMatcher(cv2.NORM_HAMMING, crossCheck=True).match(found[0][1], found[1][1])
    if len(matches) < 3:
        return None
    places = [numpy.float32([found[side][0][getattr(match, index)].pt for match in matches])
              for side, index in ((0, "queryIdx"), (1, "trainIdx"))]
    matrix, _ = cv2.estimateAffinePartial2D(*places, method=cv2.RANSAC)
    return None if matrix is None else -matrix[1][2]


def main():
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    cv2.setNumThreads(THREADS)
    height, step = int(sys.argv[2]), int(sys.argv[3])
    page = cv2.cvtColor(cv2.imread(sys.argv[1]), cv2.COLOR_BGR2BGRA)
    frames = frames_of(page, height, step)
    milliseconds, right = [], 0
    motion(*frames[:2])  # OpenCV starts its threads
    for previous, current in [pair for _ in range(ROUNDS) for pair in zip(frames, frames[1:])]:
        start = time.perf_counter()
        found = motion(previous, current)
        milliseconds.append(1000 * (time.perf_counter() - start))
        right += found is not None and abs(found - step) <= TOLERANCE
    print(json.dumps({"orb_ms": statistics.median(milliseconds), "right": right / len(milliseconds)}))


if __name__ == "__main__":
    main()
