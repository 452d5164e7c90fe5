#pragma once

#include "platform/TextRecognizer.h"

namespace kestrio {

/// Reads what a test has written into `lines`, or fails on demand.
class ScriptedTextRecognizer : public TextRecognizer {
  public:
    std::vector<RecognizedLine> lines;
    std::optional<TextRecognitionError> failure;
    QString missing;                        ///< what obstacle() says
    std::chrono::milliseconds duration{0};  ///< how long each recognition takes
    std::vector<TextRecognitionRequest> requests;
    int stoppedCount = 0;

    QString obstacle() const override { return missing; }

    Task<std::vector<RecognizedLine>> recognize(TextRecognitionRequest request,
                                                std::stop_token stop) override {
        requests.push_back(request);
        try {
            const auto work = sleepFor(duration, stop);
            co_await work;
        } catch (const Cancelled&) {
            ++stoppedCount;
            throw;
        }
        if (failure) throw *failure;
        // QCoro moves out of what is returned by name, also where it is no local variable.
        std::vector<RecognizedLine> read = lines;
        co_return read;
    }
};

/// A line whose characters are equally wide.
inline RecognizedLine evenLine(QString text, QRectF rect, double confidence = 0.95) {
    RecognizedLine line{std::move(text), rect, confidence, {}, {}};
    const double width = rect.width() / std::max<double>(1, line.text.size());
    for (int index = 0; index < line.text.size(); ++index) {
        line.characters.emplace_back(rect.left() + index * width, rect.top(), width, rect.height());
        line.characterConfidences.push_back(confidence);
    }
    return line;
}

}  // namespace kestrio
