#pragma once

#include "core/JsonReader.h"

#include <QByteArrayView>
#include <optional>

namespace kestrio {

/// The value that a JSON text holds, or nothing where it is not read quickly: it is wrong, or it
/// goes beyond what the quick parser takes (numbers beyond 64 bits, very deep nesting). The slower
/// parser then has the last word and says what is wrong.
std::optional<JsonValue> parseJsonQuickly(QByteArrayView text);

}  // namespace kestrio
