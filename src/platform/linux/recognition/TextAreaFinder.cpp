#include "platform/linux/recognition/TextAreaFinder.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kestrio {

namespace {

constexpr int sideStep = 32;              // the model halves its input five times
constexpr float coreProbability = 0.3F;   // a pixel from which on is text
constexpr double areaProbability = 0.55;  // the mean from which on an area is
constexpr double growth = 1.6;            // how much larger a line is than its core
constexpr int smallestSide = 3;           // pixels of the searched copy

int roundedSide(double side) {
    return std::max(sideStep, static_cast<int>(std::lround(side / sideStep)) * sideStep);
}

/// The picture's colours as the model was trained on them: blue first, each with its own mean and
/// deviation.
Tensor modelInput(const QImage& picture) {
    constexpr std::array<float, 3> mean = {0.485F, 0.456F, 0.406F};
    constexpr std::array<float, 3> deviation = {0.229F, 0.224F, 0.225F};
    const auto pixels =
        static_cast<size_t>(picture.width()) * static_cast<size_t>(picture.height());
    Tensor input{{1, 3, picture.height(), picture.width()}, std::vector<float>(3 * pixels)};
    size_t at = 0;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x, ++at) {
            const int white = 255 - qAlpha(row[x]);
            const std::array<int, 3> channels = {qBlue(row[x]), qGreen(row[x]), qRed(row[x])};
            for (size_t channel = 0; channel < 3; ++channel) {
                const float value = static_cast<float>(channels[channel] + white) / 255.0F;
                input.values[channel * pixels + at] = (value - mean[channel]) / deviation[channel];
            }
        }
    }
    return input;
}

/// Pixels that hang together.
struct Island {
    int left, top, right, bottom;  // inclusive
    double probability = 0;        // summed
    int pixels = 0;

    void add(int x, int y, float value) {
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
        probability += value;
        ++pixels;
    }
};

std::vector<Island> islands(const std::vector<float>& map, int width, int height) {
    std::vector<Island> found;
    std::vector<char> isSeen(map.size(), 0);
    std::vector<int> open;
    for (int start = 0; start < width * height; ++start) {
        if (isSeen[static_cast<size_t>(start)] || map[static_cast<size_t>(start)] < coreProbability)
            continue;
        Island island{start % width, start / width, start % width, start / width};
        isSeen[static_cast<size_t>(start)] = 1;
        open.assign(1, start);
        while (!open.empty()) {
            const int at = open.back();
            open.pop_back();
            const int x = at % width;
            const int y = at / width;
            island.add(x, y, map[static_cast<size_t>(at)]);
            for (int ny = std::max(0, y - 1); ny <= std::min(height - 1, y + 1); ++ny) {
                for (int nx = std::max(0, x - 1); nx <= std::min(width - 1, x + 1); ++nx) {
                    const auto next = static_cast<size_t>(ny * width + nx);
                    if (isSeen[next] || map[next] < coreProbability) continue;
                    isSeen[next] = 1;
                    open.push_back(static_cast<int>(next));
                }
            }
        }
        found.push_back(island);
    }
    return found;
}

/// The line of which this is the core, in pixels of the map.
QRectF grown(const Island& island) {
    const double width = island.right - island.left + 1;
    const double height = island.bottom - island.top + 1;
    const double margin = width * height * growth / (2 * (width + height));
    return QRectF(island.left, island.top, width, height)
        .adjusted(-margin, -margin, margin, margin);
}

}  // namespace

std::vector<QRect> TextAreaFinder::find(const QImage& picture, QRect area, double scale,
                                        std::stop_token stop) const {
    const QSize size(roundedSide(area.width() * scale), roundedSide(area.height() * scale));
    const QImage part = area == picture.rect() ? picture : picture.copy(area);
    const QImage copy = part.size() == size
                            ? part
                            : part.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                                  .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const Tensor map = model_->run(modelInput(copy), std::move(stop));
    const double across = static_cast<double>(area.width()) / size.width();
    const double down = static_cast<double>(area.height()) / size.height();
    std::vector<QRect> found;
    for (const Island& island : islands(map.values, size.width(), size.height())) {
        if (island.probability < areaProbability * island.pixels) continue;
        if (std::min(island.right - island.left, island.bottom - island.top) + 1 < smallestSide)
            continue;
        const QRectF line = grown(island);
        const QRect placed = QRectF(area.x() + line.x() * across, area.y() + line.y() * down,
                                    line.width() * across, line.height() * down)
                                 .toAlignedRect();
        found.push_back(placed.intersected(area));
    }
    return found;
}

}  // namespace kestrio
