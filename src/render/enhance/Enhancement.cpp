#include "render/enhance/Enhancement.h"

#include "core/Clamp.h"
#include "imaging/filters/ColorAdjust.h"
#include "imaging/filters/Denoise.h"
#include "imaging/filters/Dissolve.h"
#include "imaging/filters/LanczosDoubling.h"
#include "imaging/filters/Sharpen.h"
#include "imaging/filters/ToneAdjust.h"
#include "render/enhance/AIEnhancementError.h"

#include <new>

namespace kestrio {

namespace {

constexpr double automaticVibrance = 0.2;

void denoise(QImage& bitmap, double intensity) {
    const double noiseLevel = intensity * 0.05;
    reduceNoise(bitmap, noiseLevel);
    // What little noise is left must not come back with the edges.
    sharpenLuminance(bitmap, intensity * 2, noiseLevel);
}

void enhanceColors(QImage& bitmap, double intensity) {
    adjustVibrance(bitmap, intensity);
    adjustContrast(bitmap, 1 + intensity * 0.15);
    adjustSaturation(bitmap, 1 + intensity * 0.1);
}

void enhanceAutomatically(QImage& bitmap, double intensity) {
    QImage adjusted = bitmap;
    stretchTones(adjusted, usedTones(adjusted));
    adjustVibrance(adjusted, automaticVibrance);
    dissolve(bitmap, adjusted, intensity);
}

Image filtered(const Image& image, void (*filter)(QImage&, double), double intensity) {
    QImage bitmap = image.bitmap();
    filter(bitmap, intensity);
    return Image(std::move(bitmap), image.pointSize());
}

Image doubled(const Image& image) {
    QImage bitmap = doubledByLanczos(image.bitmap());
    if (bitmap.isNull()) throw AIEnhancementError::processingFailed();
    return Image(std::move(bitmap), image.pointSize() * 2);
}

Image enhancedBy(const Image& image, AIEnhancementMode mode, double intensity) {
    switch (mode) {
        case AIEnhancementMode::automatic:
            return filtered(image, enhanceAutomatically, intensity);
        case AIEnhancementMode::sharpen:
            return filtered(
                image, [](QImage& bitmap, double i) { sharpenLuminance(bitmap, i * 2); },
                intensity);
        case AIEnhancementMode::denoise:
            return filtered(image, denoise, intensity);
        case AIEnhancementMode::enhanceColors:
            return filtered(image, enhanceColors, intensity);
        case AIEnhancementMode::upscale:
            return doubled(image);
    }
    return image;
}

}  // namespace

Image enhanced(const Image& image, AIEnhancementMode mode, double intensity) {
    if (image.isNull()) throw AIEnhancementError::invalidImage();
    const double inRange = clampedOr(intensity, 0, 1);
    if (inRange == 0 && mode != AIEnhancementMode::upscale) return image;
    try {
        return enhancedBy(image, mode, inRange);
    } catch (const std::bad_alloc&) {
        throw AIEnhancementError::processingFailed();
    }
}

}  // namespace kestrio
