#include "annotation/editing/BadgeNumbers.h"

namespace kestrio {

std::optional<qint64> numberOf(const AnyAnnotation& annotation) {
    const auto* badge = annotation.as<NumberAnnotation>();
    return badge ? std::optional(badge->number) : std::nullopt;
}

qint64 nextNumberAfter(const std::vector<AnyAnnotation>& annotations) {
    std::optional<qint64> highest;
    for (const AnyAnnotation& annotation : annotations)
        highest = std::max(highest, numberOf(annotation));  // none is the least
    return highest ? successor(*highest) : 1;
}

std::vector<NumberAnnotation> renumbered(const std::vector<AnyAnnotation>& annotations,
                                         const std::optional<QUuid>& from, qint64 startingAt) {
    std::vector<NumberAnnotation> badges;
    for (const AnyAnnotation& annotation : annotations) {
        if (const auto* badge = annotation.as<NumberAnnotation>()) badges.push_back(*badge);
    }
    std::ranges::stable_sort(badges, {}, &NumberAnnotation::number);
    auto first = badges.begin();
    if (from) {
        const auto found = std::ranges::find(badges, *from, &NumberAnnotation::id);
        if (found != badges.end()) first = found;
    }
    std::vector<NumberAnnotation> changed;
    qint64 number = startingAt;
    for (auto badge = first; badge != badges.end(); ++badge) {
        if (badge->number != number) {
            badge->number = number;
            changed.push_back(*badge);
        }
        number = successor(number);
    }
    return changed;
}

std::optional<qint64> wholeNumber(const QString& text) {
    QStringView digits = text;
    if (digits.startsWith(u'+') || digits.startsWith(u'-')) digits = digits.mid(1);
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    if (digits.isEmpty() || !std::ranges::all_of(digits, isDigit)) return std::nullopt;
    bool isInRange = false;
    const qint64 value = text.toLongLong(&isInRange);
    return isInRange ? std::optional(value) : std::nullopt;
}

std::optional<qint64> positiveInteger(const QString& text) {
    const auto number = wholeNumber(text);
    return number && *number > 0 ? number : std::nullopt;
}

}  // namespace kestrio
