#include "core/NativePath.h"

#include <QList>
#include <QStringDecoder>
#include <algorithm>
#include <optional>
#include <utility>

namespace kestrio {

namespace {

// Byte b from 0x80 to 0xFF stands as firstEscape + (b - 0x80).
constexpr char32_t firstEscape = 0x10EE80;
constexpr char32_t lastEscape = 0x10EEFF;
constexpr int firstHighByte = 0x80;
constexpr qsizetype longestSequence = 4;

bool isEscape(char32_t code) {
    return code >= firstEscape && code <= lastEscape;
}

bool isControl(char32_t code) {
    const QChar::Category category = QChar::category(code);
    return category == QChar::Other_Control || category == QChar::Other_Format ||
           category == QChar::Separator_Line || category == QChar::Separator_Paragraph;
}

// The text of these bytes; nothing where they are no UTF-8, or hold a character that stands for a
// byte and would not come back as itself.
std::optional<QString> decoded(QByteArrayView bytes) {
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    QString text = decoder(bytes);
    if (decoder.hasError()) return std::nullopt;
    const auto codes = text.toUcs4();
    if (std::any_of(codes.begin(), codes.end(), isEscape)) return std::nullopt;
    return text;
}

QString textOf(char32_t code) {
    return QString::fromUcs4(&code, 1);
}

// The character that `bytes` begin with, and how many bytes it takes.
std::pair<QString, qsizetype> firstCharacter(QByteArrayView bytes) {
    for (qsizetype length = 1; length <= std::min(longestSequence, bytes.size()); ++length) {
        if (const auto text = decoded(bytes.first(length))) return {*text, length};
    }
    const auto byte = static_cast<unsigned char>(bytes.front());
    return {textOf(firstEscape + static_cast<char32_t>(byte - firstHighByte)), 1};
}

}  // namespace

QString fromNativePath(QByteArrayView bytes) {
    if (const auto text = decoded(bytes)) return *text;
    QString path;
    while (!bytes.isEmpty()) {
        const auto [text, length] = firstCharacter(bytes);
        path += text;
        bytes = bytes.sliced(length);
    }
    return path;
}

QByteArray toNativePath(const QString& path) {
    QByteArray bytes;
    bytes.reserve(path.size());
    QString plain;
    const auto flush = [&] { bytes += std::exchange(plain, {}).toUtf8(); };
    for (const char32_t code : path.toUcs4()) {
        if (!isEscape(code)) {
            plain += textOf(code);
            continue;
        }
        flush();
        bytes += static_cast<char>(firstHighByte + static_cast<int>(code - firstEscape));
    }
    flush();
    return bytes;
}

QString printableText(const QString& text) {
    QString printable;
    printable.reserve(text.size());
    for (const char32_t code : text.toUcs4()) {
        if (isControl(code) || isEscape(code)) {
            printable += QChar::ReplacementCharacter;
        } else {
            printable += textOf(code);
        }
    }
    return printable;
}

}  // namespace kestrio
