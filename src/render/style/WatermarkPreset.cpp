#include "render/style/WatermarkPreset.h"

#include <bit>
#include <cmath>

namespace kestrio {

namespace {

struct StoredPreset {
    QUuid id;
    QString name;
    WatermarkSettings settings;
    Date createdAt;
    std::optional<quint64> createdAtBitPattern;

    static constexpr auto jsonFields() {
        return std::tuple(jsonField("id", &StoredPreset::id),
                          jsonField("name", &StoredPreset::name),
                          jsonField("settings", &StoredPreset::settings),
                          jsonField("createdAt", &StoredPreset::createdAt),
                          jsonField("createdAtBitPattern", &StoredPreset::createdAtBitPattern));
    }
};

}  // namespace

JsonValue JsonCodec<WatermarkPreset>::encode(const WatermarkPreset& preset) {
    return encodeJson(StoredPreset{preset.id, preset.name, preset.settings, preset.createdAt,
                                   std::bit_cast<quint64>(preset.createdAt.sinceReference)});
}

WatermarkPreset JsonCodec<WatermarkPreset>::decode(const JsonReader& reader) {
    const auto stored = decodeJson<StoredPreset>(reader);
    Date createdAt = stored.createdAt;
    if (stored.createdAtBitPattern) {
        const auto exact = std::bit_cast<double>(*stored.createdAtBitPattern);
        // Bits that are no moment could never be written again.
        if (std::isfinite(exact)) createdAt.sinceReference = exact;
    }
    return {stored.id, stored.name, stored.settings, createdAt};
}

}  // namespace kestrio
