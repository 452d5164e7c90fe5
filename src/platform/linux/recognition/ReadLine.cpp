#include "platform/linux/recognition/ReadLine.h"

#include <algorithm>
#include <cmath>

namespace kestrio {

namespace {

/// How much ink each column has within the line's rows.
std::vector<int> columnInk(const LineImage& line) {
    std::vector<int> sums(static_cast<size_t>(line.ink.width), 0);
    for (int y = line.top; y < line.bottom; ++y) {
        const auto* row = line.ink.row(y);
        for (int x = 0; x < line.ink.width; ++x)
            sums[static_cast<size_t>(x)] += 255 - row[x];
    }
    return sums;
}

/// The column between two characters: where the ink is thinnest, next to the middle.
int boundary(const std::vector<int>& ink, double from, double to) {
    const int last = static_cast<int>(ink.size()) - 1;
    const int first = std::clamp(static_cast<int>(std::ceil(from)), 0, last);
    const int end = std::clamp(static_cast<int>(std::floor(to)), first, last);
    const double middle = (from + to) / 2;
    int best = std::clamp(static_cast<int>(middle), 0, last);
    double least = 1e9;
    for (int x = first; x <= end; ++x) {
        const double cost = ink[static_cast<size_t>(x)] + 20 * std::abs(x + 0.5 - middle);
        if (cost < least) {
            least = cost;
            best = x;
        }
    }
    return best;
}

void shrinkToInk(Glyph& glyph, const LineImage& line) {
    const int limit = inkLimitOf(glyph, line);
    int left = glyph.right;
    int right = glyph.left;
    int top = line.bottom;
    int bottom = line.top;
    for (int y = line.top; y < line.bottom; ++y) {
        const auto* row = line.ink.row(y);
        for (int x = glyph.left; x < glyph.right; ++x) {
            if (row[x] >= limit) continue;
            left = std::min(left, x);
            right = std::max(right, x + 1);
            top = std::min(top, y);
            bottom = std::max(bottom, y + 1);
        }
    }
    if (left >= right) {
        glyph.top = line.top;
        glyph.bottom = line.bottom;
        return;
    }
    glyph.left = left;
    glyph.right = right;
    glyph.top = top;
    glyph.bottom = bottom;
}

}  // namespace

Script scriptOf(const QString& character) {
    const char32_t code = character.toUcs4().value(0);
    if (code >= 0x3040 && code <= 0x30FF) return Script::kana;
    if ((code >= 0x3400 && code <= 0x9FFF) || code == 0x3005 ||
        (code >= 0xF900 && code <= 0xFAFF) || code >= 0x20000)
        return Script::ideograph;
    return code < 0x250 ? Script::latin : Script::other;
}

int countOf(const Glyphs& glyphs, Script script) {
    return static_cast<int>(
        std::count_if(glyphs.begin(), glyphs.end(),
                      [script](const Glyph& glyph) { return scriptOf(glyph.text) == script; }));
}

double meanConfidence(const Glyphs& glyphs) {
    double sum = 0;
    for (const Glyph& glyph : glyphs)
        sum += glyph.confidence;
    return glyphs.empty() ? 0 : sum / static_cast<double>(glyphs.size());
}

int inkLimitOf(const Glyph& glyph, const LineImage& line) {
    int darkest = 255;
    for (int y = line.top; y < line.bottom; ++y) {
        const auto* row = line.ink.row(y);
        for (int x = glyph.left; x < glyph.right; ++x)
            darkest = std::min<int>(darkest, row[x]);
    }
    return std::clamp(128 + darkest / 2, inkLimit, paleInkLimit);
}

void placeGlyphs(Glyphs& glyphs, const LineImage& line) {
    const auto ink = columnInk(line);
    for (size_t index = 0; index < glyphs.size(); ++index) {
        Glyph& glyph = glyphs[index];
        glyph.left = index == 0 ? line.left : glyphs[index - 1].right;
        glyph.right = index + 1 == glyphs.size()
                          ? line.right
                          : boundary(ink, glyph.center, glyphs[index + 1].center);
        glyph.right = std::max(glyph.right, glyph.left);
    }
    for (Glyph& glyph : glyphs)
        shrinkToInk(glyph, line);
}

}  // namespace kestrio
