#include "text/patterns/RegexSafety.h"

#include <QRegularExpression>
#include <algorithm>
#include <vector>

namespace kestrio {

namespace {

bool hasBalancedBrackets(const QString& regex) {
    int depth = 0;
    for (int i = 0; i < regex.size(); ++i) {
        if (regex[i] == u'\\') {
            ++i;
        } else if (regex[i] == u'[') {
            ++depth;
        } else if (regex[i] == u']' && --depth < 0) {
            return false;
        }
    }
    return depth == 0;
}

enum class Quantifier { none, bounded, unbounded };

// What the braces at `start` are.
Quantifier bracesAt(const QString& regex, int start) {
    const int end = int(regex.indexOf(u'}', start));
    if (end < 0) return Quantifier::none;
    const QString inner = regex.mid(start + 1, end - start - 1);
    const bool isCount =
        std::ranges::all_of(inner, [](QChar c) { return (c >= u'0' && c <= u'9') || c == u','; });
    if (!isCount || inner.count(u',') > 1) return Quantifier::none;
    return inner.endsWith(u',') ? Quantifier::unbounded : Quantifier::bounded;
}

Quantifier quantifierAt(const QString& regex, int index) {
    if (index >= regex.size()) return Quantifier::none;
    switch (regex[index].unicode()) {
        case u'*':
        case u'+':
            return Quantifier::unbounded;
        case u'?':
            return Quantifier::bounded;
        case u'{':
            return bracesAt(regex, index);
        default:
            return Quantifier::none;
    }
}

// Whether a group that holds a quantifier is itself repeated without end, as in "(a+)+".
bool hasNestedUnboundedQuantifier(const QString& regex) {
    std::vector<bool> openGroups;  // whether each holds a quantifier
    for (int i = 0; i < regex.size(); ++i) {
        if (regex[i] == u'\\') {
            ++i;
        } else if (regex[i] == u'(') {
            openGroups.push_back(false);
        } else if (regex[i] == u')' && !openGroups.empty()) {
            const bool holdsQuantifier = openGroups.back();
            openGroups.pop_back();
            int next = i + 1;
            while (next < regex.size() && regex[next].isSpace())
                ++next;
            if (holdsQuantifier && quantifierAt(regex, next) == Quantifier::unbounded) return true;
        } else if (quantifierAt(regex, i) != Quantifier::none) {
            std::fill(openGroups.begin(), openGroups.end(), true);
        }
    }
    return false;
}

}  // namespace

bool isSafeRegex(const QString& regex) {
    static const QRegularExpression doubledQuantifier(
        QStringLiteral(R"((?<!\\)(?:\?\?|\+\+|\*\*))"));
    static const QRegularExpression numberedReference(QStringLiteral(R"(\\[1-9][0-9]*)"));
    static const QRegularExpression namedReference(QStringLiteral(R"((?<!\\)(?:\\\\)*\\k)"));
    const QString trimmed = regex.trimmed();
    if (trimmed.isEmpty() || trimmed.toUcs4().size() > greatestRegexLength) return false;
    if (!hasBalancedBrackets(trimmed)) return false;
    if (trimmed.startsWith(u'|') || trimmed.endsWith(u'|')) return false;
    if (trimmed.contains(u"(|") || trimmed.contains(u"|)")) return false;
    if (doubledQuantifier.match(trimmed).hasMatch()) return false;
    if (numberedReference.match(trimmed).hasMatch()) return false;
    if (namedReference.match(trimmed).hasMatch()) return false;
    if (trimmed.contains(u"(?<=") || trimmed.contains(u"(?<!")) return false;
    return !hasNestedUnboundedQuantifier(trimmed);
}

}  // namespace kestrio
