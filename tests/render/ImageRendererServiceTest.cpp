#include "render/ImageRendererService.h"

#include "imaging/ExportError.h"
#include "imaging/codecs/ImageDecoder.h"
#include "render/RenderFixtures.h"
#include "support/MemoryPasteboard.h"

#include <gtest/gtest.h>
#include <QFile>
#include <QTemporaryDir>

namespace kestrio {
namespace {

struct Renderer : testing::Test {
    std::shared_ptr<MemoryPasteboard> pasteboard = std::make_shared<MemoryPasteboard>();
    std::unique_ptr<ImageRendererService> service = std::make_unique<ImageRendererService>(
        std::make_shared<WatermarkService>(std::make_shared<MemoryUserDefaults>()), pasteboard);
    QTemporaryDir folder;

    ExportError::Case failureOfSaving(const QString& path, EncodeHooks hooks = {}) {
        try {
            runUntilDone(
                service->saveImage(Image(testScreenshot()), path, ExportFormat::png, hooks));
        } catch (const ExportError& error) {
            return error.errorCase();
        }
        return ExportError::Case::invalidFormat;
    }
};

TEST_F(Renderer, ComposesInTheBackgroundWhatTheComposerComposes) {
    const CompositeRequest request = requestOf(testScreenshot());
    EXPECT_EQ(runUntilDone(service->renderComposite(request)).bitmap(),
              testComposer().compose(request).bitmap());
}

TEST_F(Renderer, FailuresAndStopsReachTheCaller) {
    EXPECT_THROW(runUntilDone(service->renderComposite({})), ExportError);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THROW(
        runUntilDone(service->renderComposite(requestOf(testScreenshot()), stop.get_token())),
        Cancelled);
}

TEST_F(Renderer, TheServiceMayGoWhileItsFlowIsPending) {
    auto pending = service->renderComposite(requestOf(testScreenshot({900, 700})));
    service.reset();
    EXPECT_FALSE(runUntilDone(std::move(pending)).isNull());
}

TEST_F(Renderer, SavesEveryFormat) {
    for (const auto& row : exportFormats) {
        const QString path = folder.filePath(QString::fromLatin1(row.raw));
        const SavedFile saved =
            runUntilDone(service->saveImage(Image(testScreenshot()), path, row.value));
        EXPECT_EQ(saved.byteCount, QFile(path).size());
        EXPECT_LT(meanDifference(loadImageFile(path), testScreenshot()), 2.0);
    }
}

TEST_F(Renderer, WriteFailuresNameTheFileAndStopsWriteNothing) {
    EXPECT_EQ(failureOfSaving(QStringLiteral("/dev/full")), ExportError::Case::fileWriteFailed);
    EXPECT_EQ(failureOfSaving(folder.path()), ExportError::Case::fileWriteFailed);
    EXPECT_EQ(failureOfSaving(folder.filePath(QStringLiteral("no/such/a.png"))),
              ExportError::Case::fileWriteFailed);
    std::stop_source stop;
    stop.request_stop();
    EncodeHooks hooks;
    hooks.stop = stop.get_token();
    const QString path = folder.filePath(QStringLiteral("stopped.png"));
    EXPECT_EQ(failureOfSaving(path, hooks), ExportError::Case::userCancelled);
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(Renderer, CopiesOrSaysThatItCouldNot) {
    const Image image(testScreenshot());
    runUntilDone(service->copyToClipboard(image));
    EXPECT_EQ(pasteboard->contents().image, image.bitmap());
    EXPECT_EQ(decodeImage(pasteboard->contents().png), image.bitmap());
    pasteboard->refusalsToCome = 2;
    runUntilDone(service->copyToClipboard(image));
    pasteboard->refusesImages = true;
    EXPECT_THROW(runUntilDone(service->copyToClipboard(image)), ExportError);
}

TEST(ExportError, MessagesAreTheAgreedOnes) {
    EXPECT_EQ(ExportError::fileWriteFailed(QStringLiteral("/a b")).errorDescription(),
              QStringLiteral("Failed to write file: /a b"));
    EXPECT_EQ(ExportError::unsupportedFormat(ExportFormat::jpeg).errorDescription(),
              QStringLiteral("Unsupported export format: JPEG"));
}

}  // namespace
}  // namespace kestrio
