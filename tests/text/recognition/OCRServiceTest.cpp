#include "text/recognition/OCRService.h"

#include <gtest/gtest.h>
#include "support/ScriptedTextRecognizer.h"
#include "support/Waiting.h"
#include "text/recognition/OCRError.h"

#include <QElapsedTimer>

namespace kestrio {
namespace {

using namespace std::chrono_literals;

Image picture(int shade = 200, QSize size = {200, 100}) {
    QImage bitmap(size, QImage::Format_RGB32);
    bitmap.fill(qRgb(shade, shade, shade));
    return Image(bitmap);
}

struct OCRServiceTest : testing::Test {
    std::shared_ptr<ScriptedTextRecognizer> recognizer = std::make_shared<ScriptedTextRecognizer>();
    std::chrono::steady_clock::time_point now{};
    OCRService service{recognizer, 100ms, [this] { return now; }};

    OCRServiceTest() {
        recognizer->lines = {evenLine(QStringLiteral("Hello"), QRectF(20, 10, 60, 20), 1.4),
                             evenLine(QStringLiteral("a == b"), QRectF(20, 40, 60, 20), 0.5)};
    }

    std::vector<OCRResultWithConfidence> read(const Image& image) {
        return runUntilDone(service.recognizeText(image, {}));
    }
    std::vector<OCRResultWithConfidence> read(const QRectF& region) {
        return runUntilDone(service.recognizeText(picture(), region, {}));
    }
    template <typename Work>
    std::optional<OCRError> failureOf(Work work) {
        try {
            work();
        } catch (const OCRError& error) {
            return error;
        }
        return std::nullopt;
    }
};

TEST_F(OCRServiceTest, GivesLinesInFractionsAndMarksCode) {
    const auto results = read(picture());
    ASSERT_EQ(results.size(), 2U);
    EXPECT_EQ(results[0].text, QStringLiteral("Hello"));
    EXPECT_EQ(results[0].bounds, QRectF(0.1, 0.7, 0.3, 0.2));
    EXPECT_EQ(results[0].confidence, 1);
    EXPECT_FALSE(results[0].isCodeBlock);
    EXPECT_TRUE(results[1].isCodeBlock);
    EXPECT_NE(results[0].id, results[1].id);
    const TextRecognitionRequest& request = recognizer->requests.front();
    EXPECT_TRUE(request.region.isEmpty());
    EXPECT_EQ(request.languages.join(u' '), QStringLiteral("en-US zh-Hans zh-Hant ja-JP"));

    const auto lines = runUntilDone(service.recognizeLines(picture(), {}));
    ASSERT_EQ(lines.size(), 2U);
    ASSERT_TRUE(lines[0].recognizedText);
    EXPECT_EQ(lines[0].recognizedText->rectOf(0, 1), QRectF(20, 10, 12, 20));
}

TEST_F(OCRServiceTest, LinesOnOnePlaceAreAllCodeWhereOneIs) {
    recognizer->lines = {evenLine(QStringLiteral("Hello"), QRectF(20, 10, 60, 20)),
                         evenLine(QStringLiteral("a == b"), QRectF(20, 10, 60, 20))};
    for (const auto& result : read(picture()))
        EXPECT_TRUE(result.isCodeBlock);
}

TEST_F(OCRServiceTest, KeepsWholePicturesForFiveMinutes) {
    const auto first = read(picture());
    now += 299s;
    EXPECT_EQ(read(picture()), first);
    EXPECT_EQ(recognizer->requests.size(), 1U);
    now += 1s;
    EXPECT_NE(read(picture()), first);
    EXPECT_EQ(recognizer->requests.size(), 2U);
    // A pixel more or less, and the same pixels in other rows, are other pictures.
    read(picture(201));
    read(picture(200, {100, 200}));
    EXPECT_EQ(recognizer->requests.size(), 4U);
    read(QRectF(0, 0, 1, 1));
    read(QRectF(0, 0, 1, 1));
    EXPECT_EQ(recognizer->requests.size(), 6U);
}

TEST_F(OCRServiceTest, NamesPicturesByTheirPixelsAlone) {
    const Image image = picture();
    EXPECT_EQ(hashOf(image).size(), 64);
    EXPECT_EQ(hashOf(image), hashOf(image).toLower());
    // 3 pixels of 4 bytes in rows of 16.
    std::vector<uchar> bytes(32, 0xff);
    const QImage padded(bytes.data(), 3, 2, 16, QImage::Format_RGB32);
    const QString name = hashOf(Image(padded));
    bytes[13] = 7;
    EXPECT_EQ(hashOf(Image(padded)), name);
    bytes[11] = 7;
    EXPECT_NE(hashOf(Image(padded)), name);
    EXPECT_TRUE(hashOf(Image()).isEmpty());
}

TEST_F(OCRServiceTest, ReadsRegionsWithinThePictureOnly) {
    read(QRectF(0.101, 0.5, 0.899, 0.5));
    EXPECT_EQ(recognizer->requests.back().region, QRect(20, 0, 180, 50));
    read(QRectF(0.9999, 0, 0.0001, 1));
    EXPECT_EQ(recognizer->requests.back().region, QRect(199, 0, 1, 100));
    for (const QRectF& outside : {QRectF(0.5, 0, 0.5001, 1), QRectF(-0.1, 0, 1, 1),
                                  QRectF(0, 0, 0, 1), QRectF(0, 0, 1, -0.5), QRectF(0, 0.2, 1, 0.9),
                                  QRectF(qQNaN(), 0, 1, 1), QRectF(0, 0, qInf(), 1)}) {
        EXPECT_EQ(failureOf([&] { read(outside); }), OCRError(OCRError::Case::regionOutOfBounds));
    }
    EXPECT_EQ(recognizer->requests.size(), 2U);
}

TEST_F(OCRServiceTest, RegionsMadeOfPixelsComeBackAsThese) {
    const Image image = picture(200, {331, 97});
    for (int left = 0; left < 330; left += 7) {
        const QRect region(left, left % 90, 331 - left, 97 - left % 90);
        const QRectF fractions = normalizedFromPixels(region, image.pixelSize());
        runUntilDone(service.recognizeText(image, fractions, {}));
        ASSERT_EQ(recognizer->requests.back().region, region);
    }
}

TEST_F(OCRServiceTest, NoPictureIsNoWork) {
    EXPECT_EQ(failureOf([&] { read(Image()); }), OCRError(OCRError::Case::invalidImage));
    EXPECT_EQ(failureOf([&] { read(Image(QImage(), QSizeF(20, 20))); }),
              OCRError(OCRError::Case::imageConversionFailed));
    EXPECT_TRUE(recognizer->requests.empty());
}

TEST_F(OCRServiceTest, TheTimeLimitEndsTheWorkAndKeepsNothing) {
    recognizer->duration = 10s;
    EXPECT_EQ(failureOf([&] { read(picture()); }), OCRError(OCRError::Case::timeout));
    EXPECT_TRUE(waitUntil([&] { return recognizer->stoppedCount == 1; }));
    recognizer->duration = 0ms;
    EXPECT_EQ(read(picture()).size(), 2U);
    EXPECT_EQ(recognizer->requests.size(), 2U);
}

TEST_F(OCRServiceTest, AStopEndsTheWorkAtOnce) {
    recognizer->duration = 10s;
    OCRService patient(recognizer, 60s);
    std::stop_source stop;
    QTimer::singleShot(50ms, [&] { stop.request_stop(); });
    QElapsedTimer clock;
    clock.start();
    EXPECT_THROW(runUntilDone(patient.recognizeText(picture(), stop.get_token())), Cancelled);
    EXPECT_LT(clock.elapsed(), 1000);
    EXPECT_TRUE(waitUntil([&] { return recognizer->stoppedCount == 1; }));
}

TEST_F(OCRServiceTest, SaysWhyNothingCanBeRead) {
    recognizer->missing = QStringLiteral("The models are not installed.");
    const OCRError missing = OCRError::recognitionFailed(recognizer->missing);
    EXPECT_EQ(service.obstacle(), recognizer->missing);
    EXPECT_EQ(failureOf([&] { read(picture()); }), missing);
    EXPECT_TRUE(recognizer->requests.empty());

    recognizer->missing.clear();
    recognizer->failure.emplace(TextRecognitionError::Case::failed, QStringLiteral("It broke."));
    EXPECT_EQ(failureOf([&] { read(picture()); }),
              OCRError::recognitionFailed(QStringLiteral("It broke.")));

    OCRService none(nullptr);
    EXPECT_FALSE(none.obstacle().isEmpty());
    EXPECT_EQ(failureOf([&] { runUntilDone(none.recognizeText(picture(), {})); }),
              OCRError::recognitionFailed(none.obstacle()));
}

TEST_F(OCRServiceTest, AFlowMayOutliveItsService) {
    auto passing = std::make_unique<OCRService>(recognizer);
    recognizer->duration = 20ms;
    auto reading = passing->recognizeText(picture(), {});
    passing.reset();
    EXPECT_EQ(runUntilDone(std::move(reading)).size(), 2U);
}

}  // namespace
}  // namespace kestrio
