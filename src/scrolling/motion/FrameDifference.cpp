#include "scrolling/motion/FrameDifference.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>

namespace kestrio {

namespace {

constexpr int rowsOfFullComparison = 48;
constexpr double keptShareOfRows = 0.75;

struct DifferenceSum {
    int sum = 0;
    int count = 0;
};

DifferenceSum rowDifference(const std::uint8_t* a, const std::uint8_t* b, int width, int step,
                            int mostSamples) {
    DifferenceSum difference;
    for (int x = 0; x < width && difference.count < mostSamples; x += step, ++difference.count)
        difference.sum += std::abs(int(a[x]) - int(b[x]));
    return difference;
}

}  // namespace

double meanFrameDifference(const GrayFrame& a, const GrayFrame& b, int offset, int sampledColumns) {
    const int rows = std::min(a.height(), b.height()) - offset;
    if (rows < 1) return greatestDifference;
    const int rowStep = std::max(rows / rowsOfFullComparison, 1);
    const int columnStep = std::max(a.width() / std::max(sampledColumns, 1), 1);
    const int width = std::min(a.width(), b.width());
    double sum = 0;
    int count = 0;
    for (int y = 0; y < rows; y += rowStep) {
        const DifferenceSum row =
            rowDifference(a.row(y + offset), b.row(y), width, columnStep, width);
        sum += row.sum;
        count += row.count;
    }
    return count > 0 ? sum / count : greatestDifference;
}

double trimmedRowDifference(const GrayFrame& a, const GrayFrame& b, int offset,
                            RowSampling sampling) {
    const int rows = std::min(a.height(), b.height()) - offset;
    if (rows < 1) return greatestDifference;
    const int count = std::min(rows, std::max(sampling.rows, 1));
    const int columnStep = std::max(a.width() / std::max(sampling.columns, 1), 1);
    const int width = std::min(a.width(), b.width());
    std::vector<double> means;
    means.reserve(count);
    for (int k = 1; k <= count; ++k) {
        const int y = static_cast<int>(std::int64_t(k) * rows / (count + 1));
        const DifferenceSum row =
            rowDifference(a.row(y + offset), b.row(y), width, columnStep, width / columnStep);
        if (row.count > 0) means.push_back(double(row.sum) / row.count);
    }
    if (means.empty()) return greatestDifference;
    return trimmedMean(std::move(means), keptShareOfRows);
}

double trimmedMean(std::vector<double> values, double share) {
    const auto kept = std::max(
        static_cast<std::ptrdiff_t>(std::floor(double(values.size()) * share)), std::ptrdiff_t(1));
    std::ranges::sort(values);
    return std::accumulate(values.begin(), values.begin() + kept, 0.0) / double(kept);
}

}  // namespace kestrio
