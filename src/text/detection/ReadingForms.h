#pragma once

#include "text/detection/MappedText.h"
#include "text/detection/VisualLine.h"

namespace kestrio {

/// A text that a line may have had before it was read.
struct ReadingForm {
    MappedText text;
    /// Digits that stood apart were put together, so that their grouping says nothing any more.
    bool joinsNumbers = false;
};

/// A line as given, and with the usual mistakes of recognisers taken back: full-width signs, spaces
/// around signs and within numbers, split words, letters for digits. No two have the same text; the
/// first is the line as it is.
std::vector<ReadingForm> readingForms(const VisualLine& line);

}  // namespace kestrio
