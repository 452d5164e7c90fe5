#pragma once

#include "text/patterns/RegularExpression.h"

namespace kestrio {

inline QChar unitAt(const QString& text, int index) {
    return index >= 0 && index < text.size() ? text[index] : QChar();
}

inline bool isAsciiDigit(QChar unit) {
    return unit >= u'0' && unit <= u'9';
}

/// A letter, digit or underscore of any script.
inline bool isWordUnit(QChar unit) {
    return unit.isLetterOrNumber() || unit == u'_';
}

inline QString textOf(const QString& text, const TextRange& range) {
    return text.mid(range.start, range.length);
}

inline TextRange rangeBetween(int start, int end) {
    return {start, end - start};
}

/// The hit with all units beside it that belong to its token.
template <typename Condition>
TextRange widened(const QString& text, const TextRange& hit, Condition belongs) {
    int start = hit.start;
    int end = hit.end();
    while (start > 0 && belongs(text[start - 1]))
        --start;
    while (end < text.size() && belongs(text[end]))
        ++end;
    return rangeBetween(start, end);
}

/// Without the units at its ends that belong to the sentence around it.
template <typename Condition>
TextRange trimmed(const QString& text, TextRange range, Condition isOutside) {
    while (range.length > 0 && isOutside(text[range.start]))
        range = rangeBetween(range.start + 1, range.end());
    while (range.length > 0 && isOutside(text[range.end() - 1]))
        --range.length;
    return range;
}

}  // namespace kestrio
