#include "platform/linux/recognition/LineImage.h"

#include <algorithm>
#include <cmath>

namespace kestrio {

namespace {

constexpr double marginAbove = 0.2;  // of the ink's height, on both sides
constexpr double marginBeside = 0.3;
constexpr double lowestInk = 0.55;  // of the area's height: dashes are not blown up to letters
constexpr int widthStep = 8;        // pixels: one step of the reader

struct Band {
    int first = 0;
    int end = 0;
    int ink = 0;
};

/// Runs of rows with ink; rows apart by no more than dots above letters are one run.
std::vector<Band> bandsOf(const GrayPlane& plane) {
    const int gap = std::max(1, plane.height / 14);
    std::vector<Band> bands;
    for (int y = 0; y < plane.height; ++y) {
        const auto* row = plane.row(y);
        const auto ink = static_cast<int>(
            std::count_if(row, row + plane.width, [](int value) { return value < paleInkLimit; }));
        if (ink == 0) continue;
        if (bands.empty() || y - bands.back().end >= gap)
            bands.push_back({y, y + 1, ink});
        else
            bands.back() = {bands.back().first, y + 1, bands.back().ink + ink};
    }
    return bands;
}

/// The band with the most ink, and what hangs over and under it within the line.
Band mainBand(const std::vector<Band>& bands, int height) {
    if (bands.empty()) return {};
    const auto main = std::max_element(bands.begin(), bands.end(),
                                       [](const Band& a, const Band& b) { return a.ink < b.ink; });
    Band whole = *main;
    for (const Band& band : bands) {
        // What touches the area's edge belongs to a neighbour, unless the main band does too.
        const bool isCut = band.first == 0 || band.end == height;
        const int distance = std::max(band.first - whole.end, whole.first - band.end);
        if (isCut || distance > (main->end - main->first) / 2) continue;
        whole.first = std::min(whole.first, band.first);
        whole.end = std::max(whole.end, band.end);
    }
    return whole;
}

/// The middle of the widest gap in columns [first, end), or its middle where there is no gap.
int cutWithin(const std::vector<bool>& columns, int first, int end) {
    int best = (first + end) / 2;
    int widest = 0;
    for (int x = first; x < end;) {
        int stop = x;
        while (stop < end && !columns[static_cast<size_t>(stop)])
            ++stop;
        if (stop - x > widest) {
            widest = stop - x;
            best = x + widest / 2;
        }
        x = stop + 1;
    }
    return best;
}

}  // namespace

LineImage lineImage(const QImage& picture, QRect area) {
    LineImage line;
    const int beside = std::max(2, area.height() / 4);
    line.area = area.adjusted(-beside, 0, beside, 0).intersected(picture.rect());
    if (line.area.isEmpty()) return line;
    line.ink = inkOf(picture, line.area);
    const Band band = mainBand(bandsOf(line.ink), line.ink.height);
    line.top = band.first;
    line.bottom = band.end;
    const auto columns = inkColumns(line, paleInkLimit);
    const auto first = std::find(columns.begin(), columns.end(), true);
    const auto last = std::find(columns.rbegin(), columns.rend(), true);
    line.left = static_cast<int>(first - columns.begin());
    line.right = static_cast<int>(columns.rend() - last);
    return line;
}

std::vector<bool> inkColumns(const LineImage& line, int limit) {
    std::vector<bool> columns(static_cast<size_t>(line.ink.width), false);
    for (int y = line.top; y < line.bottom; ++y) {
        const auto* row = line.ink.row(y);
        for (int x = 0; x < line.ink.width; ++x)
            if (row[x] < limit) columns[static_cast<size_t>(x)] = true;
    }
    return columns;
}

std::vector<LineStrip> lineStrips(const LineImage& line, const StripShape& shape) {
    const double inkHeight = std::max<double>(line.inkHeight(), lowestInk * line.ink.height);
    const double rows = inkHeight * (1 + 2 * marginAbove);
    const double middle = (line.top + line.bottom) / 2.0;
    const double across = shape.height / rows * shape.stretch;
    const auto columns = inkColumns(line);
    const double margin = inkHeight * marginBeside;
    const int step = std::max(8, static_cast<int>(shape.widest / across));
    std::vector<LineStrip> strips;
    int first = line.left;
    while (first < line.right) {
        int end = line.right;
        if (end - first > step * 5 / 4)
            end = cutWithin(columns, first + step * 3 / 4, first + step);
        // Margins beside a cut would show a part of the neighbouring character.
        double left = first == line.left ? first - margin : first;
        const double right = end == line.right ? end + margin : end;
        const int steps = static_cast<int>(std::ceil((right - left) * across / widthStep));
        const int width = std::max(2 * shape.height, steps * widthStep);
        left -= (width / across - (right - left)) / 2;
        strips.push_back({resampled(line.ink, QRectF(left, middle - rows / 2, width / across, rows),
                                    QSize(width, shape.height)),
                          left, across});
        first = end;
    }
    return strips;
}

}  // namespace kestrio
