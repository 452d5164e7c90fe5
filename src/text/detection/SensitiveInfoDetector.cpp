#include "text/detection/SensitiveInfoDetector.h"

#include "core/Log.h"
#include "text/detection/FindingRect.h"
#include "text/detection/LineFindings.h"
#include "text/detection/PhoneNumbers.h"
#include "text/recognition/OCRError.h"

namespace kestrio {

namespace {

struct SearchedPicture {
    std::vector<DetectionResult> detections;
    std::set<QString> unfinishedPatterns;
};

Task<std::vector<OCRResult>> linesOf(std::shared_ptr<OCRServiceProtocol> service, Image image,
                                     std::stop_token stop) {
    try {
        auto reading = service->recognizeLines(image, stop);
        co_return co_await reading;
    } catch (const OCRError& error) {
        if (error.which() == OCRError::Case::noTextFound) co_return {};
        throw SensitiveInfoDetectionError::ocrFailed(error.errorDescription());
    } catch (const Cancelled&) {
        throw;
    } catch (const std::exception& error) {
        throw SensitiveInfoDetectionError::ocrFailed(describeFailure(error));
    }
}

}  // namespace

QString SensitiveInfoDetectionError::errorDescription() const {
    switch (case_) {
        case Case::ocrFailed:
            return Kestrio::tr("OCR failed: %1").arg(reason_);
        case Case::processingFailed:
            return Kestrio::tr("Processing failed: %1").arg(reason_);
        case Case::noImageProvided:
            return Kestrio::tr("No image provided for scanning");
    }
    return {};
}

QString SensitiveInfoDetector::obstacle() const {
    return ocrService_->obstacle();
}

Task<std::vector<DetectionResult>> SensitiveInfoDetector::detect(Image image,
                                                                 std::stop_token stop) {
    if (image.isNull()) throw SensitiveInfoDetectionError::noImageProvided();
    // Not members from here on: whoever asked may be gone before the answer.
    const auto matcher = patternMatcher_;
    const QSize size = image.pixelSize();
    auto reading = linesOf(ocrService_, image, stop);
    const std::vector<OCRResult> lines = co_await reading;
    throwIfStopped(stop);
    matcher->reload();
    const QString region = phoneRegion();
    const auto searching = runInBackground([lines, size, matcher, region, stop] {
        PatternScan scan(stop);
        auto detections = sensitiveInfoIn(lines, size, *matcher, scan, region);
        return SearchedPicture{std::move(detections), scan.unfinished()};
    });
    SearchedPicture searched;
    try {
        searched = co_await searching;
    } catch (const std::exception& error) {
        throw SensitiveInfoDetectionError::processingFailed(describeFailure(error));
    }
    throwIfStopped(stop);
    for (const QString& name : searched.unfinishedPatterns)
        logLine("SensitiveInfoDetector", Kestrio::tr("The pattern %1 took too long.").arg(name));
    co_return std::move(searched.detections);
}

std::vector<DetectionResult> sensitiveInfoIn(const std::vector<OCRResult>& lines, QSize size,
                                             const PatternMatcherProtocol& matcher,
                                             PatternScan& scan, const QString& region) {
    const LineSearch search(matcher, lines, scan, region);
    std::vector<DetectionResult> detections;
    for (const VisualLine& line : visualLines(lines, size)) {
        for (const Finding& finding : search.findingsIn(line)) {
            const FindingPlace place = placeOf(finding.range, line, lines, size);
            detections.push_back({finding.type, finding.text, place.rect, place.confidence});
        }
    }
    return detections;
}

}  // namespace kestrio
