#include "platform/linux/recognition/InkPlane.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace kestrio {

namespace {

constexpr int channelCount = 4;  // red, green, blue, and their luma

std::array<int, channelCount> channelsOf(QRgb pixel) {
    const int white = 255 - qAlpha(pixel);  // pixels are premultiplied
    const int red = qRed(pixel) + white;
    const int green = qGreen(pixel) + white;
    const int blue = qBlue(pixel) + white;
    return {red, green, blue, (red * 77 + green * 150 + blue * 29) >> 8};
}

struct Range {
    int low = 255;
    int high = 0;
    int width() const { return high - low; }
};

/// The channel that differs most between ink and ground; luma where others are hardly better.
int channelOfMostContrast(const std::array<Range, channelCount>& ranges) {
    constexpr int luma = 3;
    constexpr int advantage = 24;
    int best = luma;
    int bestWidth = ranges[luma].width() + advantage;
    for (int channel = 0; channel < luma; ++channel) {
        const int width = ranges[static_cast<size_t>(channel)].width();
        if (width > bestWidth) {
            best = channel;
            bestWidth = width;
        }
    }
    return best;
}

/// Whether the frame of one pixel round the plane is rather dark.
bool isEdgeDark(const GrayPlane& plane) {
    std::int64_t sum = 0;
    for (const int y : {0, plane.height - 1})
        sum = std::accumulate(plane.row(y), plane.row(y) + plane.width, sum);
    for (int y = 0; y < plane.height; ++y)
        sum += plane.row(y)[0] + plane.row(y)[plane.width - 1];
    return sum < 127LL * 2 * (plane.width + plane.height);
}

/// The pixels of one axis that make a pixel of the result, and their weights.
struct Contribution {
    int first = 0;
    std::vector<float> weights;
};

std::vector<Contribution> contributions(double start, double length, int count, int limit) {
    std::vector<Contribution> all;
    const double step = length / count;
    const double radius = std::max(step, 1.0);
    for (int index = 0; index < count; ++index) {
        const double center = start + (index + 0.5) * step - 0.5;
        const int first = static_cast<int>(std::ceil(center - radius));
        const int last = static_cast<int>(std::floor(center + radius));
        Contribution one{std::clamp(first, 0, limit - 1), {}};
        one.weights.assign(static_cast<size_t>(std::clamp(last, 0, limit - 1) - one.first) + 1,
                           0.0F);
        for (int at = first; at <= last; ++at) {
            const double weight = 1 - std::abs(at - center) / radius;
            const int inside = std::clamp(at, 0, limit - 1) - one.first;
            one.weights[static_cast<size_t>(inside)] += static_cast<float>(weight);
        }
        const float sum = std::accumulate(one.weights.begin(), one.weights.end(), 0.0F);
        for (float& weight : one.weights)
            weight /= sum;
        all.push_back(std::move(one));
    }
    return all;
}

/// The columns of one row of the plane.
void resampleRow(const std::uint8_t* source, const std::vector<Contribution>& columns,
                 float* target) {
    for (const Contribution& column : columns) {
        float sum = 0;
        for (size_t index = 0; index < column.weights.size(); ++index)
            sum += column.weights[index] * source[static_cast<size_t>(column.first) + index];
        *target++ = sum;
    }
}

}  // namespace

GrayPlane inkOf(const QImage& picture, QRect area) {
    std::array<Range, channelCount> ranges;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = area.left(); x <= area.right(); ++x) {
            const auto channels = channelsOf(row[x]);
            for (size_t channel = 0; channel < channelCount; ++channel) {
                ranges[channel].low = std::min(ranges[channel].low, channels[channel]);
                ranges[channel].high = std::max(ranges[channel].high, channels[channel]);
            }
        }
    }
    const auto channel = static_cast<size_t>(channelOfMostContrast(ranges));
    const int low = ranges[channel].low;
    const int width = std::max(1, ranges[channel].width());
    GrayPlane plane{area.width(), area.height(), {}};
    plane.values.reserve(static_cast<size_t>(area.width()) * static_cast<size_t>(area.height()));
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = area.left(); x <= area.right(); ++x)
            plane.values.push_back(
                static_cast<std::uint8_t>((channelsOf(row[x])[channel] - low) * 255 / width));
    }
    if (isEdgeDark(plane))
        for (std::uint8_t& value : plane.values)
            value = static_cast<std::uint8_t>(255 - value);
    return plane;
}

GrayPlane resampled(const GrayPlane& plane, QRectF area, QSize size) {
    const auto columns = contributions(area.x(), area.width(), size.width(), plane.width);
    const auto rows = contributions(area.y(), area.height(), size.height(), plane.height);
    const auto width = static_cast<size_t>(size.width());
    const int first = rows.front().first;
    const int last = rows.back().first + static_cast<int>(rows.back().weights.size());
    std::vector<float> narrowed(static_cast<size_t>(last - first) * width);
    for (int y = first; y < last; ++y)
        resampleRow(plane.row(y), columns,
                    narrowed.data() + static_cast<size_t>(y - first) * width);
    GrayPlane result{size.width(), size.height(), {}};
    result.values.reserve(width * static_cast<size_t>(size.height()));
    std::vector<float> sums(width);
    for (const Contribution& row : rows) {
        std::fill(sums.begin(), sums.end(), 0.5F);
        for (size_t index = 0; index < row.weights.size(); ++index) {
            const float* source =
                narrowed.data() + (static_cast<size_t>(row.first - first) + index) * width;
            for (size_t x = 0; x < width; ++x)
                sums[x] += row.weights[index] * source[x];
        }
        for (const float sum : sums)
            result.values.push_back(static_cast<std::uint8_t>(sum));
    }
    return result;
}

}  // namespace kestrio
