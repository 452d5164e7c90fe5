#include "text/detection/SensitiveInfoDetector.h"

#include "text/recognition/OCRError.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

constexpr QSize pictureSize(1000, 400);

OCRResult boxOf(const QString& text, QRectF rect, double confidence = 0.97) {
    RecognizedLine line{text, rect, confidence, {}, {}};
    const double width = rect.width() / double(text.size());
    for (int i = 0; i < text.size(); ++i) {
        line.characters.emplace_back(rect.left() + i * width, rect.top(), width, rect.height());
        line.characterConfidences.push_back(confidence);
    }
    return {text, normalizedFromPixels(rect, pictureSize), confidence, line};
}

// Ten pixels a character.
OCRResult lineAt(double top, const QString& text, double confidence = 0.97) {
    return boxOf(text, QRectF(20, top, 10.0 * double(text.size()), 20), confidence);
}

class ScriptedOCRService : public OCRServiceProtocol {
  public:
    std::vector<OCRResult> lines;
    std::function<void()> fail;

    QString obstacle() const override { return {}; }
    Task<std::vector<OCRResult>> recognizeLines(Image, std::stop_token stop) override {
        const auto pause = sleepFor(std::chrono::milliseconds(1), stop);
        co_await pause;
        if (fail) fail();
        auto copy = lines;  // GCC 12 moves from a member that is returned
        co_return copy;
    }
    Task<std::vector<OCRResultWithConfidence>> recognizeText(Image, std::stop_token) override {
        co_return {};
    }
    Task<std::vector<OCRResultWithConfidence>> recognizeText(Image, QRectF,
                                                             std::stop_token) override {
        co_return {};
    }
};

class SensitiveInfoDetectorTest : public testing::Test {
  protected:
    std::vector<DetectionResult> search(const std::vector<OCRResult>& lines,
                                        const std::vector<SensitivePattern>& custom = {}) {
        const PatternMatcher patterns(builtInPatterns(), custom);
        PatternScan scan;
        return sensitiveInfoIn(lines, pictureSize, patterns, scan, QStringLiteral("US"));
    }
    QStringList textsIn(const QString& text, double confidence = 0.97) {
        QStringList texts;
        for (const DetectionResult& result : search({lineAt(100, text, confidence)}))
            texts << result.text;
        return texts;
    }

    std::shared_ptr<ScriptedOCRService> reading = std::make_shared<ScriptedOCRService>();
    std::shared_ptr<PatternMatcher> matcher =
        std::make_shared<PatternMatcher>(builtInPatterns(), std::vector<SensitivePattern>());
    SensitiveInfoDetector detector{reading, matcher};
    Image picture{QImage(pictureSize, QImage::Format_RGB32)};
};

TEST_F(SensitiveInfoDetectorTest, CoversTheCharactersAndNotTheirNeighbours) {
    const auto found = search({lineAt(100, QStringLiteral("mail ann@example.org now"))});
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].type, SensitiveInfoType::email);
    EXPECT_EQ(found[0].text, QStringLiteral("ann@example.org"));
    const QRectF secret(70, 100, 150, 20);
    EXPECT_TRUE(found[0].boundingBox.contains(secret));
    EXPECT_TRUE(QRectF(60.5, 90, 169, 40).contains(found[0].boundingBox)) << "takes other words";
    EXPECT_DOUBLE_EQ(found[0].confidence, 0.97);
}

TEST_F(SensitiveInfoDetectorTest, EstimatesWhereTheEngineKnowsNoCharacters) {
    const QRectF rect(100, 100, 500, 20);
    OCRResult line{QStringLiteral("0123456789 0123456789 10.1.2.3 0123456789 01234567"),
                   normalizedFromPixels(rect, pictureSize), 0.97, std::nullopt};
    const auto found = search({line});
    ASSERT_EQ(found.size(), 1u);
    // 8 of 50 characters from the 22nd on, with a slack of 0.84 * 0.08 + 0.08 on either side.
    EXPECT_NEAR(found[0].boundingBox.left(), 100 + 500 * (22.0 / 50 - 0.1472), 1e-6);
    EXPECT_NEAR(found[0].boundingBox.right(), 100 + 500 * (30.0 / 50 + 0.1472), 1e-6);
    line.text = QStringLiteral("at 10.1.2.3");
    const auto whole = search({line});
    ASSERT_EQ(whole.size(), 1u);
    EXPECT_NEAR(whole[0].boundingBox.left(), 100, 1e-6);
    EXPECT_NEAR(whole[0].boundingBox.width(), 500, 1e-6);
}

TEST_F(SensitiveInfoDetectorTest, JoinsASecretThatWasSplitIntoBoxesOfALine) {
    const auto found = search({boxOf(QStringLiteral("key sk_live_4eC39HqLyj"), {20, 100, 220, 20}),
                               boxOf(QStringLiteral("WDarjtT1zdp7dc ok"), {244, 101, 170, 20}),
                               boxOf(QStringLiteral("x@y.org"), {700, 100, 70, 20})});
    ASSERT_EQ(found.size(), 2u);
    EXPECT_TRUE(found[0].boundingBox.contains(QRectF(60, 101, 324, 19)));
    EXPECT_LT(found[0].boundingBox.right(), 394);
    EXPECT_EQ(found[1].text, QStringLiteral("x@y.org"));
    // Columns stay apart.
    EXPECT_TRUE(search({boxOf(QStringLiteral("4111 1111"), {20, 100, 90, 20}),
                        boxOf(QStringLiteral("1111 1111"), {300, 100, 90, 20})})
                    .empty());
}

TEST_F(SensitiveInfoDetectorTest, DropsWhatIsCertainlySomethingElse) {
    for (const char* text :
         {"icon@2x.png", "std::vector<int> d::e", "Version 10.2.3.4", "4111 1111 1111 1112",
          "id 550e8400-e29b-41d4-a716-446655440000", "mask 255.255.255.0", "1.3.6.1.4.1",
          "Chrome/120.0.0.0", "order 415-555-0132", "12 345 678", "x[1::2]",
          "key_derivationfunctionparameters"})
        EXPECT_EQ(textsIn(QString::fromLatin1(text)), QStringList()) << text;
    // Where the reading is doubtful, the first digit may have been another one.
    EXPECT_EQ(textsIn(QStringLiteral("4111 1111 1111 1112"), 0.7).size(), 1);
}

TEST_F(SensitiveInfoDetectorTest, TakesTheWholeToken) {
    for (const auto& [text, secret] : std::vector<std::pair<const char*, const char*>>{
             {"at 2001:db8::8a2e:370:7334/64", "2001:db8::8a2e:370:7334"},
             {"[::ffff:192.0.2.128]:443", "::ffff:192.0.2.128"},
             {"ping fe80::1%eth0", "fe80::1%eth0"},
             {"4111 1111 1111 1111 123", "4111 1111 1111 1111"},
             {"8080 192.168.17.4", "192.168.17.4"},
             {"ann@example.com. It works", "ann@example.com"},
             {"ann@shop.co. uk", "ann@shop.co.uk"},
             {"tel +33 1 23 45 67 89", "+33 1 23 45 67 89"},
             {"(555) 123-4567 home", "(555) 123-4567"},
             {"sk live 4eC39HqLyjWDarjtT1zdp7dc", "sk live 4eC39HqLyjWDarjtT1zdp7dc"},
             {"card 4lll-1111-1111-111I", "4111-1111-1111-1111"}})
        EXPECT_EQ(textsIn(QString::fromLatin1(text)), QStringList(QString::fromLatin1(secret)));
}

TEST_F(SensitiveInfoDetectorTest, NeverDoubtsPatternsOfTheUsersOwn) {
    const SensitivePattern own{QUuid::createUuid(),
                               SensitiveInfoType::custom,
                               QStringLiteral("picture"),
                               QStringLiteral(R"(\w+@2x\.png)"),
                               {},
                               true,
                               false};
    const auto found = search({lineAt(100, QStringLiteral("icon@2x.png"))}, {own});
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].type, SensitiveInfoType::custom);
}

TEST_F(SensitiveInfoDetectorTest, ReadsThenSearchesWithoutHoldingUpTheMainLoop) {
    reading->lines.assign(400, {});
    for (size_t i = 0; i < reading->lines.size(); ++i)
        reading->lines[i] = lineAt(double(i) * 24, QStringLiteral("10.0.0.1 ann@example.org"));
    QElapsedTimer sinceTick;
    qint64 longestStall = 0;
    QTimer ticks;
    QObject::connect(&ticks, &QTimer::timeout,
                     [&] { longestStall = std::max(longestStall, sinceTick.restart()); });
    sinceTick.start();
    ticks.start(1);
    auto detecting = detector.detect(picture, {});
    EXPECT_GE(runUntilDone(std::move(detecting)).size(), 32u);
    EXPECT_LT(longestStall, 30);
}

TEST_F(SensitiveInfoDetectorTest, SaysWhyItFailed) {
    const auto failure = [this](Image image) {
        try {
            runUntilDone(detector.detect(std::move(image), {}));
        } catch (const SensitiveInfoDetectionError& error) {
            return error.errorDescription();
        }
        return QString();
    };
    EXPECT_EQ(failure({}), QStringLiteral("No image provided for scanning"));
    reading->fail = [] { throw OCRError(OCRError::Case::timeout); };
    EXPECT_EQ(failure(picture),
              QStringLiteral("OCR failed: OCR timed out. Try with a smaller image."));
    reading->fail = [] { throw OCRError(OCRError::Case::noTextFound); };
    EXPECT_EQ(failure(picture), QString());
    reading->fail = [] { throw Cancelled(); };
    EXPECT_THROW(runUntilDone(detector.detect(picture, {})), Cancelled);
}

}  // namespace
}  // namespace kestrio
