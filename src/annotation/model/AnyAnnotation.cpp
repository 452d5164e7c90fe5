#include "annotation/model/AnyAnnotation.h"

#include <array>

namespace kestrio {

QUuid AnyAnnotation::id() const {
    return visit([](const auto& record) { return record.id; });
}

AnnotationType AnyAnnotation::type() const {
    return visit([](const auto& record) { return record.type(); });
}

CodableColor AnyAnnotation::color() const {
    return visit([](const auto& record) { return record.color; });
}

void AnyAnnotation::setColor(const CodableColor& color) {
    visit([&](auto& record) { record.color = color; });
}

double AnyAnnotation::strokeWidth() const {
    return visit([](const auto& record) { return record.strokeWidth; });
}

void AnyAnnotation::setStrokeWidth(double width) {
    visit([&](auto& record) { record.strokeWidth = width; });
}

QRectF AnyAnnotation::bounds() const {
    return visit([](const auto& record) { return record.boundingRect(); });
}

void AnyAnnotation::setBounds(const QRectF& bounds) {
    visit([&](auto& record) { record.reshape(bounds); });
}

namespace {

using Decoder = AnyAnnotation (*)(const JsonReader&);

template <typename Record>
AnyAnnotation decodeRecord(const JsonReader& reader) {
    return decodeJson<Record>(reader);
}

template <typename... Records>
constexpr std::array<Decoder, sizeof...(Records)> decodersOf(const std::variant<Records...>*) {
    return {decodeRecord<Records>...};
}

/// By TypeKey.
constexpr auto decoders = decodersOf(static_cast<const AnyAnnotation::Record*>(nullptr));

}  // namespace

void AnyAnnotation::translate(const QPointF& offset) {
    visit([&offset]<typename Kind>(Kind& record) {
        if constexpr (requires { record.bounds; }) record.bounds.translate(offset);
        if constexpr (requires { record.center; }) record.center += offset;
        if constexpr (requires { record.startPoint; }) record.startPoint += offset;
        if constexpr (requires { record.endPoint; }) record.endPoint += offset;
        if constexpr (requires { record.controlPoints; }) {
            for (QPointF& point : record.controlPoints)
                point += offset;
        }
        if constexpr (requires { record.points; }) {
            for (QPointF& point : record.points)
                point += offset;
        }
    });
}

bool isIdentical(const AnyAnnotation& a, const AnyAnnotation& b) {
    if (a != b || a.color() != b.color() || a.strokeWidth() != b.strokeWidth()) return false;
    return a.visit([&b]<typename Kind>(const Kind& record) {
        const Kind& other = *b.as<Kind>();
        if constexpr (requires { record.fontWeight, record.alignment; }) {
            return record.fontWeight == other.fontWeight && record.alignment == other.alignment;
        }
        return true;
    });
}

bool areIdentical(const std::vector<AnyAnnotation>& a, const std::vector<AnyAnnotation>& b) {
    return std::ranges::equal(a, b, isIdentical);
}

JsonValue JsonCodec<AnyAnnotation>::encode(const AnyAnnotation& annotation) {
    JsonValue object = JsonValue::object();
    object["type"] = encodeJson(annotation.typeKey());
    object["data"] = annotation.visit([](const auto& record) { return encodeJson(record); });
    return object;
}

AnyAnnotation JsonCodec<AnyAnnotation>::decode(const JsonReader& reader) {
    const auto key = decodeJson<TypeKey>(reader.at("type"));
    return decoders[static_cast<std::size_t>(key)](reader.at("data"));
}

}  // namespace kestrio
