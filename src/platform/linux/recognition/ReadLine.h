#pragma once

#include "platform/linux/recognition/LineImage.h"

#include <QString>
#include <vector>

namespace kestrio {

/// A character of a line with the ink that it is made of.
struct Glyph {
    QString text;           ///< one character, never a space
    double center = 0;      ///< column of the line's plane
    double confidence = 0;  ///< 0 to 1
    int left = 0;           ///< columns of the plane; `right` is behind the last
    int right = 0;
    int top = 0;  ///< rows of the plane; `bottom` is behind the last
    int bottom = 0;
    int spacesBefore = 0;
};

using Glyphs = std::vector<Glyph>;

/// The script of a character as far as reading depends on it.
enum class Script { latin, ideograph, kana, other };
Script scriptOf(const QString& character);

/// How many of the characters are of this script.
int countOf(const Glyphs& glyphs, Script script);

/// The mean of the characters' confidences; 0 for none.
double meanConfidence(const Glyphs& glyphs);

/// The value below which pixels of a character are ink: half of its own contrast.
int inkLimitOf(const Glyph& glyph, const LineImage& line);

/// Finds the ink of each character: the columns between it and its neighbours.
void placeGlyphs(Glyphs& glyphs, const LineImage& line);

}  // namespace kestrio
