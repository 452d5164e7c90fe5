#include "annotation/blur/RenderGroup.h"

#include "core/Clamp.h"

#include <map>

namespace kestrio {

namespace {

// A Gaussian of some 2500 points: a picture under it is flat to the eye.
constexpr double greatestIntensity = 100;

double usableIntensity(double intensity) {
    return clampedOr(intensity, 0, greatestIntensity);
}

}  // namespace

double blurAmount(BlurType type, double intensity) {
    const double i = usableIntensity(intensity);
    switch (type) {
        case BlurType::gaussian:
            return i * 25 + 5;
        case BlurType::pixelate:
            return i * 28 + 4;
        case BlurType::solid:
            break;
    }
    return std::min(i, 1.0) * 0.3 + 0.7;
}

RenderGroupKey renderGroupKey(const BlurAnnotation& annotation) {
    const double scaled = annotation.blurType == BlurType::solid
                              ? usableIntensity(annotation.intensity) * 100
                              : blurAmount(annotation.blurType, annotation.intensity) * 10;
    return {annotation.blurType, static_cast<int>(scaled)};
}

std::vector<RenderGroup> renderGroups(const std::vector<BlurAnnotation>& annotations) {
    std::map<RenderGroupKey, RenderGroup> byKey;
    for (const BlurAnnotation& annotation : annotations) {
        const RenderGroupKey key = renderGroupKey(annotation);
        const double amount = blurAmount(annotation.blurType, annotation.intensity);
        const auto [place, isNew] = byKey.try_emplace(key, RenderGroup{key, amount, {}});
        place->second.bounds.push_back(annotation.bounds);
    }
    std::vector<RenderGroup> groups;
    for (auto& [key, group] : byKey)
        groups.push_back(std::move(group));
    return groups;
}

}  // namespace kestrio
