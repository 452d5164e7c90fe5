#pragma once

#include "text/patterns/PatternMatcher.h"
#include "text/recognition/OCRServiceProtocol.h"

namespace kestrio {

/// A piece of private data in a picture.
struct DetectionResult {
    SensitiveInfoType type = SensitiveInfoType::custom;
    QString text;
    QRectF boundingBox;     ///< pixels from the picture's top left
    double confidence = 0;  ///< of the line that it stands in, 0 to 1

    bool operator==(const DetectionResult&) const = default;
};

/// Why a picture could not be searched for private data.
class SensitiveInfoDetectionError : public Error {
  public:
    enum class Case { ocrFailed, processingFailed, noImageProvided };

    static SensitiveInfoDetectionError ocrFailed(QString reason) {
        return {Case::ocrFailed, std::move(reason)};
    }
    static SensitiveInfoDetectionError processingFailed(QString reason) {
        return {Case::processingFailed, std::move(reason)};
    }
    static SensitiveInfoDetectionError noImageProvided() { return {Case::noImageProvided, {}}; }

    Case errorCase() const { return case_; }
    QString errorDescription() const override;

  private:
    SensitiveInfoDetectionError(Case errorCase, QString reason)
        : case_(errorCase), reason_(std::move(reason)) {}

    Case case_;
    QString reason_;
};

class SensitiveInfoDetectorProtocol {
  public:
    virtual ~SensitiveInfoDetectorProtocol() = default;

    /// Why nothing can be searched on this machine, as a sentence for the user; empty where it can.
    virtual QString obstacle() const = 0;
    /// The private data that a picture shows, line by line. Throws SensitiveInfoDetectionError, and
    /// Cancelled after a stop. Main thread; the search itself is done in the background.
    virtual Task<std::vector<DetectionResult>> detect(Image image, std::stop_token stop) = 0;
};

/// Reads the picture and searches what was read, with the patterns and switches as they are stored
/// when the search begins.
class SensitiveInfoDetector : public SensitiveInfoDetectorProtocol {
  public:
    SensitiveInfoDetector(std::shared_ptr<OCRServiceProtocol> ocrService,
                          std::shared_ptr<PatternMatcherProtocol> patternMatcher)
        : ocrService_(std::move(ocrService)), patternMatcher_(std::move(patternMatcher)) {}

    QString obstacle() const override;
    Task<std::vector<DetectionResult>> detect(Image image, std::stop_token stop) override;

  private:
    std::shared_ptr<OCRServiceProtocol> ocrService_;
    std::shared_ptr<PatternMatcherProtocol> patternMatcher_;
};

/// What lines of a picture of `size` pixels show. Any thread. Ends early, with what was found,
/// after a stop of the scan.
std::vector<DetectionResult> sensitiveInfoIn(const std::vector<OCRResult>& lines, QSize size,
                                             const PatternMatcherProtocol& matcher,
                                             PatternScan& scan, const QString& region);

}  // namespace kestrio
