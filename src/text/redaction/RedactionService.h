#pragma once

#include "annotation/model/BlurAnnotation.h"
#include "text/detection/SensitiveInfoDetector.h"

namespace kestrio {

/// How private data is covered.
enum class RedactionKind { blur, pixelate, solid };

inline constexpr EnumTable<RedactionKind, 3> redactionKinds = {{
    {RedactionKind::blur, "blur", Kestrio::marked("Blur")},
    {RedactionKind::pixelate, "pixelate", Kestrio::marked("Pixelate")},
    {RedactionKind::solid, "solid", Kestrio::marked("Solid")},
}};
constexpr const auto& enumTable(RedactionKind) {
    return redactionKinds;
}

struct RedactionRequest {
    std::vector<DetectionResult> detections;
    QSizeF imageSize;    ///< in the unit of the detections' rectangles
    double padding = 0;  ///< on every side of each, in the same unit
    RedactionKind kind = RedactionKind::blur;
};

/// Turns what was found into marks that cover it.
class RedactionServiceProtocol {
  public:
    virtual ~RedactionServiceProtocol() = default;

    /// Marks of the default strength, in the unit of the detections and within the picture.
    /// Rectangles that nearly touch become one.
    virtual std::vector<BlurAnnotation> makeBlurAnnotations(
        const std::vector<DetectionResult>& detections, QSizeF imageSize, double padding) const = 0;
    /// The same of any kind. Solid ones leave nothing of what they cover; text under the others can
    /// be reconstructed by somebody who tries.
    virtual std::vector<BlurAnnotation> makeAnnotations(const RedactionRequest& request) const = 0;
};

class RedactionService : public RedactionServiceProtocol {
  public:
    std::vector<BlurAnnotation> makeBlurAnnotations(const std::vector<DetectionResult>& detections,
                                                    QSizeF imageSize,
                                                    double padding) const override {
        return makeAnnotations({detections, imageSize, padding, RedactionKind::blur});
    }
    std::vector<BlurAnnotation> makeAnnotations(const RedactionRequest& request) const override;
};

/// The detections with their rectangles in a picture's points instead of its pixels.
std::vector<DetectionResult> inPoints(std::vector<DetectionResult> detections, const Image& image);

}  // namespace kestrio
