#include "platform/linux/x11/WindowGeometry.h"

#include <QMargins>

namespace kestrio {

namespace {

QMargins marginsOf(const std::vector<std::uint32_t>& extents) {
    constexpr std::size_t sides = 4;
    if (extents.size() != sides) return {};
    // Only what a screen can hold is meant; the rest is another program's fault.
    const auto side = [&](std::size_t i) {
        return static_cast<int>(std::min<std::uint32_t>(extents[i], 0x7fff));
    };
    return {side(0), side(2), side(1), side(3)};
}

}  // namespace

QRect visibleRectangle(QRect client, const std::vector<std::uint32_t>& frameExtents,
                       const std::vector<std::uint32_t>& shadowExtents) {
    return client.marginsAdded(marginsOf(frameExtents)).marginsRemoved(marginsOf(shadowExtents));
}

}  // namespace kestrio
