#include "core/Json.h"

#include "core/JsonText.h"

#include <QStringDecoder>
#include <cmath>
#include <limits>

namespace kestrio {

QString JsonError::errorDescription() const {
    return path_.isEmpty() ? reason_ : path_ + QStringLiteral(": ") + reason_;
}

std::optional<JsonReader> JsonReader::find(const char* key) const {
    if (!value_->is_object()) fail(Kestrio::tr("expected an object"));
    const auto member = value_->find(key);
    if (member == value_->end() || member->is_null()) return std::nullopt;
    return JsonReader(*member, this, key, 0);
}

JsonReader JsonReader::at(const char* key) const {
    if (const auto member = find(key)) return *member;
    JsonReader(*value_, this, key, 0).fail(Kestrio::tr("required key is missing"));
}

std::size_t JsonReader::elementCount() const {
    if (!value_->is_array()) fail(Kestrio::tr("expected a list"));
    return value_->size();
}

JsonReader JsonReader::element(std::size_t index) const {
    if (index >= elementCount()) fail(Kestrio::tr("expected a longer list"));
    return JsonReader((*value_)[index], this, nullptr, index);
}

bool JsonReader::boolean() const {
    if (!value_->is_boolean()) fail(Kestrio::tr("expected true or false"));
    return value_->get<bool>();
}

double JsonReader::number() const {
    if (!value_->is_number()) fail(Kestrio::tr("expected a number"));
    return value_->get<double>();
}

qint64 JsonReader::integer() const {
    if (value_->is_number_unsigned()) {
        const auto wide = value_->get<quint64>();
        if (wide <= static_cast<quint64>(std::numeric_limits<qint64>::max())) {
            return static_cast<qint64>(wide);
        }
    } else if (value_->is_number_integer()) {
        return value_->get<qint64>();
    } else if (value_->is_number_float()) {
        const double wide = value_->get<double>();
        if (wide == std::trunc(wide) && std::abs(wide) < 9.0e15) return static_cast<qint64>(wide);
    }
    fail(Kestrio::tr("expected a whole number"));
}

quint64 JsonReader::unsignedInteger() const {
    if (value_->is_number_unsigned()) return value_->get<quint64>();
    fail(Kestrio::tr("expected a whole number that is not negative"));
}

QString JsonReader::string() const {
    if (!value_->is_string()) fail(Kestrio::tr("expected a string"));
    // QString::fromStdString() would drop a byte order mark that the text begins with.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder.decode(QByteArrayView(value_->get_ref<const std::string&>()));
}

QString JsonReader::path() const {
    if (!parent_) return {};
    const QString before = parent_->path();
    if (!key_) return before + QStringLiteral("[%1]").arg(index_);
    return before.isEmpty() ? QString::fromLatin1(key_) : before + u'.' + QString::fromLatin1(key_);
}

void JsonReader::fail(const QString& reason) const {
    throw JsonError(path(), reason);
}

JsonValue parseJson(const QByteArray& text) {
    if (auto value = parseJsonQuickly(text)) return *std::move(value);
    try {
        return JsonValue::parse(text.begin(), text.end());
    } catch (const nlohmann::json::parse_error& error) {
        const auto before = text.left(static_cast<qsizetype>(error.byte));
        const auto line = before.count('\n') + 1;
        const auto column = before.size() - before.lastIndexOf('\n') - 1;
        throw JsonError({},
                        Kestrio::tr("not valid JSON at line %1, column %2").arg(line).arg(column));
    } catch (const nlohmann::json::exception&) {
        throw JsonError({}, Kestrio::tr("not valid JSON: a number is out of range"));
    }
}

QByteArray jsonText(const JsonValue& value, int indent) {
    return QByteArray::fromStdString(
        value.dump(indent, ' ', false, nlohmann::json::error_handler_t::replace));
}

JsonValue jsonNumber(double number) {
    if (!std::isfinite(number)) throw JsonError({}, Kestrio::tr("a number is not finite"));
    constexpr double exactWhole = 9007199254740992.0;  // 2^53
    const bool isWhole = number == std::trunc(number) && std::abs(number) <= exactWhole;
    if (isWhole && !(number == 0 && std::signbit(number))) return static_cast<qint64>(number);
    return number;
}

JsonValue JsonCodec<bool>::encode(const bool& value) {
    return value;
}
bool JsonCodec<bool>::decode(const JsonReader& reader) {
    return reader.boolean();
}

JsonValue JsonCodec<int>::encode(const int& value) {
    return value;
}
int JsonCodec<int>::decode(const JsonReader& reader) {
    const qint64 value = reader.integer();
    if (value != static_cast<int>(value)) reader.fail(Kestrio::tr("the number is too large"));
    return static_cast<int>(value);
}

JsonValue JsonCodec<qint64>::encode(const qint64& value) {
    return value;
}
qint64 JsonCodec<qint64>::decode(const JsonReader& reader) {
    return reader.integer();
}

JsonValue JsonCodec<quint64>::encode(const quint64& value) {
    return value;
}
quint64 JsonCodec<quint64>::decode(const JsonReader& reader) {
    return reader.unsignedInteger();
}

JsonValue JsonCodec<double>::encode(const double& value) {
    return jsonNumber(value);
}
double JsonCodec<double>::decode(const JsonReader& reader) {
    return reader.number();
}

JsonValue JsonCodec<QString>::encode(const QString& value) {
    return value.toStdString();
}
QString JsonCodec<QString>::decode(const JsonReader& reader) {
    return reader.string();
}

JsonValue JsonCodec<QByteArray>::encode(const QByteArray& value) {
    return value.toBase64().toStdString();
}
QByteArray JsonCodec<QByteArray>::decode(const JsonReader& reader) {
    const auto result = QByteArray::fromBase64Encoding(reader.string().toLatin1(),
                                                       QByteArray::AbortOnBase64DecodingErrors);
    if (!result) reader.fail(Kestrio::tr("expected base64 text"));
    return *result;
}

JsonValue JsonCodec<QUuid>::encode(const QUuid& value) {
    return value.toString(QUuid::WithoutBraces).toUpper().toStdString();
}
QUuid JsonCodec<QUuid>::decode(const JsonReader& reader) {
    const QString text = reader.string();
    const QUuid id = QUuid::fromString(text);
    constexpr qsizetype bareLength = 36;
    if (text.size() != bareLength || id.toString(QUuid::WithoutBraces) != text.toLower()) {
        reader.fail(Kestrio::tr("expected a UUID"));
    }
    return id;
}

JsonValue JsonCodec<Date>::encode(const Date& value) {
    return jsonNumber(value.sinceReference);
}
Date JsonCodec<Date>::decode(const JsonReader& reader) {
    return {reader.number()};
}

namespace {

std::pair<double, double> decodePair(const JsonReader& reader) {
    if (reader.elementCount() != 2) reader.fail(Kestrio::tr("expected a list of two numbers"));
    return {reader.element(0).number(), reader.element(1).number()};
}

JsonValue encodePair(double first, double second) {
    return JsonValue::array({jsonNumber(first), jsonNumber(second)});
}

}  // namespace

JsonValue JsonCodec<QPointF>::encode(const QPointF& value) {
    return encodePair(value.x(), value.y());
}
QPointF JsonCodec<QPointF>::decode(const JsonReader& reader) {
    const auto [x, y] = decodePair(reader);
    return {x, y};
}

JsonValue JsonCodec<QSizeF>::encode(const QSizeF& value) {
    return encodePair(value.width(), value.height());
}
QSizeF JsonCodec<QSizeF>::decode(const JsonReader& reader) {
    const auto [width, height] = decodePair(reader);
    return {width, height};
}

JsonValue JsonCodec<QRectF>::encode(const QRectF& value) {
    return JsonValue::array({encodeJson(value.topLeft()), encodeJson(value.size())});
}
QRectF JsonCodec<QRectF>::decode(const JsonReader& reader) {
    if (reader.elementCount() != 2) reader.fail(Kestrio::tr("expected [[x, y], [width, height]]"));
    return {decodeJson<QPointF>(reader.element(0)), decodeJson<QSizeF>(reader.element(1))};
}

}  // namespace kestrio
