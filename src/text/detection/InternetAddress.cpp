#include "text/detection/Confirmers.h"
#include "text/detection/TokenEdges.h"

#include <arpa/inet.h>

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

namespace kestrio {

namespace {

bool isHexDigit(QChar unit) {
    return isAsciiDigit(unit) || (unit >= u'a' && unit <= u'f') || (unit >= u'A' && unit <= u'F');
}

// Zeros before a number are no octal digits here, but fill it up to three.
bool isIPv4(const QString& token) {
    QStringList parts = token.split(u'.');
    for (QString& part : parts) {
        if (part.size() > 3) return false;
        while (part.size() > 1 && part.startsWith(u'0'))
            part.remove(0, 1);
    }
    in_addr address;
    return inet_pton(AF_INET, parts.join(u'.').toLatin1().constData(), &address) == 1;
}

bool isIPv6(const QString& token) {
    in6_addr address;
    return inet_pton(AF_INET6, token.toLatin1().constData(), &address) == 1;
}

bool isOfPrivateNetwork(const QString& address) {
    static const QRegularExpression networks(
        QStringLiteral(R"(^(?:10|127|192\.168|169\.254|172\.(?:1[6-9]|2\d|3[01]))\.)"));
    return networks.match(address).hasMatch();
}

// All addresses, or a mask of a network: nobody's own.
bool isOfNobody(const QString& address) {
    static const QRegularExpression form(QStringLiteral(R"(^(?:0\.0\.0\.0$|255\.))"));
    return form.match(address).hasMatch();
}

// "Version 1.2.3.4", "Section 1.2.3.4", "Chrome/120.0.0.0", "1.2.3.4-beta".
bool isNumberOfSomethingElse(const QString& text, const TextRange& token) {
    static const QRegularExpression label(
        QStringLiteral(R"((?:\b(?:version|ver|v|release|rev|revision|build|firmware|driver|runtime)"
                       R"(|section|sec|chapter|clause|appendix|figure|fig|table)\.?\s*[:=]?\s*)"
                       R"(|§\s*)$)"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression product(QStringLiteral(R"([A-Za-z]/$)"));
    static const QRegularExpression suffix(QStringLiteral(R"(^[-+~][A-Za-z0-9])"));
    const QString before = text.left(token.start);
    if (label.match(before).hasMatch()) return true;
    if (isOfPrivateNetwork(textOf(text, token))) return false;
    const QString after = text.mid(token.end());
    static const QRegularExpression addressBehind(QStringLiteral(R"(^-\d+\.\d+\.\d+\.\d+)"));
    if (addressBehind.match(after).hasMatch()) return false;
    return product.match(before).hasMatch() || suffix.match(after).hasMatch();
}

// The part of a text made of an address's units, from which the sentence's own colons and stops
// were taken.
TextRange hexToken(const QString& text, const TextRange& hit) {
    TextRange token = widened(
        text, hit, [](QChar unit) { return isHexDigit(unit) || unit == u':' || unit == u'.'; });
    while (token.length > 0 && text[token.end() - 1] == u'.')
        --token.length;
    const auto isSingleColon = [&](int index, int beside) {
        return unitAt(text, index) == u':' && unitAt(text, beside) != u':';
    };
    if (isSingleColon(token.start, token.start + 1))
        token = rangeBetween(token.start + 1, token.end());
    if (isSingleColon(token.end() - 1, token.end() - 2)) --token.length;
    return token;
}

// An index into a list, "list[1::2]".
bool isSlice(const QString& text, const TextRange& token) {
    return unitAt(text, token.start - 1) == u'[' &&
           (isWordUnit(unitAt(text, token.start - 2)) || unitAt(text, token.start - 2) == u']' ||
            unitAt(text, token.start - 2) == u')');
}

TextRange withZone(const QString& text, const TextRange& token) {
    if (unitAt(text, token.end()) != u'%') return token;
    int end = token.end() + 1;
    while (isWordUnit(unitAt(text, end)) || unitAt(text, end) == u'-' || unitAt(text, end) == u'.')
        ++end;
    return rangeBetween(token.start, end);
}

}  // namespace

std::optional<TextRange> wholeIPv6Address(const QString& text, const TextRange& hit) {
    const TextRange token = hexToken(text, hit);
    const QString address = textOf(text, token);
    if (!isIPv6(address)) return std::nullopt;
    // Names of code may consist of hexadecimal letters alone.
    if (!std::ranges::any_of(address, isAsciiDigit)) return std::nullopt;
    if (isWordUnit(unitAt(text, token.start - 1)) || isSlice(text, token)) return std::nullopt;
    const TextRange whole = withZone(text, token);
    if (isWordUnit(unitAt(text, whole.end()))) return std::nullopt;
    return whole;
}

std::optional<TextRange> wholeIPv4Address(const QString& text, const TextRange& hit) {
    if (const auto longer = wholeIPv6Address(text, hit)) return longer;
    const TextRange token = trimmed(
        text, widened(text, hit, [](QChar unit) { return isWordUnit(unit) || unit == u'.'; }),
        [](QChar unit) { return unit == u'.'; });
    const QString address = textOf(text, token);
    if (!isIPv4(address) || isOfNobody(address) || isNumberOfSomethingElse(text, token))
        return std::nullopt;
    return token;
}

std::vector<TextRange> shortIPv6Candidates(const QString& text) {
    static const QRegularExpression form(
        QStringLiteral(R"((?:(?:[0-9a-fA-F]{1,4}:)+|:):(?:[0-9a-fA-F]{1,4}:)*[0-9a-fA-F]{1,4})"));
    std::vector<TextRange> ranges;
    auto found = form.globalMatch(text);
    while (found.hasNext()) {
        const auto match = found.next();
        ranges.push_back({int(match.capturedStart()), int(match.capturedLength())});
    }
    return ranges;
}

}  // namespace kestrio
