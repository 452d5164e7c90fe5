#include "imaging/filters/FrameSimilarity.h"

#include <cstdlib>

namespace kestrio {

namespace {

constexpr QSize thumbnailSize(64, 64);
constexpr double brightnessRange = 255;

}  // namespace

FrameThumbnail frameThumbnail(const QImage& picture) {
    return {grayCopy(picture, picture.rect(), thumbnailSize), picture.size()};
}

double frameSimilarity(const FrameThumbnail& a, const FrameThumbnail& b) {
    if (a.size != b.size || a.gray.bytes.empty() || b.gray.bytes.empty()) return 0;
    int sum = 0;
    for (std::size_t i = 0; i < a.gray.bytes.size(); ++i)
        sum += std::abs(int(a.gray.bytes[i]) - int(b.gray.bytes[i]));
    return 1 - double(sum) / double(a.gray.bytes.size()) / brightnessRange;
}

double frameSimilarity(const QImage& a, const QImage& b) {
    return frameSimilarity(frameThumbnail(a), frameThumbnail(b));
}

}  // namespace kestrio
