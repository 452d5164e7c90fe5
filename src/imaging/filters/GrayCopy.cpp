#include "imaging/filters/GrayCopy.h"

#include <algorithm>
#include <cmath>

#include "core/Parallel.h"
#include "core/Simd.h"

namespace kestrio {

namespace {

constexpr int minimumRows = 32;

constexpr std::uint32_t redWeight = 77, greenWeight = 150, blueWeight = 29;  // 256 together
constexpr std::uint32_t redAndBlueBits = 0xff00ff;

// One product weighs red and blue: their sum is in its upper half, and what lies below never
// carries.
KESTRIO_SIMD void grayRow(const std::uint32_t* __restrict pixels, std::uint8_t* __restrict gray,
                          int count) {
    constexpr std::uint32_t redAndBlueWeights = blueWeight << 16 | redWeight;
    for (int x = 0; x < count; ++x) {
        const std::uint32_t pixel = pixels[x];
        const std::uint32_t redAndBlue = (pixel & redAndBlueBits) * redAndBlueWeights >> 16;
        const std::uint32_t sum = redAndBlue + (pixel >> 8 & 255u) * greenWeight;
        gray[x] = static_cast<std::uint8_t>((sum + 128) >> 8);
    }
}

KESTRIO_SIMD void addWeightedRow(const std::uint8_t* __restrict gray, float weight,
                                 float* __restrict sums, int count) {
    for (int x = 0; x < count; ++x)
        sums[x] += weight * static_cast<float>(static_cast<std::int32_t>(gray[x]));
}

// What one target pixel covers of the source along an axis.
struct Cover {
    int first = 0;
    int count = 0;
    float firstWeight = 0;
    float lastWeight = 0;

    float weight(int index) const {
        if (index == 0) return firstWeight;
        return index == count - 1 ? lastWeight : 1.0f;
    }
};

std::vector<Cover> covers(int sourceCount, int targetCount) {
    std::vector<Cover> all(targetCount);
    const double step = double(sourceCount) / targetCount;
    for (int i = 0; i < targetCount; ++i) {
        const double from = i * step;
        const double to = std::min((i + 1) * step, double(sourceCount));
        Cover& cover = all[i];
        cover.first = std::min(static_cast<int>(from), sourceCount - 1);
        const int end = std::clamp(static_cast<int>(std::ceil(to)), cover.first + 1, sourceCount);
        cover.count = end - cover.first;
        const double firstEnd = std::min(to, cover.first + 1.0);
        cover.firstWeight = static_cast<float>(firstEnd - from);
        cover.lastWeight = static_cast<float>(to - (end - 1));
    }
    return all;
}

const std::uint32_t* sourceRow(const QImage& picture, QRect source, int y) {
    return reinterpret_cast<const std::uint32_t*>(picture.constScanLine(source.y() + y)) +
           source.x();
}

// The float sums run from left to right, so that results do not depend on how this is written.
void sumColumns(const std::vector<float>& sums, const std::vector<Cover>& columns, float area,
                std::uint8_t* gray) {
    for (std::size_t x = 0; x < columns.size(); ++x) {
        const Cover& cover = columns[x];
        const float* first = sums.data() + cover.first;
        const float* last = first + cover.count - 1;
        float sum = cover.firstWeight * *first;
        if (last > first) {
            for (const float* inner = first + 1; inner < last; ++inner)
                sum += *inner;
            sum += cover.lastWeight * *last;
        }
        gray[x] = static_cast<std::uint8_t>(std::min(sum / area + 0.5f, 255.0f));
    }
}

void scaleBand(const QImage& picture, QRect source, GrayPixels& copy, int first, int last) {
    const std::vector<Cover> columns = covers(source.width(), copy.width);
    const std::vector<Cover> rows = covers(source.height(), copy.height);
    const float area =
        static_cast<float>(double(source.width()) / copy.width * source.height() / copy.height);
    std::vector<std::uint8_t> gray(source.width());
    std::vector<float> sums(source.width());
    int converted = -1;  // neighbouring targets share the source row at their border
    for (int y = first; y < last; ++y) {
        std::ranges::fill(sums, 0.0f);
        for (int i = 0; i < rows[y].count; ++i) {
            const int row = rows[y].first + i;
            if (row != converted)
                grayRow(sourceRow(picture, source, row), gray.data(), source.width());
            converted = row;
            addWeightedRow(gray.data(), rows[y].weight(i), sums.data(), source.width());
        }
        sumColumns(sums, columns, area, copy.bytes.data() + std::size_t(y) * copy.width);
    }
}

}  // namespace

GrayPixels grayCopy(const QImage& picture, QRect source, QSize size) {
    if (size.isEmpty() || source.isEmpty() || !picture.rect().contains(source)) return {};
    GrayPixels copy{size.width(), size.height(), {}};
    copy.bytes.resize(std::size_t(size.width()) * size.height());
    const bool scales = size != source.size();
    parallelBands(size.height(), minimumRows, [&](int first, int last) {
        if (scales) return scaleBand(picture, source, copy, first, last);
        for (int y = first; y < last; ++y)
            grayRow(sourceRow(picture, source, y), copy.bytes.data() + std::size_t(y) * copy.width,
                    copy.width);
    });
    return copy;
}

}  // namespace kestrio
