#include "app/instance/InstanceRequest.h"

namespace kestrio {

namespace {

constexpr const char* verbKey = "verb";

// The alternative of this index.
template <std::size_t index = 0>
InstanceRequest decodeVerb(std::size_t wanted, const JsonReader& reader) {
    if constexpr (index + 1 < std::variant_size_v<InstanceRequest>) {
        if (wanted != index) return decodeVerb<index + 1>(wanted, reader);
    }
    return decodeJson<std::variant_alternative_t<index, InstanceRequest>>(reader);
}

}  // namespace

JsonValue JsonCodec<InstanceRequest>::encode(const InstanceRequest& request) {
    JsonValue object = JsonValue::object();
    object[verbKey] = encodeJson(static_cast<InstanceVerb>(request.index()));
    const JsonValue fields = std::visit([](const auto& verb) { return encodeJson(verb); }, request);
    for (const auto& [key, value] : fields.items())
        object[key] = value;
    return object;
}

InstanceRequest JsonCodec<InstanceRequest>::decode(const JsonReader& reader) {
    const auto verb = decodeJson<InstanceVerb>(reader.at(verbKey));
    return decodeVerb(static_cast<std::size_t>(verb), reader);
}

QString faultOf(const InstanceRequest& request) {
    return std::visit([](const auto& verb) { return faultOf(verb); }, request);
}

}  // namespace kestrio
