#include "app/cli/RedactReport.h"

#include "core/Json.h"
#include "core/NativePath.h"

#include <cmath>

namespace kestrio {

namespace {

QRect wholePixels(const DetectionResult& detection) {
    return detection.boundingBox.toAlignedRect();
}

JsonValue documentOf(const DetectionResult& detection) {
    constexpr double tenThousandths = 10000;
    const QRect rect = wholePixels(detection);
    return {
        {"type", rawString(detection.type).toStdString()},
        {"text", detection.text.toStdString()},
        {"rect", JsonValue{rect.x(), rect.y(), rect.width(), rect.height()}},
        {"confidence",
         jsonNumber(std::round(detection.confidence * tenThousandths) / tenThousandths)},
    };
}

}  // namespace

QByteArray plainTextOf(const RedactResult& result) {
    QString text;
    for (const DetectionResult& detection : result.detections) {
        const QRect rect = wholePixels(detection);
        text += QStringLiteral("%1\t%2,%3,%4,%5\t%6\n")
                    .arg(rawString(detection.type), QString::number(rect.x()),
                         QString::number(rect.y()), QString::number(rect.width()),
                         QString::number(rect.height()), printableText(detection.text));
    }
    return text.toUtf8();
}

QByteArray jsonOf(const RedactResult& result) {
    JsonValue document = JsonValue::object();
    document["path"] =
        result.savedPath.isEmpty() ? JsonValue() : JsonValue(result.savedPath.toStdString());
    document["width"] = result.size.width();
    document["height"] = result.size.height();
    document["detections"] = JsonValue::array();
    for (const DetectionResult& detection : result.detections)
        document["detections"].push_back(documentOf(detection));
    return jsonText(document, 2) + '\n';
}

}  // namespace kestrio
