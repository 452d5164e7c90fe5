#include "text/detection/Confirmers.h"
#include "text/detection/TokenEdges.h"

#include <QRegularExpression>
#include <algorithm>

namespace kestrio {

namespace {

// What a key has at least behind its prefix. Keys of services have 24 and more; the pattern wants
// 20, of which a reading may lose two.
constexpr int smallestKeyLength = 18;

// Letters alone, set like the words of an identifier: "loadUserProfile", "access_token".
bool looksLikeWords(const QString& body) {
    static const QRegularExpression words(
        QStringLiteral("^(?:[A-Z]?[a-z]+(?:[A-Z][a-z]+)*|[A-Z]+)(?:[_-]+(?:[A-Z]?[a-z]+"
                       "(?:[A-Z][a-z]+)*|[A-Z]+))*$"));
    return words.match(body).hasMatch();
}

bool looksRandom(const QString& chunk) {
    const bool hasDigit = std::ranges::any_of(chunk, isAsciiDigit);
    const bool hasLetter = std::ranges::any_of(chunk, [](QChar unit) { return unit.isLetter(); });
    return chunk.size() >= 3 && ((hasDigit && hasLetter) || (hasLetter && !looksLikeWords(chunk)));
}

bool isHexadecimal(const QString& body) {
    static const QRegularExpression hex(QStringLiteral("^[0-9a-fA-F]+$"));
    return hex.match(body).hasMatch();
}

QString chunkAt(const QString& text, int start) {
    int end = start;
    while (unitAt(text, end).unicode() < 0x80 &&
           (isWordUnit(unitAt(text, end)) || unitAt(text, end) == u'-'))
        ++end;
    return text.mid(start, end - start);
}

// The end of the key whose body starts at `start`: words that look random go on behind a space.
int endOfBody(const QString& text, int start) {
    int end = start + int(chunkAt(text, start).size());
    while (unitAt(text, end) == u' ') {
        const QString next = chunkAt(text, end + 1);
        if (!looksRandom(next)) break;
        end += 1 + int(next.size());
    }
    return end;
}

int countKeyUnits(const QString& body) {
    return int(std::ranges::count_if(body, [](QChar unit) { return unit.isLetterOrNumber(); }));
}

struct MisreadPrefix {
    QRegularExpression expression;
    bool isUnmistakable;  // no word of a text looks like it
};

const std::vector<MisreadPrefix>& misreadPrefixes() {
    static const std::vector<MisreadPrefix> prefixes = {
        {QRegularExpression(QStringLiteral(
             R"((?<![A-Za-z0-9])[sS5pP][kK][ _.~-]{0,3}(?:[lI1|][iIl1|!]ve|te[s5][tl])[ _.~-]{0,3})"
             R"((?=[A-Za-z0-9]))")),
         true},
        {QRegularExpression(QStringLiteral(
             R"((?<![A-Za-z0-9])(?:[sp]k|api|key|token|secret) ?_ ?(?=[A-Za-z0-9]))")),
         true},
        {QRegularExpression(QStringLiteral(
             R"((?<![A-Za-z0-9])(?:[sp]k|api|key|token|secret) {1,2}(?=[A-Za-z0-9]))")),
         false},
    };
    return prefixes;
}

}  // namespace

std::optional<TextRange> wholeSecretKey(const QString& text, const TextRange& hit) {
    const TextRange token =
        widened(text, hit, [](QChar unit) { return isWordUnit(unit) || unit == u'-'; });
    const QString body = textOf(text, hit).section(u'_', -1);
    if (looksLikeWords(body)) return std::nullopt;
    return trimmed(text, token, [](QChar unit) { return unit == u'-'; });
}

std::vector<TextRange> misreadSecretKeys(const QString& text) {
    std::vector<TextRange> keys;
    for (const auto& [expression, isUnmistakable] : misreadPrefixes()) {
        auto found = expression.globalMatch(text);
        while (found.hasNext()) {
            const auto match = found.next();
            const int start = int(match.capturedEnd());
            const int end = endOfBody(text, start);
            const QString body = text.mid(start, end - start);
            const QString first = chunkAt(text, start);
            if (countKeyUnits(body) < smallestKeyLength || looksLikeWords(first)) continue;
            // "key" and "token" are words too, and hashes stand behind them.
            if (!isUnmistakable && (isHexadecimal(first) || first.contains(u'-') ||
                                    countKeyUnits(first) < smallestKeyLength))
                continue;
            keys.push_back(rangeBetween(int(match.capturedStart()), end));
        }
    }
    return keys;
}

}  // namespace kestrio
