#include "platform/ScreenStream.h"

#include "core/Localisation.h"

namespace kestrio {

QString ScreenStreamError::errorDescription() const {
    switch (which_) {
        case Case::noDisplay:
            return Kestrio::tr("No display available for scrolling capture");
        case Case::severalDisplays:
            return Kestrio::tr("Manual scrolling capture region must stay within one display");
        case Case::stopped:
            return reason_;
    }
    return {};
}

Display displayForStream(const std::vector<Display>& displays, QRectF region) {
    using Case = ScreenStreamError::Case;
    if (displays.empty()) throw ScreenStreamError(Case::noDisplay);
    const Display* found = findDisplay(displays, region.center());
    if (!found) found = &displays.front();
    // What sums of fractions lose is no other display.
    constexpr double slack = 1e-3;
    if (!found->bounds.adjusted(-slack, -slack, slack, slack).contains(region))
        throw ScreenStreamError(Case::severalDisplays);
    return *found;
}

}  // namespace kestrio
