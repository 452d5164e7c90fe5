#include "render/backdrop/LinearGradient.h"

#include "core/Clamp.h"
#include "core/Parallel.h"
#include "core/Simd.h"

#include <QRgb>
#include <algorithm>
#include <cmath>

namespace kestrio {

namespace {

// Fine enough that neighbouring entries differ by less than a sixteenth of a level.
constexpr int entryCount = 4096;

QRgb colourAt(const std::vector<CodableColor>& colors, double place) {
    const auto last = static_cast<double>(colors.size() - 1);
    const double stop = clampedOr(place, 0, 1) * last;
    const auto index =
        static_cast<std::size_t>(std::min(std::floor(stop), std::max(last - 1, 0.0)));
    const double share = stop - static_cast<double>(index);
    const CodableColor& from = colors[index];
    const CodableColor& to = colors[std::min(index + 1, colors.size() - 1)];
    const auto level = [&](double CodableColor::*member) {
        const double first = clampedOr(from.*member, 0, 1) * clampedOr(from.alpha, 0, 1);
        const double second = clampedOr(to.*member, 0, 1) * clampedOr(to.alpha, 0, 1);
        return static_cast<int>(std::lround((first + (second - first) * share) * 255));
    };
    const double firstAlpha = clampedOr(from.alpha, 0, 1);
    const double secondAlpha = clampedOr(to.alpha, 0, 1);
    const int alpha =
        static_cast<int>(std::lround((firstAlpha + (secondAlpha - firstAlpha) * share) * 255));
    return qRgba(std::min(level(&CodableColor::red), alpha),
                 std::min(level(&CodableColor::green), alpha),
                 std::min(level(&CodableColor::blue), alpha), alpha);
}

std::vector<QRgb> makeEntries(const std::vector<CodableColor>& colors) {
    std::vector<QRgb> entries(entryCount);
    for (int i = 0; i < entryCount; ++i) {
        entries[i] = colourAt(colors, static_cast<double>(i) / (entryCount - 1));
    }
    return entries;
}

KESTRIO_SIMD void fillRow(QRgb* row, int width, float first, float step, const QRgb* entries) {
    for (int x = 0; x < width; ++x) {
        const float place = first + step * static_cast<float>(x);
        const float inside = std::min(std::max(place, 0.0f), static_cast<float>(entryCount - 1));
        row[x] = entries[static_cast<int>(inside + 0.5f)];
    }
}

}  // namespace

void fillLinearGradient(QImage& bitmap, const LinearGradient& gradient) {
    const QPointF axis = gradient.end - gradient.start;
    const double squared = QPointF::dotProduct(axis, axis);
    if (gradient.colors.empty() || !(squared > 0)) return;
    const std::vector<QRgb> entries = makeEntries(gradient.colors);
    const QPointF step = axis / squared * (entryCount - 1);
    const QPointF centre = QPointF(0.5, 0.5) - gradient.start;
    const int width = bitmap.width();
    const qsizetype stride = bitmap.bytesPerLine();
    uchar* const bits = bitmap.bits();

    parallelBands(bitmap.height(), 16, [&](int first, int last) {
        for (int y = first; y < last; ++y) {
            auto* row = reinterpret_cast<QRgb*>(bits + y * stride);
            const double place = centre.x() * step.x() + (centre.y() + y) * step.y();
            if (step.x() == 0) {
                const double inside = std::clamp(place, 0.0, entryCount - 1.0);
                std::fill_n(row, width, entries[static_cast<int>(inside + 0.5)]);
            } else {
                fillRow(row, width, static_cast<float>(place), static_cast<float>(step.x()),
                        entries.data());
            }
        }
    });
}

}  // namespace kestrio
