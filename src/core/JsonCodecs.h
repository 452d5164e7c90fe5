#pragma once

#include "core/Date.h"
#include "core/EnumTable.h"
#include "core/JsonReader.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QUuid>
#include <vector>

namespace kestrio {

/// How a type is written and read. Numbers, strings, bytes (base64), UUIDs, dates, points, sizes,
/// rectangles, lists, enumerations with a table and records with jsonFields() are known here.
template <typename T>
struct JsonCodec;

template <typename T>
JsonValue encodeJson(const T& value) {
    return JsonCodec<T>::encode(value);
}

template <typename T>
T decodeJson(const JsonReader& reader) {
    return JsonCodec<T>::decode(reader);
}

#define KESTRIO_DECLARE_JSON_CODEC(Type)              \
    template <>                                       \
    struct JsonCodec<Type> {                          \
        static JsonValue encode(const Type& value);   \
        static Type decode(const JsonReader& reader); \
    };

KESTRIO_DECLARE_JSON_CODEC(bool)
KESTRIO_DECLARE_JSON_CODEC(int)
KESTRIO_DECLARE_JSON_CODEC(qint64)
KESTRIO_DECLARE_JSON_CODEC(quint64)
KESTRIO_DECLARE_JSON_CODEC(double)
KESTRIO_DECLARE_JSON_CODEC(QString)
KESTRIO_DECLARE_JSON_CODEC(QByteArray)  // standard base64
KESTRIO_DECLARE_JSON_CODEC(QUuid)       // upper case, no braces
KESTRIO_DECLARE_JSON_CODEC(Date)        // seconds since 2001-01-01 UTC
KESTRIO_DECLARE_JSON_CODEC(QPointF)     // [x, y]
KESTRIO_DECLARE_JSON_CODEC(QSizeF)      // [width, height]
KESTRIO_DECLARE_JSON_CODEC(QRectF)      // [[x, y], [width, height]]

#undef KESTRIO_DECLARE_JSON_CODEC

template <typename T>
struct JsonCodec<std::vector<T>> {
    static JsonValue encode(const std::vector<T>& list) {
        JsonValue array = JsonValue::array();
        for (const T& item : list)
            array.push_back(encodeJson(item));
        return array;
    }

    static std::vector<T> decode(const JsonReader& reader) {
        std::vector<T> list;
        const std::size_t count = reader.elementCount();
        list.reserve(count);
        for (std::size_t i = 0; i < count; ++i)
            list.push_back(decodeJson<T>(reader.element(i)));
        return list;
    }
};

template <TabledEnum E>
struct JsonCodec<E> {
    static JsonValue encode(E value) { return enumRow(value).raw; }

    static E decode(const JsonReader& reader) {
        const QString raw = reader.string();
        if (const auto value = fromRawString<E>(raw.toStdString())) return *value;
        reader.fail(Kestrio::tr("unknown value \"%1\"; known are %2")
                        .arg(raw, rawStrings<E>().join(QStringLiteral(", "))));
    }
};

}  // namespace kestrio
