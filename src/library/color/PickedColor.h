#pragma once

#include "core/CodableColor.h"
#include "core/Date.h"

#include <QObject>
#include <QUuid>

namespace kestrio {

/// A colour that was picked: four components, each 0 to 1, not premultiplied, in sRGB.
struct PickedColor {
    Q_GADGET
    Q_PROPERTY(QColor swatch READ swatch)

  public:
    QUuid id = {};
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;
    Date timestamp = {};

    bool operator==(const PickedColor&) const = default;

    /// Under a new id, picked now.
    static PickedColor of(const CodableColor& color);

    CodableColor color() const { return {red, green, blue, alpha}; }
    QColor swatch() const { return color().toQColor(); }

    /// True where no component differs by 0.01 or more.
    bool isNear(const PickedColor& other) const;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("id", &PickedColor::id), jsonField("red", &PickedColor::red),
                          jsonField("green", &PickedColor::green),
                          jsonField("blue", &PickedColor::blue),
                          jsonField("alpha", &PickedColor::alpha),
                          jsonField("timestamp", &PickedColor::timestamp));
    }
};

}  // namespace kestrio
