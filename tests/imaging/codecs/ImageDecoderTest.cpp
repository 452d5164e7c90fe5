#include "imaging/codecs/ImageDecoder.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <sys/stat.h>

#include <gtest/gtest.h>
#include <zlib.h>

#include "imaging/codecs/ImageEncoder.h"
#include "imaging/codecs/TestPictures.h"

namespace kestrio {
namespace {

std::optional<ImageLoadError> failure(const QByteArray& bytes) {
    try {
        decodeImage(bytes);
    } catch (const ImageLoadError& error) {
        return error;
    }
    return {};
}

// A sound header that claims a size, and nothing after it.
QByteArray pngHeader(quint32 width, quint32 height) {
    QByteArray chunk("IHDR\0\0\0\0\0\0\0\0\x08\x02\0\0\0", 17);
    qToBigEndian(width, chunk.data() + 4);
    qToBigEndian(height, chunk.data() + 8);
    QByteArray checksum(4, 0);
    qToBigEndian(
        static_cast<quint32>(crc32(0, reinterpret_cast<const Bytef*>(chunk.constData()), 17)),
        checksum.data());
    return QByteArray("\x89PNG\r\n\x1a\n\0\0\0\x0d", 12) + chunk + checksum;
}

QByteArray savedByQt(const QImage& bitmap, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    bitmap.save(&buffer, format);
    return bytes;
}

TEST(ImageDecoder, RefusesWhatIsNoPicture) {
    using Case = ImageLoadError::Case;
    struct Row {
        const char* what;
        QByteArray bytes;
        Case expected;
    };
    const Row rows[] = {
        {"nothing", {}, Case::empty},
        {"text", "Hello, this is no picture.", Case::unsupportedFormat},
        {"one byte", "\x89", Case::unsupportedFormat},
        {"zeros", QByteArray(1000, 0), Case::unsupportedFormat},
        {"PNG with a wrong signature", "\x89PNG\n\n\x1a\n and more", Case::unsupportedFormat},
        {"PNG signature alone", "\x89PNG\r\n\x1a\n", Case::damaged},
        {"PNG of 60000 x 60000", pngHeader(60000, 60000), Case::tooLarge},
        {"PNG with a long side", pngHeader(131073, 1), Case::tooLarge},
        {"PNG of no width", pngHeader(0, 5), Case::damaged},
        {"PNG of 15000 x 15000 without pixels", pngHeader(15000, 15000), Case::damaged},
        {"JPEG marker alone", "\xff\xd8\xff", Case::damaged},
        {"RIFF of another kind", "RIFF\x10\0\0\0WAVEfmt ", Case::unsupportedFormat},
        {"WebP without chunks", QByteArray("RIFF\x04\0\0\0WEBP", 12), Case::damaged},
        {"BMP magic alone", "BM", Case::damaged},
        {"PPM of 30000 x 30000", "P6 30000 30000 255\n", Case::tooLarge},
    };
    for (const Row& row : rows) {
        const auto error = failure(row.bytes);
        ASSERT_TRUE(error) << row.what;
        EXPECT_EQ(error->errorCase(), row.expected) << row.what;
        EXPECT_FALSE(error->errorDescription().isEmpty());
    }
    EXPECT_EQ(failure(pngHeader(60000, 60000))->claimedSize(), QSize(60000, 60000));
    EXPECT_TRUE(failure(pngHeader(60000, 60000))
                    ->errorDescription()
                    .contains(QStringLiteral("60000 × 60000")));
}

TEST(ImageDecoder, TruncatedFilesAreDamagedWhereverTheyEnd) {
    const QImage bitmap = testPicture(60, 40, QImage::Format_ARGB32_Premultiplied);
    for (const ExportFormat format : {ExportFormat::png, ExportFormat::jpeg, ExportFormat::webp}) {
        const QByteArray whole = encodeImage(bitmap, format);
        ASSERT_FALSE(failure(whole));
        for (qsizetype length = 12; length < whole.size(); length += 1 + whole.size() / 97) {
            const auto error = failure(whole.first(length));
            ASSERT_TRUE(error) << fileExtension(format).toStdString() << " cut at " << length;
            EXPECT_EQ(error->errorCase(), ImageLoadError::Case::damaged);
        }
        EXPECT_TRUE(failure(whole.chopped(1))) << fileExtension(format).toStdString();
    }
}

TEST(ImageDecoder, ASingleWrongByteOfAPngIsNoticed) {
    const QByteArray whole =
        encodeImage(testPicture(40, 30, QImage::Format_RGB32), ExportFormat::png);
    for (qsizetype position = 8; position < whole.size(); position += 13) {
        QByteArray garbled = whole;
        garbled[position] = static_cast<char>(garbled[position] ^ 0x10);
        const auto error = failure(garbled);
        // Chunks that say nothing about the pixels may be skipped over.
        if (error) continue;
        EXPECT_EQ(decodeImage(garbled), decodeImage(whole)) << position;
    }
}

TEST(ImageDecoder, ReadsTheFormatsThatQtDecodes) {
    const QImage bitmap = testPicture(21, 13, QImage::Format_RGB32);
    for (const char* format : {"BMP", "PPM"}) {
        const QImage decoded = decodeImage(savedByQt(bitmap, format));
        EXPECT_EQ(decoded.format(), QImage::Format_RGB32);
        EXPECT_EQ(largestDifference(decoded, bitmap), 0) << format;
    }
    const QByteArray gif("GIF89a\1\0\1\0\x80\0\0\xff\0\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 35);
    EXPECT_EQ(decodeImage(gif).pixel(0, 0), qRgb(255, 0, 0));
}

TEST(ImageDecoder, FilesThatCannotBeReadSayWhy) {
    const QTemporaryDir folder;
    const QString picture = folder.filePath(QStringLiteral("picture.png"));
    const QImage bitmap = testPicture(30, 20, QImage::Format_RGB32);
    QFile file(picture);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(encodeImage(bitmap, ExportFormat::png));
    file.close();
    EXPECT_EQ(loadImageFile(picture), bitmap);

    const QString pipe = folder.filePath(QStringLiteral("pipe.png"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString sparse = folder.filePath(QStringLiteral("sparse.png"));
    ASSERT_TRUE(QFile(sparse).open(QIODevice::WriteOnly) && QFile::resize(sparse, qint64(3) << 30));
    for (const QString& path : {folder.path(), folder.filePath(QStringLiteral("missing.png")), pipe,
                                sparse, QStringLiteral("/dev/zero")}) {
        try {
            loadImageFile(path);
            ADD_FAILURE() << path.toStdString();
        } catch (const ImageLoadError& error) {
            EXPECT_EQ(error.errorCase(), ImageLoadError::Case::unreadable);
            EXPECT_EQ(error.path(), path);
            EXPECT_FALSE(error.reason().isEmpty());
        }
    }
}

TEST(ImageDecoder, CountsWhatDecodersHoldBesideTheBitmap) {
    const QImage bitmap = testPicture(64, 40, QImage::Format_RGB32);
    const qint64 bytes = bitmap.sizeInBytes();
    struct Row {
        const char* what;
        QByteArray file;
        qint64 needed;
    };
    const Row rows[] = {
        {"PNG", encodeImage(bitmap, ExportFormat::png), bytes},
        {"JPEG", encodeImage(bitmap, ExportFormat::jpeg), bytes},
        {"lossless WebP", encodeImage(bitmap, ExportFormat::webp), 2 * bytes},
        {"PPM", savedByQt(bitmap, "PPM"), bytes},
        {"grey BMP", savedByQt(bitmap.convertToFormat(QImage::Format_Indexed8), "BMP"),
         bytes + bytes / 4},
    };
    for (const Row& row : rows) {
        EXPECT_NO_THROW(decodeImage(row.file, {.memory = row.needed})) << row.what;
        try {
            decodeImage(row.file, {.memory = row.needed - 1});
            ADD_FAILURE() << row.what;
        } catch (const ImageLoadError& error) {
            EXPECT_EQ(error.errorCase(), ImageLoadError::Case::tooLarge) << row.what;
        }
    }
}

// Damaged files of every kind from the fuzzer's corpus: each is an error that says what is wrong,
// or a picture.
TEST(ImageDecoder, StandsWhatTheFuzzerMade) {
    const QDir folder(QStringLiteral(KESTRIO_SOURCE_DIR "/tests/imaging/codecs/fuzzed"));
    const QStringList names = folder.entryList(QDir::Files);
    EXPECT_FALSE(names.isEmpty());
    for (const QString& name : names) {
        try {
            EXPECT_FALSE(loadImageFile(folder.filePath(name)).isNull()) << name.toStdString();
        } catch (const ImageLoadError& error) {
            EXPECT_NE(error.errorCase(), ImageLoadError::Case::unreadable) << name.toStdString();
            EXPECT_FALSE(error.errorDescription().isEmpty()) << name.toStdString();
        }
    }
}

}  // namespace
}  // namespace kestrio
