#include "platform/linux/recognition/LineSpelling.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace kestrio {

namespace {

const QString sameShapes = QStringLiteral("coOCsSuUvVwWxXzZpP0");

bool isIn(const QString& character, const char* set) {
    return QString::fromLatin1(set).contains(character);
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Where letters of a line begin, in rows: small ones, and capitals and digits.
struct LetterTops {
    double small;
    double tall;
};

/// The first row with a good part of the character, not just the tip of a neighbour that leans
/// over.
int bodyTop(const Glyph& glyph, const LineImage& line) {
    const int width = glyph.right - glyph.left;
    const int limit = inkLimitOf(glyph, line);
    for (int y = glyph.top; y < glyph.bottom; ++y) {
        const auto* row = line.ink.row(y);
        const auto ink = std::count_if(row + glyph.left, row + glyph.right,
                                       [limit](int value) { return value < limit; });
        if (ink * 4 > width) return y;
    }
    return glyph.top;
}

std::optional<LetterTops> letterTops(const Glyphs& glyphs, const LineImage& line) {
    std::vector<double> small;
    std::vector<double> tall;
    for (const Glyph& glyph : glyphs) {
        if (glyph.right - glyph.left < 2) continue;
        if (isIn(glyph.text, "aemnrgqy")) small.push_back(bodyTop(glyph, line));
        if (isIn(glyph.text, "bdhklABDEFGHKLMNRTY23456789")) tall.push_back(bodyTop(glyph, line));
    }
    if (small.empty() || tall.empty()) return {};
    const LetterTops tops{median(std::move(small)), median(std::move(tall))};
    if (tops.small - tops.tall < 1.5) return {};
    return tops;
}

void correctCase(Glyphs& glyphs, const LineImage& line) {
    const auto tops = letterTops(glyphs, line);
    if (!tops) return;
    const double between = (tops->small + tops->tall) / 2;
    for (Glyph& glyph : glyphs) {
        if (!sameShapes.contains(glyph.text)) continue;
        const bool isTall = bodyTop(glyph, line) < between;
        if (glyph.text == QLatin1String("0")) {
            if (!isTall) glyph.text = QStringLiteral("o");
        } else {
            glyph.text = isTall ? glyph.text.toUpper() : glyph.text.toLower();
        }
    }
}

bool isDigit(const QString& character) {
    return isIn(character, "0123456789");
}

bool isHexadecimal(const QString& character) {
    return isIn(character, "0123456789abcdefABCDEF");
}

void replaceLookalikes(Glyphs& glyphs, size_t first, size_t end) {
    for (size_t at = first; at < end; ++at) {
        QString& text = glyphs[at].text;
        if (isIn(text, "Oo")) text = QStringLiteral("0");
        if (isIn(text, "Il|")) text = QStringLiteral("1");
    }
}

/// Runs of digits and what looks like digits, with the marks of numbers between; and colours, which
/// are digits behind a hash.
void correctDigits(Glyphs& glyphs) {
    for (size_t first = 0; first < glyphs.size();) {
        const bool isColor = glyphs[first].text == QLatin1String("#");
        size_t end = first + (isColor ? 1 : 0);
        int digits = 0;
        int alike = 0;
        for (; end < glyphs.size() && (end == first || glyphs[end].spacesBefore == 0); ++end) {
            const QString& text = glyphs[end].text;
            const bool looksLikeDigit = isIn(text, "OoIl|");
            const bool belongs = isColor ? isHexadecimal(text) : isIn(text, "0123456789.,:%$+-/");
            if (!looksLikeDigit && !belongs) break;
            digits += isDigit(text);
            alike += looksLikeDigit;
        }
        const auto isLetter = [&glyphs](size_t at) {
            return at < glyphs.size() && glyphs[at].text[0].isLetter();
        };
        const bool isWithinWord =
            (first > 0 && isLetter(first - 1) && glyphs[first].spacesBefore == 0) ||
            (isLetter(end) && glyphs[end].spacesBefore == 0);
        const bool isWhole = isColor ? end - first >= 4 : !isWithinWord && digits >= alike;
        if (isWhole && digits > 0 && alike > 0) replaceLookalikes(glyphs, first, end);
        first = std::max(end, first + 1);
    }
}

/// A nought behind small letters, as in eth0, of which the reader makes a capital; and the letter O
/// within a word of capitals, of which it makes a nought.
void correctNoughts(Glyphs& glyphs) {
    const auto isCapital = [&glyphs](size_t at) {
        return at < glyphs.size() && glyphs[at].text[0].isUpper();
    };
    for (size_t at = 1; at < glyphs.size(); ++at) {
        if (glyphs[at].spacesBefore > 0) continue;
        const bool isLast = at + 1 == glyphs.size() || glyphs[at + 1].spacesBefore > 0;
        const bool endsWord = isLast || !glyphs[at + 1].text[0].isLetter();
        if (glyphs[at].text == QLatin1String("O") && endsWord && glyphs[at - 1].text[0].isLower())
            glyphs[at].text = QStringLiteral("0");
        if (glyphs[at].text != QLatin1String("0")) continue;
        const bool isWithin =
            isCapital(at - 1) && (isLast ? at >= 2 && isCapital(at - 2) : isCapital(at + 1));
        if (isWithin) glyphs[at].text = QStringLiteral("O");
    }
}

bool isWide(const Glyph& glyph) {
    return scriptOf(glyph.text) == Script::ideograph || scriptOf(glyph.text) == Script::kana ||
           glyph.text[0].unicode() >= 0x3000;
}

double middleOf(const Glyph& glyph) {
    return (glyph.left + glyph.right) / 2.0;
}

/// The usual distance from a character to the next in its word; 0 where no two are in one.
double usualDistance(const Glyphs& glyphs) {
    std::vector<double> distances;
    for (size_t at = 1; at < glyphs.size(); ++at)
        if (glyphs[at].spacesBefore == 0)
            distances.push_back(middleOf(glyphs[at]) - middleOf(glyphs[at - 1]));
    return distances.empty() ? 0 : median(std::move(distances));
}

/// How far the characters are from cells of this width, as a mean part of a cell.
double distanceFromCells(const Glyphs& glyphs, double pitch) {
    double sum = 0;
    for (const Glyph& glyph : glyphs) {
        const double place = (middleOf(glyph) - middleOf(glyphs.front())) / pitch;
        sum += std::abs(place - std::round(place));
    }
    return sum / static_cast<double>(glyphs.size());
}

/// Whether most characters of a word are one cell apart.
bool isPitchOfWords(const Glyphs& glyphs, double pitch) {
    constexpr double variation = 0.25;
    constexpr double share = 0.9;
    int pairs = 0;
    int regular = 0;
    for (size_t at = 1; at < glyphs.size(); ++at) {
        if (glyphs[at].spacesBefore > 0) continue;
        const double cells = (middleOf(glyphs[at]) - middleOf(glyphs[at - 1])) / pitch;
        ++pairs;
        regular += std::abs(cells - 1) < variation;
    }
    return regular >= share * pairs;
}

/// The distance from character to character where all have the same, in columns. Few characters
/// may stand like that by chance.
std::optional<double> fixedPitch(const Glyphs& glyphs) {
    constexpr size_t fewestCharacters = 8;
    constexpr double tolerance = 0.13;
    constexpr double variation = 0.12;
    const double usual = usualDistance(glyphs);
    if (glyphs.size() < fewestCharacters || usual <= 0) return {};
    const double span = middleOf(glyphs.back()) - middleOf(glyphs.front());
    std::optional<double> best;
    double least = tolerance;
    // A pitch is tried by how many cells lie between the first character and the last.
    const int most = static_cast<int>(span / (usual * (1 - variation)));
    for (int cells = std::max(1, static_cast<int>(span / (usual * (1 + variation)))); cells <= most;
         ++cells) {
        const double error = distanceFromCells(glyphs, span / cells);
        if (error >= least) continue;
        least = error;
        best = span / cells;
    }
    if (best && !isPitchOfWords(glyphs, *best)) best.reset();
    return best;
}

void spaceByPitch(Glyphs& glyphs, double pitch) {
    for (size_t at = 1; at < glyphs.size(); ++at) {
        const double distance = middleOf(glyphs[at]) - middleOf(glyphs[at - 1]);
        glyphs[at].spacesBefore = std::max(0, static_cast<int>(std::lround(distance / pitch)) - 1);
    }
}

/// Gaps as parts of the ink's height: below the one there is no space, above the other there is
/// one, and between them the reader decides.
struct SpaceLimits {
    double none;
    double certain;
};

/// Told by the gaps in which the reader saw spaces and those in which it did not.
SpaceLimits spaceLimits(const Glyphs& glyphs, double inkHeight) {
    constexpr SpaceLimits expected{0.1, 0.36};
    constexpr size_t enough = 3;
    std::vector<double> within;
    std::vector<double> between;
    for (size_t at = 1; at < glyphs.size(); ++at) {
        if (isWide(glyphs[at]) || isWide(glyphs[at - 1])) continue;
        const double gap = (glyphs[at].left - glyphs[at - 1].right) / inkHeight;
        (glyphs[at].spacesBefore > 0 ? between : within).push_back(gap);
    }
    if (within.size() < enough || between.size() < enough) return expected;
    const double middle =
        std::clamp((median(std::move(within)) + median(std::move(between))) / 2, 0.15, 0.4);
    const double doubt = 0.6 / inkHeight;  // of a pixel
    return {middle - doubt, middle + doubt};
}

/// The gap from which on there is a space beside an East Asian character, of which most stand in
/// the middle of a square. Marks, kana and whatever else has room of its own around it.
double leastGapBesideWide(const Glyph& before, const Glyph& glyph) {
    constexpr double afterFullSquare = 0.3;
    constexpr double beforeLetter = 0.24;
    constexpr double afterOthers = 0.9;
    const auto isIdeograph = [](const Glyph& one) {
        return scriptOf(one.text) == Script::ideograph;
    };
    const auto isLetter = [](const Glyph& one) {
        return !isWide(one) && one.text[0].isLetterOrNumber();
    };
    if (isIdeograph(before) && isIdeograph(glyph)) return afterFullSquare;
    if ((isIdeograph(before) && isLetter(glyph)) || (isLetter(before) && isIdeograph(glyph)))
        return beforeLetter;
    return afterOthers;
}

void spaceByGaps(Glyphs& glyphs, double inkHeight) {
    const SpaceLimits limits = spaceLimits(glyphs, inkHeight);
    for (size_t at = 1; at < glyphs.size(); ++at) {
        const double gap = (glyphs[at].left - glyphs[at - 1].right) / inkHeight;
        int& spaces = glyphs[at].spacesBefore;
        if (isWide(glyphs[at]) || isWide(glyphs[at - 1]))
            spaces = gap > leastGapBesideWide(glyphs[at - 1], glyphs[at]) ? 1 : 0;
        else if (gap < limits.none)
            spaces = 0;
        else if (gap > limits.certain)
            spaces = 1;
    }
}

/// Runs of columns with ink within a character.
std::vector<std::pair<int, int>> inkRuns(const Glyph& glyph, const LineImage& line) {
    const auto columns = inkColumns(line, inkLimitOf(glyph, line));
    std::vector<std::pair<int, int>> runs;
    for (int x = glyph.left; x < glyph.right; ++x) {
        if (!columns[static_cast<size_t>(x)]) continue;
        if (!runs.empty() && runs.back().second == x)
            ++runs.back().second;
        else
            runs.emplace_back(x, x + 1);
    }
    return runs;
}

/// Splits a character into one for each run of ink.
void split(Glyphs& glyphs, size_t at, const std::vector<std::pair<int, int>>& runs) {
    const Glyph whole = glyphs[at];
    for (size_t index = 0; index < runs.size(); ++index) {
        Glyph part = whole;
        part.left = runs[index].first;
        part.right = runs[index].second;
        if (index > 0) part.spacesBefore = 0;
        if (index == 0)
            glyphs[at] = part;
        else
            glyphs.insert(glyphs.begin() + static_cast<std::ptrdiff_t>(at + index), part);
    }
}

/// Whether runs of ink are the same sign again and again: as wide, and in the same rows.
bool areRepeated(const Glyph& glyph, const LineImage& line,
                 const std::vector<std::pair<int, int>>& runs) {
    const int limit = inkLimitOf(glyph, line);
    std::optional<std::pair<int, int>> rows;
    const int width = runs.front().second - runs.front().first;
    for (const auto& [left, right] : runs) {
        int top = line.bottom;
        int bottom = line.top;
        for (int y = line.top; y < line.bottom; ++y) {
            const auto* row = line.ink.row(y);
            if (std::none_of(row + left, row + right, [limit](int value) { return value < limit; }))
                continue;
            top = std::min(top, y);
            bottom = y;
        }
        if (!rows) rows.emplace(top, bottom);
        if (std::abs(right - left - width) > 1 || std::abs(top - rows->first) > 1 ||
            std::abs(bottom - rows->second) > 1)
            return false;
    }
    return true;
}

/// Signs of one piece that stand beside each other, of which the reader saw fewer, as in `::` and
/// rows of dashes; and empty brackets that it took for a ring.
void splitRepeatedSigns(Glyphs& glyphs, const LineImage& line) {
    for (size_t at = 0; at < glyphs.size(); ++at) {
        const bool isRing = isIn(glyphs[at].text, "oO0");
        if (!isRing && !isIn(glyphs[at].text, ":!-")) continue;
        const auto runs = inkRuns(glyphs[at], line);
        if (runs.size() < 2 || !areRepeated(glyphs[at], line, runs)) continue;
        if (isRing && runs.size() > 2) continue;
        split(glyphs, at, runs);
        if (isRing) {
            glyphs[at].text = QStringLiteral("(");
            glyphs[at + 1].text = QStringLiteral(")");
        }
        at += runs.size() - 1;
    }
}

/// Signs that fill two cells of a fixed pitch.
void splitWideSigns(Glyphs& glyphs, const LineImage& line, double pitch) {
    constexpr double leastWidth = 1.5;
    for (size_t at = 0; at < glyphs.size(); ++at) {
        if (glyphs[at].text[0].isLetterOrNumber() ||
            glyphs[at].right - glyphs[at].left < leastWidth * pitch)
            continue;
        const auto runs = inkRuns(glyphs[at], line);
        if (runs.size() == 2) split(glyphs, at, runs);
    }
}

/// Backquotes, of which the reader makes carets and quotation marks.
void correctBackquotes(Glyphs& glyphs, double inkHeight, bool hasFixedPitch) {
    constexpr double narrowerThanCaret = 0.36;
    for (Glyph& glyph : glyphs) {
        const bool isNarrow = glyph.right - glyph.left < narrowerThanCaret * inkHeight;
        if ((glyph.text == QLatin1String("^") && isNarrow) ||
            (glyph.text == QStringLiteral("‘") && hasFixedPitch))
            glyph.text = QStringLiteral("`");
    }
}

}  // namespace

void correctSpelling(Glyphs& glyphs, const LineImage& line) {
    if (glyphs.empty()) return;
    const bool isLatin = countOf(glyphs, Script::ideograph) + countOf(glyphs, Script::kana) == 0;
    const double inkHeight = line.inkHeight();
    const auto pitch = isLatin ? fixedPitch(glyphs) : std::nullopt;
    if (isLatin) splitRepeatedSigns(glyphs, line);
    if (pitch) {
        splitWideSigns(glyphs, line, *pitch);
        spaceByPitch(glyphs, *pitch);
    } else {
        spaceByGaps(glyphs, inkHeight);
    }
    if (!isLatin) return;
    correctBackquotes(glyphs, inkHeight, pitch.has_value());
    correctCase(glyphs, line);
    correctDigits(glyphs);
    correctNoughts(glyphs);
}

}  // namespace kestrio
