#pragma once

#include "platform/linux/recognition/ReadLine.h"

namespace kestrio {

/// What the shapes of a line say about its spelling, where a reader that sees each character for
/// itself cannot know: letters whose capital looks the same are told by their height, letters and
/// digits that look alike by their neighbours, and spaces by the gaps. The glyphs have been placed.
void correctSpelling(Glyphs& glyphs, const LineImage& line);

}  // namespace kestrio
