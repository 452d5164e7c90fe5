#include "platform/linux/recognition/EngineTextRecognizer.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QTemporaryDir>
#include <random>

#include "support/Waiting.h"

namespace kestrio {
namespace {

/// The files that scripts/recognition has installed, or copies of them in `folder`.
RecognitionFiles filesIn(const QString& folder) {
    qputenv("KESTRIO_RECOGNITION", QFile::encodeName(folder));
    RecognitionFiles files = recognitionFiles();
    qunsetenv("KESTRIO_RECOGNITION");
    return files;
}

const QString installed = QStringLiteral(KESTRIO_SOURCE_DIR "/build/recognition");

QImage samplePicture(const QString& name) {
    const QString path =
        QStringLiteral(KESTRIO_SOURCE_DIR "/tests/platform/recognition/%1.png").arg(name);
    return QImage(path).convertToFormat(QImage::Format_RGB32);
}

QStringList sampleLines(const QString& name) {
    QFile file(QStringLiteral(KESTRIO_SOURCE_DIR "/tests/platform/recognition/%1.json").arg(name));
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QJsonObject page = QJsonDocument::fromJson(file.readAll()).object();
    const QJsonArray all = page[QStringLiteral("lines")].toArray();
    QStringList lines;
    for (const auto& line : all)
        lines << line.toObject()[QStringLiteral("text")].toString().trimmed();
    return lines;
}

int editDistance(const QString& a, const QString& b) {
    std::vector<int> row(static_cast<size_t>(b.size()) + 1);
    for (size_t at = 0; at < row.size(); ++at)
        row[at] = static_cast<int>(at);
    for (const QChar left : a) {
        int diagonal = row[0]++;
        for (size_t at = 1; at < row.size(); ++at) {
            const int replaced = diagonal + (left == b[static_cast<qsizetype>(at) - 1] ? 0 : 1);
            diagonal = row[at];
            row[at] = std::min({row[at] + 1, row[at - 1] + 1, replaced});
        }
    }
    return row.back();
}

class EngineTextRecognizerTest : public testing::Test {
  protected:
    std::vector<RecognizedLine> read(const QImage& picture, QRect region = {}) {
        return runUntilDone(recognizer_.recognize({picture, region, {}}, {}));
    }

    EngineTextRecognizer recognizer_{filesIn(installed)};
};

TEST_F(EngineTextRecognizerTest, PagesOfEachScriptAreReadAsTheyWereWritten) {
    for (const auto& [name, allowed] :
         {std::pair("prose", 0.005), std::pair("code", 0.015), std::pair("hans", 0.01),
          std::pair("hant", 0.03), std::pair("ja", 0.03)}) {
        const QString sample = QString::fromLatin1(name);
        const QStringList expected = sampleLines(sample);
        const auto lines = read(samplePicture(sample));
        ASSERT_EQ(lines.size(), static_cast<size_t>(expected.size())) << name;
        int wrong = 0;
        int count = 0;
        for (size_t at = 0; at < lines.size(); ++at) {
            const QString& truth = expected[static_cast<qsizetype>(at)];
            wrong += editDistance(truth, lines[at].text);
            count += static_cast<int>(truth.size());
        }
        EXPECT_LE(wrong, allowed * count) << name;
    }
}

TEST_F(EngineTextRecognizerTest, CharactersStandFromLeftToRightWithinTheirLine) {
    const QImage picture = samplePicture(QStringLiteral("prose"));
    for (const RecognizedLine& line : read(picture)) {
        ASSERT_EQ(line.characters.size(), static_cast<size_t>(line.text.size()));
        ASSERT_EQ(line.characterConfidences.size(), line.characters.size());
        double right = line.rect.left();
        for (const QRectF& character : line.characters) {
            EXPECT_GE(character.left(), right - 1) << qPrintable(line.text);
            right = character.right();
        }
        EXPECT_TRUE(QRectF(picture.rect()).contains(line.rect));
        EXPECT_NEAR(right, line.rect.right(), 1);
    }
}

TEST_F(EngineTextRecognizerTest, AWordIsCoveredWholeAndItsNeighboursAreNot) {
    QImage picture(500, 60, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(18);
    QPainter painter(&picture);
    painter.setFont(font);
    painter.drawText(20, 36, QStringLiteral("password: hunter2secret please"));
    painter.end();
    const auto lines = read(picture);
    ASSERT_EQ(lines.size(), 1U);
    const QString secret = QStringLiteral("hunter2secret");
    const auto start = static_cast<int>(lines[0].text.indexOf(secret));
    ASSERT_GE(start, 0) << qPrintable(lines[0].text);
    const QFontMetricsF metrics(font);
    const double left = 20 + metrics.horizontalAdvance(QStringLiteral("password: "));
    const QRectF covered = lines[0].rectOf(start, static_cast<int>(secret.size()));
    EXPECT_NEAR(covered.left(), left, 3);
    EXPECT_NEAR(covered.right(), left + metrics.horizontalAdvance(secret), 3);
}

TEST_F(EngineTextRecognizerTest, PicturesWithoutTextHaveNoLines) {
    std::mt19937 random(7);
    QImage noise(640, 480, QImage::Format_RGB32);
    for (int y = 0; y < noise.height(); ++y)
        for (int x = 0; x < noise.width(); ++x)
            noise.setPixel(x, y, random() | 0xff000000U);
    QImage clear(300, 200, QImage::Format_ARGB32_Premultiplied);
    clear.fill(Qt::transparent);
    QImage dot(1, 1, QImage::Format_RGB32);
    dot.fill(Qt::red);
    QImage stripe(20000, 400, QImage::Format_RGB32);
    stripe.fill(Qt::white);
    for (const QImage& picture : {noise, clear, dot, stripe, QImage()})
        EXPECT_TRUE(read(picture).empty()) << picture.width() << " x " << picture.height();
}

TEST_F(EngineTextRecognizerTest, ARegionIsReadAloneAtPlacesOfThePicture) {
    const QImage picture = samplePicture(QStringLiteral("prose"));
    const auto whole = read(picture);
    ASSERT_GE(whole.size(), 3U);
    const QRect region = whole[1].rect.toAlignedRect().adjusted(-8, -6, 8, 6);
    const auto part = read(picture, region);
    ASSERT_EQ(part.size(), 1U);
    EXPECT_EQ(part[0].text, whole[1].text);
    EXPECT_NEAR(part[0].rect.left(), whole[1].rect.left(), 2);
    EXPECT_NEAR(part[0].rect.top(), whole[1].rect.top(), 2);
}

/// Many lines, which take a second or more.
QImage longPicture() {
    const QImage page = samplePicture(QStringLiteral("prose"));
    QImage picture(page.width(), page.height() * 12, QImage::Format_RGB32);
    QPainter painter(&picture);
    for (int copy = 0; copy < 12; ++copy)
        painter.drawImage(0, copy * page.height(), page);
    return picture;
}

Task<> recordEnd(Task<std::vector<RecognizedLine>> reading, bool* isCancelled) {
    try {
        co_await reading;
    } catch (const Cancelled&) {
        *isCancelled = true;
    }
}

TEST_F(EngineTextRecognizerTest, AStopEndsTheWorkAndTheNextPictureIsRead) {
    read(samplePicture(QStringLiteral("prose")));
    std::stop_source stop;
    bool isCancelled = false;
    QObject owner;
    launch(
        recordEnd(recognizer_.recognize({longPicture(), {}, {}}, stop.get_token()), &isCancelled),
        &owner);
    waitFor(std::chrono::milliseconds(150));
    ASSERT_FALSE(isCancelled);
    QElapsedTimer clock;
    clock.start();
    stop.request_stop();
    ASSERT_TRUE(waitUntil([&] { return isCancelled; }));
    EXPECT_LT(clock.elapsed(), 200);
    // The next one waits for the thread that was stopped; were it not, this took a second.
    EXPECT_EQ(read(samplePicture(QStringLiteral("hans"))).size(), 4U);
}

TEST(EngineTextRecognizer, TheEngineIsReleasedSomeTimeAfterItsLastUse) {
    EngineTextRecognizer recognizer(filesIn(installed), std::chrono::milliseconds(300));
    EXPECT_FALSE(recognizer.isLoaded());
    runUntilDone(recognizer.recognize({samplePicture(QStringLiteral("hans")), {}, {}}, {}));
    EXPECT_TRUE(recognizer.isLoaded());
    EXPECT_TRUE(waitUntil([&] { return !recognizer.isLoaded(); }));
}

/// What reading says where one of the files is what `damage` makes of it.
QString refusalFor(const QString& name, const std::function<void(QFile&)>& damage) {
    const QTemporaryDir folder;
    for (const QString& file : QDir(installed).entryList(QDir::Files))
        QFile::link(installed + QLatin1Char('/') + file, folder.filePath(file));
    QFile damaged(folder.filePath(name));
    damaged.remove();
    QFile::copy(installed + QLatin1Char('/') + name, damaged.fileName());
    damage(damaged);
    EngineTextRecognizer recognizer(filesIn(folder.path()));
    try {
        runUntilDone(recognizer.recognize({samplePicture(QStringLiteral("hans")), {}, {}}, {}));
    } catch (const TextRecognitionError& error) {
        EXPECT_EQ(error.which(), TextRecognitionError::Case::unavailable);
        return error.errorDescription();
    }
    return {};
}

TEST(EngineTextRecognizer, FilesThatAreMissingOrDamagedAreNamed) {
    for (const char* name :
         {"libonnxruntime.so.1", "text-lines.onnx", "characters.onnx", "characters.txt"}) {
        const QString file = QString::fromLatin1(name);
        const QString missing = refusalFor(file, [](QFile& each) { each.remove(); });
        EXPECT_TRUE(missing.contains(file)) << qPrintable(missing);
        const QString half =
            refusalFor(file, [](QFile& each) { each.resize(each.size() / 2 / 4096 * 4096); });
        EXPECT_TRUE(half.startsWith(QStringLiteral("Text recognition is damaged")))
            << name << qPrintable(half);
    }
}

}  // namespace
}  // namespace kestrio
