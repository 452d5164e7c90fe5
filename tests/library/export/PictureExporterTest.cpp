#include "library/export/PictureExporter.h"

#include "imaging/ExportError.h"
#include "imaging/codecs/ImageDecoder.h"
#include "support/MemoryPasteboard.h"

#include <gtest/gtest.h>
#include <QFile>
#include <QTemporaryDir>

namespace kestrio {
namespace {

struct Exporter : testing::Test {
    std::shared_ptr<MemoryPasteboard> pasteboard = std::make_shared<MemoryPasteboard>();
    std::unique_ptr<PictureExporter> service = std::make_unique<PictureExporter>(pasteboard);
    QTemporaryDir folder;

    /// A gradient, which every format keeps nearly as it is.
    static QImage picture() {
        QImage bitmap(90, 60, QImage::Format_RGB32);
        for (int y = 0; y < bitmap.height(); ++y)
            for (int x = 0; x < bitmap.width(); ++x)
                bitmap.setPixel(x, y, qRgb(x * 2, y * 4, 128));
        return bitmap;
    }

    static int largestDifference(const QImage& a, const QImage& b) {
        if (a.size() != b.size()) return 255;
        int largest = 0;
        for (int y = 0; y < a.height(); ++y) {
            for (int x = 0; x < a.width(); ++x) {
                const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
                largest =
                    std::max({largest, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                              std::abs(qBlue(p) - qBlue(q))});
            }
        }
        return largest;
    }

    ExportError::Case failureOfSaving(const QString& path, EncodeHooks hooks = {}) {
        try {
            runUntilDone(service->saveImage(Image(picture()), path, ExportFormat::png, hooks));
        } catch (const ExportError& error) {
            return error.errorCase();
        }
        return ExportError::Case::invalidFormat;
    }
};

TEST_F(Exporter, SavesEveryFormat) {
    for (const auto& row : exportFormats) {
        const QString path = folder.filePath(QString::fromLatin1(row.raw));
        const SavedFile saved = runUntilDone(service->saveImage(Image(picture()), path, row.value));
        EXPECT_EQ(saved.byteCount, QFile(path).size());
        EXPECT_LE(largestDifference(loadImageFile(path), picture()), 8);
    }
}

TEST_F(Exporter, WriteFailuresNameTheFileAndStopsWriteNothing) {
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

TEST_F(Exporter, CopiesOrSaysThatItCouldNot) {
    const Image image(picture());
    runUntilDone(service->copyToClipboard(image));
    EXPECT_EQ(pasteboard->contents().image, image.bitmap());
    EXPECT_EQ(decodeImage(pasteboard->contents().png), image.bitmap());
    pasteboard->refusalsToCome = 2;
    runUntilDone(service->copyToClipboard(image));
    pasteboard->refusesImages = true;
    EXPECT_THROW(runUntilDone(service->copyToClipboard(image)), ExportError);
}

}  // namespace
}  // namespace kestrio
