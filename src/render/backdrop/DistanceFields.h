#pragma once

#include "core/Parallel.h"
#include "imaging/filters/Mask.h"

#include <QSize>
#include <vector>

namespace kestrio {

// Regular line drawings as distances: a field writes, for a row of pixel centres, how far each lies
// from the nearest line, in pixels. Distances are cheap to compute row by row, where stroking
// thousands of segments over a 4K picture took over a second.

/// Circles about a centre at every multiple of `pitch` up to `last`.
struct CirclesField {
    double centreX;
    double centreY;
    double pitch;
    double last;

    void distances(int y, float* row, int width) const;
};

/// Diagonals falling to the right, `pitch` apart along x, the first through (-height, 0).
struct StripesField {
    double height;
    double pitch;

    void distances(int y, float* row, int width) const;
};

/// Points in a square grid: the centres of discs of `radius` whose first touches both axes.
struct DotsField {
    double pitch;
    double radius;

    void distances(int y, float* row, int width) const;
};

/// Sine waves of amplitude 10, length 40 and pitch 20 points, the first about y = 20. The distance
/// is taken along y and turned by the slope, which is exact for the lines that the waves are made
/// of.
class WavesField {
  public:
    WavesField(QSize size, double scale);

    void distances(int y, float* row, int width) const;

  private:
    double pitch_;
    double last_;
    std::vector<float> offsets_;  // of each pixel column's wave, along y
    std::vector<float> cosines_;  // of its slope
};

/// Turns distances into the coverage of lines `thickness` pixels wide, in place of `coverage`.
void coverAround(const float* distances, std::uint8_t* coverage, int count, double thickness);

/// The antialiased coverage of a field's lines over a bitmap of `size`.
template <typename Field>
Mask maskAround(const Field& field, QSize size, double thickness) {
    Mask mask(QRect(QPoint(0, 0), size));
    parallelBands(size.height(), 16, [&](int first, int last) {
        std::vector<float> row(static_cast<std::size_t>(size.width()));
        for (int y = first; y < last; ++y) {
            field.distances(y, row.data(), size.width());
            coverAround(row.data(), mask.row(y), size.width(), thickness);
        }
    });
    return mask;
}

}  // namespace kestrio
