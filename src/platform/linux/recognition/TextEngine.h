#pragma once

#include "platform/TextRecognizer.h"
#include "platform/linux/recognition/EastAsianReader.h"
#include "platform/linux/recognition/LineReader.h"
#include "platform/linux/recognition/RecognitionFiles.h"
#include "platform/linux/recognition/TextAreaFinder.h"

namespace kestrio {

/// Everything that reading needs, in memory while this lives. Used by one thread at a time, and
/// works on as many threads as there are cores.
class TextEngine {
  public:
    /// Throws TextRecognitionError.
    explicit TextEngine(const RecognitionFiles& files);
    ~TextEngine();

    /// The lines of the region in reading order. Throws TextRecognitionError, and Cancelled soon
    /// after a stop.
    std::vector<RecognizedLine> read(const TextRecognitionRequest& request,
                                     const std::stop_token& stop) const;

  private:
    std::vector<QRect> findAreas(const QImage& picture, QRect region,
                                 const std::stop_token& stop) const;
    Glyphs readLine(const LineImage& image, bool isCut, PageLanguages& page,
                    const std::stop_token& stop) const;

    std::unique_ptr<TextAreaFinder> finder_;
    std::unique_ptr<LineReader> reader_;
    std::unique_ptr<EastAsianReader> eastAsian_;
};

}  // namespace kestrio
