#include "platform/linux/recognition/ReadingMerge.h"

#include <algorithm>

namespace kestrio {

namespace {

constexpr double sureCharacter = 0.9;
constexpr char16_t firstWideMark = 0x3000;

bool isEastAsian(const Glyph& glyph) {
    return scriptOf(glyph.text) == Script::ideograph || scriptOf(glyph.text) == Script::kana;
}

/// The least costs of aligning the ends of both readings from each place on.
class AlignmentCosts {
  public:
    AlignmentCosts(const Glyphs& first, const Glyphs& second)
        : width_(second.size() + 1), costs_((first.size() + 1) * width_) {
        for (size_t i = first.size() + 1; i-- > 0;) {
            for (size_t j = second.size() + 1; j-- > 0;) {
                if (i == first.size() || j == second.size()) {
                    at(i, j) = gap * static_cast<int>(first.size() - i + second.size() - j);
                    continue;
                }
                at(i, j) = std::min({at(i + 1, j) + gap, at(i, j + 1) + gap,
                                     at(i + 1, j + 1) + difference(first[i], second[j])});
            }
        }
    }

    int at(size_t i, size_t j) const { return costs_[i * width_ + j]; }

    static int difference(const Glyph& a, const Glyph& b) {
        if (a.text == b.text) return 0;
        // A comma is rather another comma than an ideograph.
        return isEastAsian(a) == isEastAsian(b) ? 3 : 5;
    }

    static constexpr int gap = 2;

  private:
    int& at(size_t i, size_t j) { return costs_[i * width_ + j]; }

    size_t width_;
    std::vector<int> costs_;
};

const Glyph& betterOf(const Glyph& first, const Glyph& second, const LineReader& reader) {
    if (first.text == second.text) return first;
    // The first reader is better at digits and marks, but takes a character that it does not know
    // and what stands beside it for one of Latin text.
    const bool isMark = second.text[0].unicode() >= firstWideMark;
    const bool isFirstWide = first.text[0].unicode() >= firstWideMark;
    if (!isEastAsian(second) && !(isMark && !isFirstWide && !first.text[0].isLetterOrNumber()))
        return first;
    if (!reader.knows(second.text)) return second;  // it could not but mistake that one
    const bool isFirstSure = first.confidence >= sureCharacter && isEastAsian(first);
    return isFirstSure || first.confidence > second.confidence ? first : second;
}

/// Gives characters of the second reading the places between their neighbours.
void placeBetween(Glyphs& glyphs, const std::vector<bool>& isPlaced) {
    for (size_t at = 0; at < glyphs.size(); ++at) {
        if (isPlaced[at]) continue;
        size_t end = at;
        while (end < glyphs.size() && !isPlaced[end])
            ++end;
        const double count = static_cast<double>(end - at);
        // Runs at an end keep the distances that the second reader saw.
        const double width = at > 0 && end < glyphs.size()
                                 ? (glyphs[end].center - glyphs[at - 1].center) / (count + 1)
                                 : (glyphs[end - 1].center - glyphs[at].center) / count;
        for (size_t index = at; index < end; ++index) {
            if (at > 0)
                glyphs[index].center = glyphs[index - 1].center + width;
            else if (end < glyphs.size())
                glyphs[index].center =
                    glyphs[end].center - width * static_cast<double>(end - index);
        }
        at = end;
    }
}

}  // namespace

std::vector<ReadingPair> aligned(const Glyphs& first, const Glyphs& second) {
    const AlignmentCosts costs(first, second);
    std::vector<ReadingPair> pairs;
    size_t i = 0;
    size_t j = 0;
    while (i < first.size() || j < second.size()) {
        const bool hasBoth = i < first.size() && j < second.size();
        if (hasBoth && costs.at(i, j) ==
                           costs.at(i + 1, j + 1) + AlignmentCosts::difference(first[i], second[j]))
            pairs.push_back({&first[i++], &second[j++]});
        else if (i < first.size() && costs.at(i, j) == costs.at(i + 1, j) + AlignmentCosts::gap)
            pairs.push_back({&first[i++], nullptr});
        else
            pairs.push_back({nullptr, &second[j++]});
    }
    return pairs;
}

double agreement(const std::vector<ReadingPair>& pairs) {
    int sure = 0;
    int confirmed = 0;
    for (const auto& [first, second] : pairs) {
        if (!first || scriptOf(first->text) != Script::ideograph ||
            first->confidence < sureCharacter)
            continue;
        ++sure;
        confirmed += second && second->text == first->text;
    }
    return sure == 0 ? 1 : static_cast<double>(confirmed) / sure;
}

Glyphs mergedReadings(const std::vector<ReadingPair>& pairs, const LineReader& reader) {
    constexpr double sureAddition = 0.4;
    Glyphs merged;
    std::vector<bool> isPlaced;
    for (const auto& [first, second] : pairs) {
        if (!second && first->confidence < sureCharacter) continue;
        if (!first && second->confidence < sureAddition) continue;
        merged.push_back(first && second ? betterOf(*first, *second, reader)
                         : first         ? *first
                                         : *second);
        if (first) merged.back().center = first->center;
        isPlaced.push_back(first != nullptr);
    }
    placeBetween(merged, isPlaced);
    return merged;
}

}  // namespace kestrio
