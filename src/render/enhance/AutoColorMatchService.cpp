#include "render/enhance/AutoColorMatchService.h"

#include "imaging/filters/Resample.h"

#include <unordered_map>

namespace kestrio {

namespace {

constexpr QSize sampledSize(100, 100);
constexpr int samplesEachWay = 20;
constexpr double quanta = 8;
constexpr CodableColor grey{0.5, 0.5, 0.5, 1};

struct Bucket {
    CodableColor color;
    int count = 0;
};

int bucketKey(const CodableColor& color) {
    const auto level = [](double channel) { return static_cast<int>(channel * quanta); };
    return level(color.red) << 8 | level(color.green) << 4 | level(color.blue);
}

/// In the order of their first samples.
std::vector<Bucket> bucketsOf(const QImage& bitmap) {
    std::vector<Bucket> buckets;
    std::unordered_map<int, std::size_t> places;
    const int step = std::max(bitmap.width() / samplesEachWay, 1);
    for (int y = 0; y < bitmap.height(); y += step) {
        for (int x = 0; x < bitmap.width(); x += step) {
            const QColor sample = bitmap.pixelColor(x, y);
            if (sample.alpha() == 0) continue;
            const CodableColor color{sample.red() / 255.0, sample.green() / 255.0,
                                     sample.blue() / 255.0, sample.alpha() / 255.0};
            const auto [place, isNew] = places.try_emplace(bucketKey(color), buckets.size());
            if (isNew) buckets.push_back({color});
            ++buckets[place->second].count;
        }
    }
    return buckets;
}

}  // namespace

std::vector<CodableColor> AutoColorMatchService::dominantColors(const Image& image,
                                                                int count) const {
    if (image.isNull()) return {grey};
    std::vector<Bucket> buckets = bucketsOf(scaledTo(image.bitmap(), sampledSize));
    if (buckets.empty()) return {grey};
    std::stable_sort(buckets.begin(), buckets.end(),
                     [](const Bucket& a, const Bucket& b) { return a.count > b.count; });
    std::vector<CodableColor> colors;
    for (const Bucket& bucket : buckets) {
        if (static_cast<int>(colors.size()) >= count) break;
        colors.push_back(bucket.color);
    }
    return colors;
}

CodableColor AutoColorMatchService::softened(const CodableColor& color) const {
    const auto soft = [](double channel) { return channel * 0.7 + 0.15; };
    return {soft(color.red), soft(color.green), soft(color.blue), 1};
}

}  // namespace kestrio
