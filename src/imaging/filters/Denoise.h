#pragma once

#include <QImage>

namespace kestrio {

/// Averages noise away in place and keeps edges: each pixel becomes the mean of the five by five
/// pixels around it, each under Tukey's biweight (1 - (d / noiseLevel)^2)^2 of its distance d in
/// colour, 0 from there on (after C. Tomasi and R. Manduchi, "Bilateral Filtering for Gray and
/// Color Images", 1998). `noiseLevel` is the least difference, 0 to 1, that counts as an edge; 0,
/// less or not a number changes nothing. Beyond its edges the bitmap continues with its outermost
/// pixels. Alpha stays.
void reduceNoise(QImage& bitmap, double noiseLevel);

}  // namespace kestrio
