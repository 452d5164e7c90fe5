#pragma once

#include "app/instance/verbs/ActivateVerb.h"
#include "app/instance/verbs/CaptureVerb.h"
#include "app/instance/verbs/EditVerb.h"

#include <variant>

namespace kestrio {

enum class InstanceVerb { activate, edit, capture };

inline constexpr EnumTable<InstanceVerb, 3> instanceVerbs = {{
    {InstanceVerb::activate, "activate"},
    {InstanceVerb::edit, "edit"},
    {InstanceVerb::capture, "capture"},
}};
constexpr const auto& enumTable(InstanceVerb) {
    return instanceVerbs;
}

/// What one start of the program asks of the one that runs. In the order of InstanceVerb.
using InstanceRequest = std::variant<ActivateVerb, EditVerb, CaptureVerb>;

static_assert(std::variant_size_v<InstanceRequest> == instanceVerbs.size(),
              "every verb has its row in the table of names");

/// {"verb": a name, and beside it the verb's own fields}; fields of other verbs count for nothing.
template <>
struct JsonCodec<InstanceRequest> {
    static JsonValue encode(const InstanceRequest& request);
    static InstanceRequest decode(const JsonReader& reader);
};

/// Why this request makes no sense, whoever sent it, for users; empty where nothing is wrong. Looks
/// at no disk.
QString faultOf(const InstanceRequest& request);

}  // namespace kestrio
