#include "app/cli/RedactReport.h"

#include "core/Json.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

namespace kestrio {
namespace {

class ScriptedDetector : public SensitiveInfoDetectorProtocol {
  public:
    std::vector<DetectionResult> results;

    QString obstacle() const override { return {}; }
    Task<std::vector<DetectionResult>> detect(Image, std::stop_token) override {
        auto copy = results;  // GCC 12 moves from a member that is returned
        co_return copy;
    }
};

const std::vector<DetectionResult> found = {
    {SensitiveInfoType::email, QStringLiteral("ann@example.org"), {20.4, 30.2, 60, 11.5}, 0.98765},
    {SensitiveInfoType::custom, QStringLiteral("a\x1b[2Jb"), {150, 90, 60, 20}, 0.5}};

QImage noise(unsigned seed) {
    QImage image(200, 100, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            seed = seed * 1664525u + 1013904223u;
            image.setPixel(x, y, 0xff000000 | seed >> 8);
        }
    }
    return image;
}

TEST(RedactRun, NoPixelOfASolidBoxDependsOnTheInput) {
    const QImage first = covered(Image(noise(1)), found, RedactionKind::solid, {}).bitmap();
    const QImage second = covered(Image(noise(2)), found, RedactionKind::solid, {}).bitmap();
    QImage transparent(200, 100, QImage::Format_ARGB32_Premultiplied);
    transparent.fill(Qt::transparent);
    const QImage third = covered(Image(transparent), found, RedactionKind::solid, {}).bitmap();
    for (const DetectionResult& each : found) {
        const QRect box = each.boundingBox.toAlignedRect() & first.rect();
        EXPECT_EQ(first.copy(box), second.copy(box));
        EXPECT_EQ(third.pixel(box.topLeft()), 0xff000000);
        EXPECT_EQ(third.pixel(box.bottomRight()), 0xff000000);
    }
    // What nobody asked to be covered stays.
    EXPECT_EQ(first.copy(0, 60, 140, 40), noise(1).copy(0, 60, 140, 40));
    EXPECT_NE(covered(Image(noise(1)), found, RedactionKind::blur, {}).bitmap(), noise(1));
}

TEST(RedactRun, WritesOnlyWhereItIsAskedTo) {
    const QTemporaryDir folder;
    const QString input = folder.filePath(QStringLiteral("in.png"));
    ASSERT_TRUE(noise(1).save(input));
    const auto detector = std::make_shared<ScriptedDetector>();
    detector->results = found;
    const auto exporter = std::make_shared<PictureExporter>(nullptr);
    RedactRun run;
    run.input = input;
    run.types = {SensitiveInfoType::email};
    const RedactResult listed = runUntilDone(redactPicture(run, {detector, exporter}, {}));
    EXPECT_EQ(listed.detections, std::vector{found[0]});
    EXPECT_EQ(listed.savedPath, QString());

    RenderJob job;
    job.output = folder.filePath(QStringLiteral("out.png"));
    run.job = job;
    const RedactResult written = runUntilDone(redactPicture(run, {detector, exporter}, {}));
    const QImage output(written.savedPath);
    ASSERT_EQ(output.size(), QSize(200, 100));
    EXPECT_EQ(output.pixel(50, 35), 0xff000000);
    EXPECT_EQ(output.pixel(170, 95), noise(1).pixel(170, 95)) << "not of the asked type";
}

TEST(RedactRun, ReportsWholePixelsAndNoControlCharacters) {
    const RedactResult result{found, {200, 100}, {}};
    EXPECT_EQ(plainTextOf(result), QByteArray("email\t20,30,61,12\tann@example.org\n"
                                              "custom\t150,90,60,20\ta\xef\xbf\xbd[2Jb\n"));
    const JsonValue document = parseJson(jsonOf(result));
    EXPECT_EQ(document["path"], nullptr);
    EXPECT_EQ(document["detections"][0], (JsonValue{{"type", "email"},
                                                    {"text", "ann@example.org"},
                                                    {"rect", {20, 30, 61, 12}},
                                                    {"confidence", 0.9877}}));
}

}  // namespace
}  // namespace kestrio
