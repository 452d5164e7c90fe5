#include "text/detection/Confirmers.h"
#include "text/detection/TokenEdges.h"

#include <algorithm>

namespace kestrio {

namespace {

// Numbers of issuers: those that begin with `first` to `last` have one of the lengths.
struct Brand {
    int first;
    int last;
    int digits;  // of `first` and `last`
    int shortest;
    int longest;
};

constexpr Brand brands[] = {
    {4, 4, 1, 13, 19},        // Visa
    {51, 55, 2, 16, 16},      // Mastercard
    {2221, 2720, 4, 16, 16},  // Mastercard
    {34, 34, 2, 15, 15},      // American Express
    {37, 37, 2, 15, 15},      // American Express
    {300, 305, 3, 14, 19},    // Diners Club
    {36, 36, 2, 14, 19},      // Diners Club
    {38, 39, 2, 14, 19},      // Diners Club
    {6011, 6011, 4, 16, 19},  // Discover
    {644, 659, 3, 16, 19},    // Discover
    {3528, 3589, 4, 16, 19},  // JCB
    {62, 62, 2, 16, 19},      // UnionPay
    {81, 81, 2, 16, 19},      // UnionPay
    {50, 50, 2, 13, 19},      // Maestro
    {56, 58, 2, 13, 19},      // Maestro
    {63, 63, 2, 13, 19},      // Maestro
    {67, 67, 2, 13, 19},      // Maestro
    {2200, 2204, 4, 16, 19},  // Mir
};

bool isOfKnownBrand(const QString& digits) {
    return std::ranges::any_of(brands, [&digits](const Brand& brand) {
        const int start = digits.left(brand.digits).toInt();
        return start >= brand.first && start <= brand.last && digits.size() >= brand.shortest &&
               digits.size() <= brand.longest;
    });
}

bool hasCheckDigit(const QString& digits) {
    int sum = 0;
    bool isDoubled = false;
    for (int i = int(digits.size()) - 1; i >= 0; --i) {
        int value = digits[i].digitValue();
        if (isDoubled) value = value > 4 ? 2 * value - 9 : 2 * value;
        sum += value;
        isDoubled = !isDoubled;
    }
    return sum % 10 == 0;
}

struct Group {
    TextRange range;
    QString digits;
};

std::vector<Group> digitGroups(const QString& text, const TextRange& run) {
    std::vector<Group> groups;
    for (int i = run.start; i < run.end(); ++i) {
        if (!isAsciiDigit(text[i])) continue;
        const int start = i;
        while (i < run.end() && isAsciiDigit(text[i]))
            ++i;
        const TextRange range = rangeBetween(start, i);
        groups.push_back({range, textOf(text, range)});
    }
    return groups;
}

// As they are printed: in one piece, in fours, or 4-6-5 and 4-6-4.
bool isUsualGrouping(const Group* first, const Group* end) {
    const auto count = end - first;
    if (count == 1) return true;
    const auto size = [first](int index) { return first[index].digits.size(); };
    if (count == 3 && size(0) == 4 && size(1) == 6) return size(2) == 5 || size(2) == 4;
    return std::all_of(first, end - 1, [](const Group& each) { return each.digits.size() == 4; }) &&
           size(int(count) - 1) <= 4;
}

QString joined(const Group* first, const Group* end) {
    QString digits;
    for (const Group* group = first; group != end; ++group)
        digits += group->digits;
    return digits;
}

}  // namespace

std::optional<TextRange> wholeCardNumber(const QString& text, const TextRange& hit) {
    const auto belongs = [](QChar unit) {
        return isAsciiDigit(unit) || unit == u' ' || unit == u'-';
    };
    const auto groups = digitGroups(text, widened(text, hit, belongs));
    const Group* const all = groups.data();
    const int count = int(groups.size());
    for (int length = count; length > 0; --length) {
        for (int first = 0; first + length <= count; ++first) {
            const Group* const start = all + first;
            const Group* const end = start + length;
            const TextRange range = rangeBetween(start->range.start, (end - 1)->range.end());
            const bool isPart =
                isWordUnit(unitAt(text, range.start - 1)) || isWordUnit(unitAt(text, range.end()));
            const QString digits = joined(start, end);
            if (!isPart && isUsualGrouping(start, end) && isOfKnownBrand(digits) &&
                hasCheckDigit(digits)) {
                return range;
            }
        }
    }
    return std::nullopt;
}

}  // namespace kestrio
