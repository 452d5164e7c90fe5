#include "library/color/PickedColor.h"

namespace kestrio {

PickedColor PickedColor::of(const CodableColor& color) {
    return {QUuid::createUuid(), color.red, color.green, color.blue, color.alpha, Date::now()};
}

bool PickedColor::isNear(const PickedColor& other) const {
    const auto isSame = [](double a, double b) { return std::abs(a - b) < 0.01; };
    return isSame(red, other.red) && isSame(green, other.green) && isSame(blue, other.blue) &&
           isSame(alpha, other.alpha);
}

}  // namespace kestrio
