#pragma once

#include "text/recognition/OCRCache.h"
#include "text/recognition/OCRServiceProtocol.h"

namespace kestrio {

/// The lines of a picture as features use them: each with a name of its own, its confidence limited
/// to 0...1, and marked where it is code.
std::vector<OCRResultWithConfidence> markedResults(const std::vector<OCRResult>& results);

/// Reads by the desktop's recogniser, within a time limit, and keeps what it read in whole
/// pictures. One for all windows, so that they share what it keeps.
class OCRService : public OCRServiceProtocol {
  public:
    /// How long reading may take in a window. What is over it is stopped.
    static constexpr std::chrono::milliseconds timeoutDuration{5000};
    /// The same where nobody waits before a window: a long page may take its time, but not for
    /// ever.
    static constexpr std::chrono::minutes unattendedTimeout{5};

    /// `recognizer` may be null where the desktop has none.
    explicit OCRService(std::shared_ptr<TextRecognizer> recognizer,
                        std::chrono::milliseconds timeout = timeoutDuration,
                        OCRCacheStore::Clock now = std::chrono::steady_clock::now);

    QString obstacle() const override;
    Task<std::vector<OCRResult>> recognizeLines(Image image, std::stop_token stop) override;
    Task<std::vector<OCRResultWithConfidence>> recognizeText(Image image,
                                                             std::stop_token stop) override;
    Task<std::vector<OCRResultWithConfidence>> recognizeText(Image image, QRectF region,
                                                             std::stop_token stop) override;

  private:
    // What flows need that may outlive the service.
    struct Engine {
        std::shared_ptr<TextRecognizer> recognizer;
        std::chrono::milliseconds timeout;

        QString obstacle() const;
    };
    static Task<std::vector<OCRResult>> recognize(Engine engine, Image image, QRect region,
                                                  std::stop_token stop);

    const Engine engine_;
    const std::shared_ptr<OCRCacheStore> cache_;
};

}  // namespace kestrio
