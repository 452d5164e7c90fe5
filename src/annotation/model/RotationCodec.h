#pragma once

#include "core/Json.h"

namespace kestrio {

/// A record whose last key, "rotation", came later than the files that hold it: it is always
/// written, and reads as 0 where it is missing. Such a record leaves it out of jsonFields().
template <typename T>
concept LateRotationRecord = JsonRecord<T> && requires(T record) {
    requires T::hasLateRotation;
    record.rotation;
};

template <LateRotationRecord Record>
struct JsonCodec<Record> {
    static JsonValue encode(const Record& record) {
        JsonValue object = JsonValue::object();
        std::apply([&](const auto&... field) { (detail::encodeField(object, record, field), ...); },
                   Record::jsonFields());
        object["rotation"] = encodeJson(record.rotation);
        return object;
    }

    static Record decode(const JsonReader& reader) {
        Record record{};
        std::apply([&](const auto&... field) { (detail::decodeField(reader, record, field), ...); },
                   Record::jsonFields());
        if (const auto rotation = reader.find("rotation")) record.rotation = rotation->number();
        return record;
    }
};

}  // namespace kestrio
