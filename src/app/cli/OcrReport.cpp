#include "app/cli/OcrReport.h"

#include "core/Json.h"
#include "text/recognition/CodeDetection.h"

#include <cmath>

namespace kestrio {

namespace {

JsonValue rounded(double value, double places) {
    return jsonNumber(std::round(value * places) / places);
}

JsonValue jsonOf(const QRectF& rect) {
    constexpr double hundredths = 100;
    JsonValue numbers = JsonValue::array();
    for (const double number : {rect.x(), rect.y(), rect.width(), rect.height()})
        numbers.push_back(rounded(number, hundredths));
    return numbers;
}

JsonValue jsonOf(const OCRResultWithConfidence& result, QSize size) {
    constexpr double tenThousandths = 10000;
    const auto language = result.isCodeBlock ? detectLanguage(result.text) : std::nullopt;
    return {{"text", result.text.toStdString()},
            {"rect", jsonOf(pixelsFromNormalized(result.bounds, size))},
            {"confidence", rounded(result.confidence, tenThousandths)},
            {"isCode", result.isCodeBlock},
            {"language", language ? JsonValue(language->toStdString()) : JsonValue()}};
}

}  // namespace

QByteArray plainTextOf(const std::vector<OCRResultWithConfidence>& results) {
    QByteArray text;
    for (const OCRResultWithConfidence& result : results)
        text += result.text.toUtf8() + '\n';
    return text;
}

QByteArray jsonOf(const std::vector<OCRResultWithConfidence>& results, QSize size) {
    JsonValue document = JsonValue::object();
    document["lines"] = JsonValue::array();
    for (const OCRResultWithConfidence& result : results)
        document["lines"].push_back(jsonOf(result, size));
    return jsonText(document, 2) + '\n';
}

}  // namespace kestrio
