#pragma once

#include "core/CodableColor.h"

namespace kestrio {

/// A place in a rectangle: (0, 0) is its top left, (1, 1) its bottom right.
struct CodableUnitPoint {
    double x = 0;
    double y = 0;

    bool operator==(const CodableUnitPoint&) const = default;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("x", &CodableUnitPoint::x),
                          jsonField("y", &CodableUnitPoint::y));
    }
};

/// A named linear gradient; its stops are spaced evenly.
struct GradientPreset {
    QString id;
    QString name;  ///< English; views translate it
    std::vector<CodableColor> colors;
    CodableUnitPoint startPoint;
    CodableUnitPoint endPoint;

    bool operator==(const GradientPreset&) const = default;

    /// The built-in gradients in display order, made on first use.
    static const std::vector<GradientPreset>& all();
    /// The first built-in gradient of an exact id, or null.
    static const GradientPreset* find(const QString& id);

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("id", &GradientPreset::id),
                          jsonField("name", &GradientPreset::name),
                          jsonField("colors", &GradientPreset::colors),
                          jsonField("startPoint", &GradientPreset::startPoint),
                          jsonField("endPoint", &GradientPreset::endPoint));
    }
};

/// A run of the built-in gradients under one heading.
struct GradientGroup {
    QString id;
    QString name;
    std::vector<GradientPreset> presets;

    bool operator==(const GradientGroup&) const = default;

    /// Cut from the built-in gradients by position: five each, the last group takes the rest.
    static const std::vector<GradientGroup>& all();

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("id", &GradientGroup::id),
                          jsonField("name", &GradientGroup::name),
                          jsonField("presets", &GradientGroup::presets));
    }
};

}  // namespace kestrio
