#include "library/drafts/DraftWriter.h"

#include "core/AtomicFile.h"
#include "core/Parallel.h"
#include "imaging/codecs/ImageDecoder.h"
#include "support/AnnotationSamples.h"
#include "support/NoisePicture.h"
#include "support/Waiting.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QSemaphore>
#include <QTemporaryDir>
#include <csignal>

namespace kestrio {
namespace {

DraftDocument sample() {
    DraftDocument document;
    document.name = QStringLiteral("Größe / “shot”");
    document.picture = Image(noisePicture({61, 43}, QImage::Format_ARGB32_Premultiplied), 1.5);
    document.original = Image(noisePicture({30, 21}, QImage::Format_RGB32), QSizeF(40.5, 28.25));
    document.style.backdrop.padding = 17.3;
    document.style.backdrop.keepPixels = true;
    document.style.frameStyle = FrameStyle::safari;
    document.frameScale = 1.7;
    document.canvas.transform.rotation = 90;
    document.canvas.canvasSize = {400, 300};
    document.canvas.aspectRatio = AspectRatio::custom(4, 3);
    document.watermark.textContent = QStringLiteral("mine");
    document.isWatermarkEnabled = true;
    document.annotations = oneOfEach();
    document.areAnnotationsVisible = false;
    return document;
}

void expectSameImage(const Image& actual, const Image& expected) {
    EXPECT_EQ(actual.bitmap().format(), expected.bitmap().format());
    EXPECT_EQ(actual.bitmap(), expected.bitmap());
    EXPECT_EQ(actual.pointSize(), expected.pointSize());
}

void expectSame(const DraftDocument& actual, const DraftDocument& expected) {
    EXPECT_EQ(actual.name, expected.name);
    expectSameImage(actual.picture, expected.picture);
    ASSERT_EQ(actual.original.has_value(), expected.original.has_value());
    if (actual.original) expectSameImage(*actual.original, *expected.original);
    EXPECT_EQ(actual.style, expected.style);
    EXPECT_EQ(actual.frameScale, expected.frameScale);
    EXPECT_EQ(actual.canvas, expected.canvas);
    EXPECT_EQ(actual.watermark, expected.watermark);
    EXPECT_EQ(actual.isWatermarkEnabled, expected.isWatermarkEnabled);
    EXPECT_TRUE(areIdentical(actual.annotations, expected.annotations));
    EXPECT_EQ(actual.areAnnotationsVisible, expected.areAnnotationsVisible);
}

struct DraftStoreTest : testing::Test {
    QTemporaryDir home;
    QString path = home.filePath(QStringLiteral("data/kestrio/drafts"));
    DraftStore store{path};

    QStringList entries(const QString& folder = {}) const {
        return QDir(folder.isEmpty() ? path : folder)
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    /// The folder of a draft that was left behind.
    QString leave(const DraftDocument& document) const {
        const auto folder = store.create();
        folder->write(document);
        return folder->path();
    }
};

TEST_F(DraftStoreTest, ADocumentComesBackToTheLastBit) {
    const mode_t before = ::umask(0);
    DraftDocument document = sample();
    {
        const auto folder = store.create();
        folder->write(document);
        struct stat status = {};
        for (const QString& file : entries(folder->path())) {
            ::stat(QFile::encodeName(folder->path() + u'/' + file).constData(), &status);
            EXPECT_EQ(status.st_mode & 0777, 0600U) << file.toStdString();
        }
        for (const QString& each : {path, folder->path()}) {
            ::stat(QFile::encodeName(each).constData(), &status);
            EXPECT_EQ(status.st_mode & 0777, 0700U) << each.toStdString();
        }
        EXPECT_TRUE(store.claimUnowned().empty()) << "its writer still has it";
    }
    ::umask(before);
    const auto drafts = store.claimUnowned();
    ASSERT_EQ(drafts.size(), 1U);
    EXPECT_EQ(drafts.front().name, document.name);
    EXPECT_LT(std::abs(drafts.front().changed.secsTo(QDateTime::currentDateTime())), 60);
    expectSame(drafts.front().folder->read(), document);

    document.original.reset();
    // Opaque pixels in a bitmap that may have others.
    QImage opaque = noisePicture({8, 8}, QImage::Format_RGB32);
    opaque.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied);
    document.picture = Image(opaque);
    drafts.front().folder->write(document);
    expectSame(drafts.front().folder->read(), document);
}

TEST_F(DraftStoreTest, OnlyWhatChangedIsWritten) {
    DraftDocument document = sample();
    const auto folder = store.create();
    folder->write(document);
    const QString json = folder->path() + QStringLiteral("/document.json");
    const QString picture = folder->path() + QStringLiteral("/picture.png");
    const auto stamp = [](const QString& file) {
        struct stat status = {};
        ::stat(QFile::encodeName(file).constData(), &status);
        return std::tuple(status.st_ino, status.st_mtim.tv_sec, status.st_mtim.tv_nsec);
    };
    const auto firstJson = stamp(json), firstPicture = stamp(picture);
    folder->write(document);
    EXPECT_EQ(stamp(json), firstJson);
    document.style.backdrop.padding += 1;
    folder->write(document);
    EXPECT_NE(stamp(json), firstJson);
    EXPECT_EQ(stamp(picture), firstPicture);

    document.picture = Image(document.picture.bitmap().copy(0, 0, 20, 10));
    document.original.reset();
    folder->write(document);
    EXPECT_EQ(entries(folder->path()),
              QStringList({QStringLiteral("document.json"), QStringLiteral("lock"),
                           QStringLiteral("picture-2.png")}));
    expectSame(folder->read(), document);
}

// A program that dies between a new picture and its document must not leave the marks of one on the
// other.
TEST_F(DraftStoreTest, AWriteThatFailsHalfwayLeavesTheDocumentBefore) {
    const DraftDocument document = sample();
    const auto folder = store.create();
    folder->write(document);
    DraftDocument changed = document;
    changed.picture = Image(document.picture.bitmap().copy(0, 0, 20, 10));
    changed.frameScale = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THROW(folder->write(changed), Error);
    expectSame(folder->read(), document);
    EXPECT_THROW(store.create()->write(changed), Error);
    EXPECT_EQ(entries().size(), 1) << "one that never held a document";
}

TEST_F(DraftStoreTest, DamagedDraftsAreMovedAsideOnce) {
    const QString json = QStringLiteral("document.json"), png = QStringLiteral("picture.png");
    const auto write = [](const QString& file, const QByteArray& bytes) {
        QFile target(file);
        ASSERT_TRUE(target.open(QIODevice::WriteOnly | QIODevice::Truncate));
        target.write(bytes);
    };
    const auto edit = [&](const QString& folder, const QByteArray& from, const QByteArray& to) {
        QFile source(folder + u'/' + json);
        ASSERT_TRUE(source.open(QIODevice::ReadOnly));
        QByteArray text = source.readAll();
        ASSERT_TRUE(text.contains(from));
        write(source.fileName(), text.replace(from, to));
    };
    const std::function<void(const QString&)> damages[] = {
        [&](const QString& folder) { QFile::remove(folder + u'/' + png); },
        [&](const QString& folder) { QFile::remove(folder + u'/' + json); },
        [&](const QString& folder) { write(folder + u'/' + json, "{\"name\": \"x\", "); },
        [&](const QString& folder) { write(folder + u'/' + json, "[]"); },
        [&](const QString& folder) { QFile::resize(folder + u'/' + png, 300); },
        [&](const QString& folder) { write(folder + u'/' + png, {}); },
        [&](const QString& folder) { edit(folder, "picture.png", "../picture.png"); },
        [&](const QString& folder) { edit(folder, "\"rectangle\"", "\"octagon\""); },
    };
    for (const auto& damage : damages)
        damage(leave(sample()));
    QDir(path).mkdir(QStringLiteral("empty"));
    const QString whole = leave(sample());
    const auto drafts = store.claimUnowned();
    ASSERT_EQ(drafts.size(), 1U);
    EXPECT_EQ(drafts.front().folder->path(), whole);
    const QStringList after = entries();
    EXPECT_EQ(after.filter(QStringLiteral("damaged-")).size(), int(std::size(damages)) + 1);
    EXPECT_TRUE(store.claimUnowned().empty());
    EXPECT_EQ(entries(), after);
}

TEST_F(DraftStoreTest, OldDraftsGoAndRecentOnesStayHoweverMany) {
    const auto leaveAged = [this](double days) {
        const QString folder = leave(sample());
        const QString file = folder + QStringLiteral("/document.json");
        JsonValue json = parseJson(readImageFile(file));
        json["changed"] = Date::now().sinceReference - days * 86400;
        replaceFile(file, jsonText(json));
        return folder;
    };
    const QString ancient = leaveAged(31), old = leaveAged(29), latest = leaveAged(0);
    auto drafts = store.claimUnowned();
    ASSERT_EQ(drafts.size(), 2U);
    EXPECT_EQ(drafts.front().folder->path(), latest);
    EXPECT_EQ(drafts.back().folder->path(), old);
    EXPECT_FALSE(QFileInfo::exists(ancient));
    drafts.clear();
    for (std::size_t number = 0; number < DraftStore::mostUnowned; ++number)
        leaveAged(0.5);
    drafts = store.claimUnowned();
    EXPECT_EQ(drafts.size(), DraftStore::mostUnowned + 1) << "somebody's work of today";
    EXPECT_FALSE(QFileInfo::exists(old));
    for (const ClaimedDraft& each : drafts)
        each.folder->remove();
    EXPECT_TRUE(entries().isEmpty());
}

TEST_F(DraftStoreTest, OfTwoProcessesOneHasADraftUntilItDies) {
    const QString mine = leave(sample());
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        // The threads of pools do not come along.
        setParallelThreadLimit(1);
        ::alarm(60);
        const auto taken = store.claimUnowned();
        const char count = static_cast<char>(taken.size());
        static_cast<void>(::write(ends[1], &count, 1));
        for (;;)
            ::pause();
    }
    ::close(ends[1]);
    char count = 0;
    ASSERT_EQ(::read(ends[0], &count, 1), 1);
    EXPECT_EQ(count, 1);
    EXPECT_TRUE(store.claimUnowned().empty());
    EXPECT_EQ(entries(), QStringList(QFileInfo(mine).fileName()));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_EQ(store.claimUnowned().size(), 1U);
    ::close(ends[0]);
}

TEST_F(DraftStoreTest, OfChangesThatWaitOnlyTheLatestIsWritten) {
    const auto service = std::make_shared<DraftService>(path);
    QSemaphore gate;
    int made = 0;
    {
        DraftWriter writer(service);
        writer.update([&gate]() -> std::optional<DraftDocument> {
            gate.acquire();
            return sample();
        });
        for (const double scale : {1.0, 1.25, 1.5}) {
            writer.update([scale, &made]() -> std::optional<DraftDocument> {
                ++made;
                DraftDocument document = sample();
                document.frameScale = scale;
                return document;
            });
        }
        gate.release();
    }
    service->settle();
    EXPECT_EQ(made, 1);
    const auto drafts = store.claimUnowned();
    ASSERT_EQ(drafts.size(), 1U) << "the writer has gone";
    EXPECT_EQ(drafts.front().folder->read().frameScale, 1.5);
}

TEST_F(DraftStoreTest, NobodyWaitsForADiskThatHangs) {
    const auto gate = std::make_shared<QSemaphore>();
    QElapsedTimer timer;
    timer.start();
    {
        const auto service = std::make_shared<DraftService>(path);
        DraftWriter writer(service);
        writer.update([gate]() -> std::optional<DraftDocument> {
            gate->acquire();
            return std::nullopt;
        });
        writer.update([] { return std::nullopt; });
        EXPECT_LT(timer.elapsed(), 500);
        service->settle();
        EXPECT_GE(timer.elapsed(), 900) << "a slow disk gets its second";
    }
    EXPECT_LT(timer.elapsed(), 1900) << "it was waited for twice";
    gate->release();
}

TEST_F(DraftStoreTest, AFolderThatCannotBeMadeIsToldAndADeletedOneIsMadeAgain) {
    QFile obstacle(home.filePath(QStringLiteral("data")));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    const auto service = std::make_shared<DraftService>(path);
    DraftWriter writer(service);
    QStringList failures;
    QObject::connect(&writer, &DraftWriter::failed, &writer,
                     [&failures](const QString& reason) { failures << reason; });
    const auto keep = [&writer] { writer.update([] { return sample(); }); };
    keep();
    EXPECT_TRUE(waitUntil([&] { return failures.size() == 1; }));
    EXPECT_FALSE(failures.front().isEmpty());
    obstacle.remove();
    for (int time = 0; time < 2; ++time) {
        keep();
        service->settle();
        QCoreApplication::processEvents();
        EXPECT_EQ(entries().size(), 1);
        QDir(path).removeRecursively();
    }
    EXPECT_EQ(failures.size(), 1);
}

}  // namespace
}  // namespace kestrio
