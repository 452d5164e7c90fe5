#pragma once

#include "core/JsonCodecs.h"
#include "core/JsonReader.h"
#include "core/JsonRecord.h"

#include <QByteArray>

namespace kestrio {

/// Parses UTF-8 text. Throws JsonError with the line and column of a fault.
JsonValue parseJson(const QByteArray& text);

/// UTF-8 text; `indent` spaces a level, or one line where it is negative.
QByteArray jsonText(const JsonValue& value, int indent = -1);

/// Parses and decodes a whole document. Throws JsonError.
template <typename T>
T decodeJsonText(const QByteArray& text) {
    const JsonValue document = parseJson(text);
    return decodeJson<T>(JsonReader(document));
}

/// Encodes a whole document on one line. Throws JsonError.
template <typename T>
QByteArray encodeJsonText(const T& value) {
    return jsonText(encodeJson(value));
}

}  // namespace kestrio
