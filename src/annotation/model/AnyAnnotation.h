#pragma once

#include "annotation/model/ArrowAnnotation.h"
#include "annotation/model/BlurAnnotation.h"
#include "annotation/model/BrushAnnotation.h"
#include "annotation/model/CircleAnnotation.h"
#include "annotation/model/EmojiAnnotation.h"
#include "annotation/model/MeasurementAnnotation.h"
#include "annotation/model/NumberAnnotation.h"
#include "annotation/model/RectangleAnnotation.h"
#include "annotation/model/TextAnnotation.h"

#include <algorithm>
#include <variant>

namespace kestrio {

/// The tag of a record in files.
enum class TypeKey { arrow, rectangle, circle, text, number, brush, blur, emoji, measurement };

inline constexpr EnumTable<TypeKey, 9> typeKeys = {{
    {TypeKey::arrow, "arrow"},
    {TypeKey::rectangle, "rectangle"},
    {TypeKey::circle, "circle"},
    {TypeKey::text, "text"},
    {TypeKey::number, "number"},
    {TypeKey::brush, "brush"},
    {TypeKey::blur, "blur"},
    {TypeKey::emoji, "emoji"},
    {TypeKey::measurement, "measurement"},
}};
constexpr const auto& enumTable(TypeKey) {
    return typeKeys;
}

/// An annotation of any kind: a value, laid over the picture, in image points from its top left
/// corner. Its identity lies in its id alone.
class AnyAnnotation {
  public:
    /// In the order of TypeKey.
    using Record = std::variant<ArrowAnnotation, RectangleAnnotation, CircleAnnotation,
                                TextAnnotation, NumberAnnotation, BrushAnnotation, BlurAnnotation,
                                EmojiAnnotation, MeasurementAnnotation>;

    template <typename T>
    requires(!std::is_same_v<std::decay_t<T>, AnyAnnotation> && std::is_constructible_v<Record, T>)
        AnyAnnotation(T&& record)
        : record_(std::forward<T>(record)) {}

    QUuid id() const;
    AnnotationType type() const;
    TypeKey typeKey() const { return static_cast<TypeKey>(record_.index()); }
    CodableColor color() const;
    void setColor(const CodableColor& color);
    double strokeWidth() const;
    void setStrokeWidth(double width);

    /// The upright rectangle by which it is selected, hit, aligned and moved; rotation does not
    /// count.
    QRectF bounds() const;
    /// Moves and stretches the record so that it fills a rectangle, as far as its kind can.
    void setBounds(const QRectF& bounds);
    /// Moves every point of the record; unlike setBounds() also where it has no extent on an axis.
    void translate(const QPointF& offset);

    /// Of the same kind, id and form. Colour never counts, so a change of colour is no difference.
    bool operator==(const AnyAnnotation&) const = default;

    /// The record of a kind, or null where this is of another one.
    template <typename T>
    const T* as() const {
        return std::get_if<T>(&record_);
    }
    template <typename T>
    T* as() {
        return std::get_if<T>(&record_);
    }

    template <typename Visitor>
    decltype(auto) visit(Visitor&& visitor) const {
        return std::visit(std::forward<Visitor>(visitor), record_);
    }
    template <typename Visitor>
    decltype(auto) visit(Visitor&& visitor) {
        return std::visit(std::forward<Visitor>(visitor), record_);
    }

  private:
    Record record_;
};

namespace detail {

template <typename Kind, typename... Kinds>
constexpr std::size_t indexAmong(const std::variant<Kinds...>*) {
    const bool isKind[] = {std::is_same_v<Kind, Kinds>...};
    return static_cast<std::size_t>(std::ranges::find(isKind, true) - std::begin(isKind));
}

}  // namespace detail

/// Where a kind of record stands in AnyAnnotation::Record and in TypeKey.
template <typename Kind>
inline constexpr std::size_t recordIndex =
    detail::indexAmong<Kind>(static_cast<const AnyAnnotation::Record*>(nullptr));

/// Whether every field is the same, those too that do not count for equality: colours, a text's
/// weight and alignment.
bool isIdentical(const AnyAnnotation& a, const AnyAnnotation& b);
bool areIdentical(const std::vector<AnyAnnotation>& a, const std::vector<AnyAnnotation>& b);

static_assert(std::variant_size_v<AnyAnnotation::Record> == typeKeys.size(),
              "every record has its row in the table of keys");

/// {"type": a key, "data": the record}.
template <>
struct JsonCodec<AnyAnnotation> {
    static JsonValue encode(const AnyAnnotation& annotation);
    static AnyAnnotation decode(const JsonReader& reader);
};

}  // namespace kestrio
