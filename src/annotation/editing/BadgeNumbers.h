#pragma once

#include "annotation/model/AnyAnnotation.h"

#include <limits>

namespace kestrio {

/// The number after this one; the greatest number is followed by itself.
constexpr qint64 successor(qint64 number) {
    return number == std::numeric_limits<qint64>::max() ? number : number + 1;
}

/// The number of a badge; none of other kinds.
std::optional<qint64> numberOf(const AnyAnnotation& annotation);
/// The number of the badge that is drawn next: one more than the highest, or 1 without badges.
qint64 nextNumberAfter(const std::vector<AnyAnnotation>& annotations);

/// The badges that change when they are counted again, with their new numbers, in the order of the
/// old ones: from the badge `from` on, or all where that is none of them.
std::vector<NumberAnnotation> renumbered(const std::vector<AnyAnnotation>& annotations,
                                         const std::optional<QUuid>& from, qint64 startingAt);

/// What a user typed as a number: decimal digits, a sign if need be, and nothing else.
std::optional<qint64> wholeNumber(const QString& text);
/// The same, above 0.
std::optional<qint64> positiveInteger(const QString& text);

}  // namespace kestrio
