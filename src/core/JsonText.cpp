#include "core/JsonText.h"

#include <simdjson.h>

namespace kestrio {

namespace {

JsonValue valueOf(const simdjson::dom::element& element);

JsonValue arrayOf(const simdjson::dom::array& array) {
    JsonValue::array_t values;
    values.reserve(array.size());
    for (const simdjson::dom::element element : array)
        values.push_back(valueOf(element));
    return values;
}

JsonValue objectOf(const simdjson::dom::object& object) {
    JsonValue::object_t members;
    for (const simdjson::dom::key_value_pair member : object)
        members[std::string(member.key)] = valueOf(member.value);
    return members;
}

JsonValue valueOf(const simdjson::dom::element& element) {
    using Type = simdjson::dom::element_type;
    switch (element.type()) {
        case Type::ARRAY:
            return arrayOf(simdjson::dom::array(element));
        case Type::OBJECT:
            return objectOf(simdjson::dom::object(element));
        case Type::STRING:
            return std::string(std::string_view(element));
        case Type::DOUBLE:
            return double(element);
        case Type::UINT64:
            return std::uint64_t(element);
        case Type::BOOL:
            return bool(element);
        case Type::INT64: {
            // Not negative is unsigned, as in the slower parser.
            const auto number = std::int64_t(element);
            if (number < 0) return number;
            return static_cast<std::uint64_t>(number);
        }
        case Type::NULL_VALUE:
            break;
    }
    return nullptr;
}

}  // namespace

std::optional<JsonValue> parseJsonQuickly(QByteArrayView text) {
    if (text.isEmpty()) return std::nullopt;
    simdjson::dom::parser parser;
    simdjson::dom::element document;
    if (parser.parse(text.data(), static_cast<std::size_t>(text.size())).get(document)) {
        return std::nullopt;
    }
    return valueOf(document);
}

}  // namespace kestrio
