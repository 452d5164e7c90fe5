#pragma once

#include "render/style/WatermarkSettings.h"

namespace kestrio {

/// A named watermark.
struct WatermarkPreset {
    QUuid id;
    QString name;
    WatermarkSettings settings;
    Date createdAt;

    bool operator==(const WatermarkPreset&) const = default;
};

/// Beside "createdAt" the JSON holds "createdAtBitPattern", the bits of the same number of seconds,
/// so that no reader's or writer's decimal rounding changes the date. The bits win when present
/// and finite.
template <>
struct JsonCodec<WatermarkPreset> {
    static JsonValue encode(const WatermarkPreset& preset);
    static WatermarkPreset decode(const JsonReader& reader);
};

}  // namespace kestrio
