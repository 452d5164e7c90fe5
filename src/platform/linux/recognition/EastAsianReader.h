#pragma once

#include "platform/linux/recognition/LineReader.h"
#include "platform/linux/recognition/TesseractLibrary.h"

#include <atomic>

namespace kestrio {

/// What lines of a picture may be written in, and what those so far were written in: most are of
/// one language.
struct PageLanguages {
    bool mayBeJapanese = true;
    bool mayBeTraditional = true;
    std::atomic<int> japaneseLines{0};
    std::atomic<int> traditionalLines{0};
};

/// Makes up for what the main reader does not know: it reads Simplified Chinese and most of the
/// Traditional characters, but no kana and not all Traditional ones. Lines in which something is
/// doubtful are read once more by models for Japanese and Traditional Chinese, and of the two
/// readings the better character counts at each place. Threads may share it.
class EastAsianReader {
  public:
    /// What `first` lacks, in the line from which it was read.
    Glyphs improved(const LineImage& line, Glyphs first, const LineReader& reader,
                    PageLanguages& page, const std::stop_token& stop);

  private:
    enum class Language { japanese, traditionalChinese };

    Glyphs readAs(Language language, const LineImage& line, const Glyphs& first,
                  const LineReader& reader, const PageLanguages& page, const std::stop_token& stop);

    TesseractLibrary library_;
};

}  // namespace kestrio
