#include "platform/linux/recognition/InkPlane.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace kestrio {

namespace {

constexpr size_t channelCount = 4;  // red, green, blue, and their luma
constexpr size_t luma = 3;

std::array<int, channelCount> channelsOf(QRgb pixel) {
    const int white = 255 - qAlpha(pixel);  // pixels are premultiplied
    const int red = qRed(pixel) + white;
    const int green = qGreen(pixel) + white;
    const int blue = qBlue(pixel) + white;
    return {red, green, blue, (red * 77 + green * 150 + blue * 29) >> 8};
}

/// The pixels round an area.
std::vector<QRgb> edgeOf(const QImage& picture, QRect area) {
    std::vector<QRgb> edge;
    for (const int y : {area.top(), area.bottom()}) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        edge.insert(edge.end(), row + area.left(), row + area.right() + 1);
    }
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        edge.push_back(row[area.left()]);
        edge.push_back(row[area.right()]);
    }
    return edge;
}

using Channels = std::array<int, channelCount>;

/// The middle value of each channel at the edge: the ground, where most of the edge is ground.
Channels groundOf(const std::vector<QRgb>& edge) {
    Channels ground{};
    std::vector<int> values(edge.size());
    for (size_t channel = 0; channel < channelCount; ++channel) {
        std::transform(edge.begin(), edge.end(), values.begin(),
                       [channel](QRgb pixel) { return channelsOf(pixel)[channel]; });
        const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
        std::nth_element(values.begin(), middle, values.end());
        ground[channel] = *middle;
    }
    return ground;
}

int distance(const Channels& a, const Channels& b) {
    return std::max({std::abs(a[0] - b[0]), std::abs(a[1] - b[1]), std::abs(a[2] - b[2])});
}

/// Whether most of the edge has one colour.
bool isPlain(const std::vector<QRgb>& edge, const Channels& ground) {
    constexpr int tolerance = 20;
    const auto same = std::count_if(edge.begin(), edge.end(), [&ground](QRgb pixel) {
        return distance(channelsOf(pixel), ground) <= tolerance;
    });
    return same * 3 > static_cast<std::ptrdiff_t>(edge.size()) * 2;
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

/// Has values take all of 0 to 255.
void stretch(GrayPlane& plane) {
    const auto [lowest, highest] = std::minmax_element(plane.values.begin(), plane.values.end());
    const int low = *lowest;
    const int width = std::max(1, *highest - low);
    for (std::uint8_t& value : plane.values)
        value = static_cast<std::uint8_t>((value - low) * 255 / width);
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
    const auto edge = edgeOf(picture, area);
    const Channels ground = groundOf(edge);
    // Words of several colours are all apart from a plain ground; of another, brightness is left.
    const bool hasPlainGround = isPlain(edge, ground);
    const auto valueOf = [&](QRgb pixel) {
        const Channels channels = channelsOf(pixel);
        return hasPlainGround ? 255 - distance(channels, ground) : channels[luma];
    };
    GrayPlane plane{area.width(), area.height(), {}};
    plane.values.reserve(static_cast<size_t>(area.width()) * static_cast<size_t>(area.height()));
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = area.left(); x <= area.right(); ++x)
            plane.values.push_back(static_cast<std::uint8_t>(valueOf(row[x])));
    }
    stretch(plane);
    if (!hasPlainGround && isEdgeDark(plane))
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
