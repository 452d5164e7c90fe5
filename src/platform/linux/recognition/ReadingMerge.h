#pragma once

#include "platform/linux/recognition/LineReader.h"

namespace kestrio {

/// Characters of two readings of one line at the same place; null where one of them has none.
struct ReadingPair {
    const Glyph* first = nullptr;
    const Glyph* second = nullptr;
};

/// The readings side by side, so that as many characters as possible are the same. What the
/// readers say of places is not used: not all of them are precise.
std::vector<ReadingPair> aligned(const Glyphs& first, const Glyphs& second);

/// How many of the first reading's sure ideographs the second one confirms, as a fraction; 1 where
/// there is none to confirm.
double agreement(const std::vector<ReadingPair>& pairs);

/// The better character at each place, at the places of the first reading, which are precise.
/// `reader` is who read it.
Glyphs mergedReadings(const std::vector<ReadingPair>& pairs, const LineReader& reader);

}  // namespace kestrio
