#include "app/cli/OcrReport.h"

#include "core/Json.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

std::vector<OCRResultWithConfidence> results() {
    constexpr QSize size(300, 100);
    return {{QUuid(), QStringLiteral("Total: 5 \u20ac \u6f22"),
             normalizedFromPixels(QRectF(10, 20, 130, 14.5), size), 0.98765, false},
            {QUuid(), QStringLiteral("def run(self):"),
             normalizedFromPixels(QRectF(0, 99, 300, 1), size), 1, true}};
}

TEST(OcrReport, PlainTextIsALineForEach) {
    EXPECT_EQ(plainTextOf(results()), QByteArray("Total: 5 \u20ac \u6f22\ndef run(self):\n"));
    EXPECT_EQ(plainTextOf({}), QByteArray());
}

TEST(OcrReport, JsonCountsPixelsFromTheTopLeft) {
    const JsonValue lines = parseJson(jsonOf(results(), QSize(300, 100)))["lines"];
    EXPECT_EQ(lines[0], (JsonValue{{"text", "Total: 5 \u20ac \u6f22"},
                                   {"rect", {10, 20, 130, 14.5}},
                                   {"confidence", 0.9877},
                                   {"isCode", false},
                                   {"language", nullptr}}));
    EXPECT_EQ(lines[1]["rect"], (JsonValue{0, 99, 300, 1}));
    EXPECT_EQ(lines[1]["isCode"], true);
    EXPECT_EQ(lines[1]["language"], "python");
    EXPECT_EQ(parseJson(jsonOf({}, QSize(1, 1))), (JsonValue{{"lines", JsonValue::array()}}));
}

}  // namespace
}  // namespace kestrio
