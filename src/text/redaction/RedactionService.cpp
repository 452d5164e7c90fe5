#include "text/redaction/RedactionService.h"

#include <algorithm>

namespace kestrio {

namespace {

constexpr double defaultBlurRadius = 15;
constexpr double defaultIntensity = 0.5;
constexpr double opaqueIntensity = 1;  // anything less lets the picture through
constexpr double greatestGap = 2;      // rectangles closer than this become one
constexpr CodableColor noColor{0, 0, 0, 0};

QRectF padded(const QRectF& rect, double padding, QSizeF size) {
    const double x = std::max(rect.left() - padding, 0.0);
    const double y = std::max(rect.top() - padding, 0.0);
    const double right = std::min(rect.right() + padding, size.width());
    const double bottom = std::min(rect.bottom() + padding, size.height());
    return {x, y, std::max(right - x, 0.0), std::max(bottom - y, 0.0)};
}

// Each group stands where its first rectangle stood.
std::vector<QRectF> merged(std::vector<QRectF> rects) {
    std::vector<QRectF> groups;
    while (!rects.empty()) {
        QRectF group = rects.front();
        rects.erase(rects.begin());
        for (bool hasGrown = true; hasGrown;) {
            hasGrown = false;
            std::erase_if(rects, [&](const QRectF& other) {
                const QRectF reach =
                    group.adjusted(-greatestGap, -greatestGap, greatestGap, greatestGap);
                if (!reach.intersects(other)) return false;
                group |= other;
                hasGrown = true;
                return true;
            });
        }
        groups.push_back(group);
    }
    return groups;
}

BlurType blurTypeOf(RedactionKind kind) {
    switch (kind) {
        case RedactionKind::blur:
            return BlurType::gaussian;
        case RedactionKind::pixelate:
            return BlurType::pixelate;
        case RedactionKind::solid:
            break;
    }
    return BlurType::solid;
}

}  // namespace

std::vector<BlurAnnotation> RedactionService::makeAnnotations(
    const RedactionRequest& request) const {
    std::vector<QRectF> rects;
    for (const DetectionResult& detection : request.detections) {
        const QRectF rect = padded(detection.boundingBox, request.padding, request.imageSize);
        if (!rect.isEmpty()) rects.push_back(rect);
    }
    const double intensity =
        request.kind == RedactionKind::solid ? opaqueIntensity : defaultIntensity;
    std::vector<BlurAnnotation> annotations;
    for (const QRectF& rect : merged(std::move(rects))) {
        annotations.push_back({QUuid::createUuid(), rect, defaultBlurRadius, noColor, 0,
                               blurTypeOf(request.kind), intensity});
    }
    return annotations;
}

std::vector<DetectionResult> inPoints(std::vector<DetectionResult> detections, const Image& image) {
    if (image.isNull()) return {};
    const double x = image.pointSize().width() / image.pixelSize().width();
    const double y = image.pointSize().height() / image.pixelSize().height();
    for (DetectionResult& detection : detections) {
        const QRectF& box = detection.boundingBox;
        detection.boundingBox = {box.x() * x, box.y() * y, box.width() * x, box.height() * y};
    }
    return detections;
}

}  // namespace kestrio
