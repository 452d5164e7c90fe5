#include "text/recognition/OCRService.h"

#include "core/Localisation.h"
#include "text/recognition/CodeDetection.h"
#include "text/recognition/OCRError.h"

#include <algorithm>

namespace kestrio {

namespace {

// The likeliest first.
QStringList recognitionLanguages() {
    return {QStringLiteral("en-US"), QStringLiteral("zh-Hans"), QStringLiteral("zh-Hant"),
            QStringLiteral("ja-JP")};
}

void requirePicture(const Image& image) {
    if (!image.isNull()) return;
    const bool hadSize = !image.pointSize().isEmpty();
    throw OCRError(hadSize ? OCRError::Case::imageConversionFailed : OCRError::Case::invalidImage);
}

// Fractions that were divided and added up may be off by an error of rounding.
constexpr double rounding = 1e-9;

bool isInside(const QRectF& fractions) {
    return fractions.x() >= 0 && fractions.y() >= 0 && fractions.width() > 0 &&
           fractions.height() > 0 && fractions.right() <= 1 + rounding &&
           fractions.bottom() <= 1 + rounding;
}

// Every pixel that the region touches; those of a region that was made of pixels exactly.
QRect pixelsIn(const QRectF& fractions, QSize size) {
    const double slack = rounding * std::max(size.width(), size.height());
    const QRectF pixels = pixelsFromNormalized(fractions, size);
    const QRect touched = pixels.adjusted(slack, slack, -slack, -slack).toAlignedRect();
    return touched & QRect(QPoint(), size);
}

std::vector<OCRResult> normalized(std::vector<RecognizedLine> lines, QSize size) {
    std::vector<OCRResult> results;
    results.reserve(lines.size());
    for (RecognizedLine& line : lines) {
        results.push_back({line.text, normalizedFromPixels(line.rect, size), line.confidence, {}});
        results.back().recognizedText = std::move(line);
    }
    return results;
}

}  // namespace

std::vector<OCRResultWithConfidence> markedResults(const std::vector<OCRResult>& results) {
    const std::vector<CodeBlock> code = detectCodeBlocks(results);
    std::vector<OCRResultWithConfidence> marked;
    marked.reserve(results.size());
    for (const OCRResult& result : results) {
        const bool isCodeBlock = std::ranges::any_of(
            code, [&](const CodeBlock& block) { return block.bounds == result.boundingBox; });
        marked.push_back({QUuid::createUuid(), result.text, result.boundingBox,
                          std::clamp(result.confidence, 0.0, 1.0), isCodeBlock});
    }
    return marked;
}

OCRService::OCRService(std::shared_ptr<TextRecognizer> recognizer,
                       std::chrono::milliseconds timeout, OCRCacheStore::Clock now)
    : engine_{std::move(recognizer), timeout},
      cache_(std::make_shared<OCRCacheStore>(std::move(now))) {}

QString OCRService::Engine::obstacle() const {
    return recognizer ? recognizer->obstacle()
                      : Kestrio::tr("Text cannot be recognised on this system.");
}

QString OCRService::obstacle() const {
    return engine_.obstacle();
}

Task<std::vector<OCRResult>> OCRService::recognize(Engine engine, Image image, QRect region,
                                                   std::stop_token stop) {
    if (const QString obstacle = engine.obstacle(); !obstacle.isEmpty())
        throw OCRError::recognitionFailed(obstacle);
    const TextRecognitionRequest request{image.bitmap(), region, recognitionLanguages()};
    const std::function<Task<std::vector<RecognizedLine>>(std::stop_token)> start =
        [recognizer = engine.recognizer, request](std::stop_token inner) {
            return recognizer->recognize(request, std::move(inner));
        };
    std::vector<RecognizedLine> lines;
    try {
        auto reading = withTimeLimit(engine.timeout, stop, start);
        lines = co_await reading;
    } catch (const Cancelled&) {
        throw;
    } catch (const TimeLimitExceeded&) {
        throw OCRError(OCRError::Case::timeout);
    } catch (const std::exception& error) {
        throw OCRError::recognitionFailed(describeFailure(error));
    }
    co_return normalized(std::move(lines), image.pixelSize());
}

Task<std::vector<OCRResult>> OCRService::recognizeLines(Image image, std::stop_token stop) {
    requirePicture(image);
    auto reading = recognize(engine_, std::move(image), {}, std::move(stop));
    std::vector<OCRResult> lines = co_await reading;
    co_return lines;
}

Task<std::vector<OCRResultWithConfidence>> OCRService::recognizeText(Image image,
                                                                     std::stop_token stop) {
    requirePicture(image);
    const auto cache = cache_;
    const Engine engine = engine_;
    auto work = [image] { return hashOf(image); };
    const auto hashing = runInBackground(std::move(work));
    const QString imageHash = co_await hashing;
    if (stop.stop_requested()) throw Cancelled();
    if (auto kept = cache->find(imageHash)) co_return std::move(*kept);
    auto reading = recognize(engine, image, {}, std::move(stop));
    const std::vector<OCRResult> lines = co_await reading;
    std::vector<OCRResultWithConfidence> results = markedResults(lines);
    cache->store(imageHash, results, image.pointSize());
    co_return results;
}

Task<std::vector<OCRResultWithConfidence>> OCRService::recognizeText(Image image, QRectF region,
                                                                     std::stop_token stop) {
    requirePicture(image);
    if (!isInside(region)) throw OCRError(OCRError::Case::regionOutOfBounds);
    const QRect pixels = pixelsIn(region, image.pixelSize());
    auto reading = recognize(engine_, std::move(image), pixels, std::move(stop));
    const std::vector<OCRResult> lines = co_await reading;
    co_return markedResults(lines);
}

}  // namespace kestrio
