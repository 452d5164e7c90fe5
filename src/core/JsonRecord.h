#pragma once

#include "core/JsonCodecs.h"

#include <optional>
#include <tuple>

namespace kestrio {

/// What a key that is missing, or holds something unreadable, means.
enum class JsonFieldRule {
    required,   ///< both are errors, except that a std::optional may be missing
    missable,   ///< a missing one keeps what the record starts with, an unreadable one is an error
    defaulted,  ///< both keep what the record starts with
};

/// One key of a record. A member of type std::optional is left out when absent and may be missing;
/// every other one is required.
template <typename Record, typename T>
struct JsonField {
    const char* key;
    T Record::*member;
    JsonFieldRule rule = JsonFieldRule::required;
};

template <typename Record, typename T>
constexpr JsonField<Record, T> jsonField(const char* key, T Record::*member) {
    return {key, member};
}

/// A key that may be missing but not unreadable: for what others ask, where a guess would be wrong.
template <typename Record, typename T>
constexpr JsonField<Record, T> missableField(const char* key, T Record::*member) {
    return {key, member, JsonFieldRule::missable};
}

/// A key that may be missing or unreadable: the member then keeps what the record starts with.
template <typename Record, typename T>
constexpr JsonField<Record, T> defaultedField(const char* key, T Record::*member) {
    return {key, member, JsonFieldRule::defaulted};
}

/// A record declares its keys once, in their order:
/// `static constexpr auto jsonFields() { return std::tuple(jsonField("x", &Point::x), ...); }`
template <typename T>
concept JsonRecord = requires {
    T::jsonFields();
};

namespace detail {

template <typename T>
struct OptionalTrait {
    static constexpr bool isOptional = false;
    using Value = T;
};

template <typename T>
struct OptionalTrait<std::optional<T>> {
    static constexpr bool isOptional = true;
    using Value = T;
};

template <typename Record, typename T>
void encodeField(JsonValue& object, const Record& record, const JsonField<Record, T>& field) {
    const T& member = record.*field.member;
    if constexpr (OptionalTrait<T>::isOptional) {
        if (member) object[field.key] = encodeJson(*member);
    } else {
        object[field.key] = encodeJson(member);
    }
}

template <typename Record, typename T>
void decodeField(const JsonReader& reader, Record& record, const JsonField<Record, T>& field) {
    using Value = typename OptionalTrait<T>::Value;
    try {
        if (const auto found = reader.find(field.key)) {
            record.*field.member = decodeJson<Value>(*found);
        } else if (field.rule == JsonFieldRule::required) {
            // An optional that is missing is absent, whatever a fresh record starts with.
            if constexpr (OptionalTrait<T>::isOptional) {
                record.*field.member = std::nullopt;
            } else {
                reader.at(field.key);
            }
        }
    } catch (const JsonError&) {
        if (field.rule != JsonFieldRule::defaulted) throw;
    }
}

}  // namespace detail

template <JsonRecord Record>
struct JsonCodec<Record> {
    static JsonValue encode(const Record& record) {
        JsonValue object = JsonValue::object();
        std::apply([&](const auto&... field) { (detail::encodeField(object, record, field), ...); },
                   Record::jsonFields());
        return object;
    }

    static Record decode(const JsonReader& reader) {
        if (!reader.value().is_object()) reader.fail(Kestrio::tr("expected an object"));
        Record record{};
        std::apply([&](const auto&... field) { (detail::decodeField(reader, record, field), ...); },
                   Record::jsonFields());
        return record;
    }
};

}  // namespace kestrio
