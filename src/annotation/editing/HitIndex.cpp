#include "annotation/editing/HitIndex.h"

#include "annotation/editing/HitTest.h"
#include "core/Simd.h"

#include <cmath>
#include <limits>

namespace kestrio {

namespace {

constexpr std::size_t blockSize = 64;

struct Boxes {
    const double* left;
    const double* top;
    const double* right;
    const double* bottom;
};

/// Not 0 where one of the boxes holds the point.
KESTRIO_SIMD quint64 holders(const Boxes& boxes, std::size_t count, double x, double y) {
    quint64 found = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const quint64 isAcross = x >= boxes.left[i] && x <= boxes.right[i] ? 1 : 0;
        const quint64 isDown = y >= boxes.top[i] && y <= boxes.bottom[i] ? 1 : 0;
        found |= isAcross & isDown;
    }
    return found;
}

}  // namespace

HitIndex::HitIndex(const std::vector<AnyAnnotation>& annotations) {
    for (auto* side : {&left_, &top_, &right_, &bottom_})
        side->reserve(annotations.size());
    for (const AnyAnnotation& annotation : annotations)
        append(hitBox(annotation));
}

// A side that is too far away for a number is no limit.
void HitIndex::append(const QRectF& box) {
    constexpr double endless = std::numeric_limits<double>::infinity();
    const auto sideOr = [](double side, double other) {
        return std::isfinite(side) ? side : other;
    };
    left_.push_back(sideOr(box.left(), -endless));
    top_.push_back(sideOr(box.top(), -endless));
    right_.push_back(sideOr(box.right(), endless));
    bottom_.push_back(sideOr(box.bottom(), endless));
}

std::optional<std::size_t> HitIndex::lastCandidate(const QPointF& point, std::size_t end) const {
    while (end > 0) {
        const std::size_t begin = (end - 1) / blockSize * blockSize;
        const Boxes boxes = {left_.data() + begin, top_.data() + begin, right_.data() + begin,
                             bottom_.data() + begin};
        if (holders(boxes, end - begin, point.x(), point.y()) != 0) {
            for (std::size_t i = end; i-- > begin;) {
                const Boxes box = {&left_[i], &top_[i], &right_[i], &bottom_[i]};
                if (holders(box, 1, point.x(), point.y()) != 0) return i;
            }
        }
        end = begin;
    }
    return std::nullopt;
}

}  // namespace kestrio
