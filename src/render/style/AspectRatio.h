#pragma once

#include "core/Json.h"

namespace kestrio {

/// A named shape of the output, initially the free "Auto".
struct AspectRatio {
    QString name = QStringLiteral("Auto");
    std::optional<double> ratio;  ///< width divided by height; none means free

    bool operator==(const AspectRatio&) const = default;

    /// The general presets, in display order.
    static const std::vector<AspectRatio>& presets();

    /// A ratio of the user's own, named by customRatioLabel(). Width and height must be above 0.
    static AspectRatio custom(double width, double height);

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("name", &AspectRatio::name),
                          jsonField("ratio", &AspectRatio::ratio));
    }
};

/// The shapes that one social platform shows.
struct SocialPlatform {
    QString name;
    std::vector<AspectRatio> presets;

    /// In display order.
    static const std::vector<SocialPlatform>& all();
};

/// As in "1.78:1 (Landscape)", "1:1.25 (Portrait)", "1:1 (Square)".
QString customRatioLabel(double ratio);

/// The smallest canvas of a ratio that holds an image without shrinking it; the image's own size
/// where the ratio is free. Points.
QSizeF canvasHolding(QSizeF imageSize, const AspectRatio& aspectRatio);

}  // namespace kestrio
