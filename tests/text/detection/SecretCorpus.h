#pragma once

#include "text/detection/SensitiveInfoDetector.h"

#include <random>

namespace kestrio {

/// A line of a screen with what in it is private.
struct CorpusLine {
    struct Secret {
        SensitiveInfoType type;
        TextRange range;
    };

    QString text;
    std::vector<Secret> secrets;
};

/// Lines of logs, tables, mails, code and terminals with planted secrets among decoys: versions,
/// dates, hashes, prices, numbers of orders, names of code. Always the same for a seed.
std::vector<CorpusLine> corpusLines(unsigned seed, int count);

/// A line as a recogniser may read it, with where the secrets' characters are.
struct ReadLine {
    std::vector<OCRResult> boxes;
    QString text;  ///< of all boxes
    struct Secret {
        SensitiveInfoType type;
        std::vector<QRectF> characters;  ///< pixels
    };
    std::vector<Secret> secrets;
};

enum class ReadingQuality { faultless, faulty };

/// Lays a line out at `top` in pixels. A faulty reading has one or two of a recogniser's usual
/// mistakes; it is less sure of a character that it takes for another, though not always.
ReadLine readLine(const CorpusLine& line, double top, ReadingQuality quality, std::mt19937& random);

}  // namespace kestrio
