#include "platform/linux/recognition/EastAsianReader.h"

#include "platform/linux/recognition/ReadingMerge.h"

#include <algorithm>

namespace kestrio {

namespace {

constexpr double sureCharacter = 0.9;
constexpr double sureLine = 0.97;
constexpr double leastLine = 0.6;          // of the second reading, to count at all
constexpr double doubtfulLatinLine = 0.8;  // below it, what looks like Latin may be kana
constexpr double leastAspect = 2.5;        // of a line that may, width to height
constexpr double sureKanaLine = 0.85;      // of the second reading, where the first saw Latin

bool isEastAsian(const Glyph& glyph) {
    return scriptOf(glyph.text) == Script::ideograph || scriptOf(glyph.text) == Script::kana;
}

/// Kana apart from the long vowel mark and the middle dot, for which dashes and dots are taken.
int kanaCount(const Glyphs& glyphs) {
    return static_cast<int>(std::count_if(glyphs.begin(), glyphs.end(), [](const Glyph& glyph) {
        return scriptOf(glyph.text) == Script::kana && glyph.text != QStringLiteral("ー") &&
               glyph.text != QStringLiteral("・");
    }));
}

/// Whether the first reading may have missed or mistaken something that the others know.
bool isDoubtful(const LineImage& line, const Glyphs& glyphs) {
    if (std::none_of(glyphs.begin(), glyphs.end(), isEastAsian)) {
        const bool isLong = line.right - line.left > leastAspect * line.inkHeight();
        return isLong && meanConfidence(glyphs) < doubtfulLatinLine;
    }
    if (meanConfidence(glyphs) < sureLine) return true;
    return std::any_of(glyphs.begin(), glyphs.end(), [&line](const Glyph& glyph) {
        // Ink that is too wide for one character is that of a second, which was not read.
        const bool isTooWide = glyph.right - glyph.left > line.inkHeight() * 5 / 4;
        return isEastAsian(glyph) && (isTooWide || glyph.confidence < sureCharacter);
    });
}

}  // namespace

Glyphs EastAsianReader::readAs(Language language, const LineImage& line, const Glyphs& first,
                               const LineReader& reader, const PageLanguages& page,
                               const std::stop_token& stop) {
    constexpr int fewestKana = 2;
    constexpr double kanaShare = 0.15;
    constexpr double leastAgreement = 0.8;
    const bool isJapanese = language == Language::japanese;
    if (!(isJapanese ? page.mayBeJapanese : page.mayBeTraditional)) return {};
    const Glyphs second = library_.read(line, isJapanese ? "jpn" : "chi_tra", stop);
    if (second.empty() || meanConfidence(second) < leastLine) return {};
    if (isJapanese) {
        const int kana = kanaCount(second);
        const bool hasEastAsian = std::any_of(first.begin(), first.end(), isEastAsian);
        if (!hasEastAsian && meanConfidence(second) < sureKanaLine) return {};
        const bool isClear = kana >= kanaShare * static_cast<double>(second.size()) ||
                             meanConfidence(second) >= sureLine;
        if (kana < fewestKana || !isClear) return {};
    } else if (std::none_of(first.begin(), first.end(), isEastAsian)) {
        return {};
    }
    const auto pairs = aligned(first, second);
    if (!isJapanese && agreement(pairs) < leastAgreement) return {};
    Glyphs merged = mergedReadings(pairs, reader);
    placeGlyphs(merged, line);
    return merged;
}

Glyphs EastAsianReader::improved(const LineImage& line, Glyphs first, const LineReader& reader,
                                 PageLanguages& page, const std::stop_token& stop) {
    if (!isDoubtful(line, first)) return first;
    // Kana are hardly mistaken for anything else, while the Traditional model makes ideographs of
    // them; it goes first only where it must be right.
    const bool isTraditionalLikelier = page.traditionalLines > 2 && page.japaneseLines == 0;
    const double leastBeforeJapanese = 0.85;
    if (isTraditionalLikelier) {
        Glyphs better = readAs(Language::traditionalChinese, line, first, reader, page, stop);
        if (meanConfidence(better) >= leastBeforeJapanese) return better;
    }
    for (const Language language : {Language::japanese, Language::traditionalChinese}) {
        Glyphs better = readAs(language, line, first, reader, page, stop);
        if (better.empty()) continue;
        ++(language == Language::japanese ? page.japaneseLines : page.traditionalLines);
        return better;
    }
    return first;
}

}  // namespace kestrio
