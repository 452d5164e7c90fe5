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
