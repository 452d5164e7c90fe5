#include "app/clipboard/ClipboardKeeper.h"

#include "core/Log.h"
#include "imaging/Image.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/ImageEncoder.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>
#include <QTemporaryFile>
#include <QTimer>

namespace kestrio {

namespace {

constexpr std::chrono::milliseconds patience(4000);
constexpr std::chrono::milliseconds busyPause(15);
constexpr std::chrono::milliseconds idlePause(500);
// The first byte of the file tells what follows.
constexpr char pictureMark = 'P';
constexpr char textMark = 'T';
constexpr char filesMark = 'F';  // their paths, each on a line

QByteArray contentsOf(const Pasteboard& pasteboard) {
    const QImage picture = pasteboard.readImage();
    if (!picture.isNull()) {
        return pictureMark + encodeImage(inCanonicalFormat(picture), ExportFormat::png);
    }
    const QStringList files = pasteboard.readFiles();
    if (!files.isEmpty()) return filesMark + files.join(u'\n').toUtf8();
    const QString text = pasteboard.readText();
    return text.isEmpty() ? QByteArray() : textMark + text.toUtf8();
}

// Runs the event loop, through which programs ask for the contents.
void waitForOtherOwner(const Pasteboard& pasteboard, std::chrono::milliseconds pause,
                       std::optional<std::chrono::milliseconds> limit) {
    QEventLoop loop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        if (!pasteboard.ownsContents()) loop.quit();
    });
    poll.start(pause);
    if (limit) QTimer::singleShot(*limit, &loop, &QEventLoop::quit);
    if (pasteboard.ownsContents()) loop.exec();
}

void put(Pasteboard& pasteboard, const QByteArray& contents) {
    const QByteArray payload = contents.mid(1);
    if (contents.startsWith(pictureMark)) {
        pasteboard.writeImage(decodeImage(payload), payload);
    } else if (contents.startsWith(filesMark)) {
        pasteboard.writeFiles(QString::fromUtf8(payload).split(u'\n'));
    } else {
        pasteboard.writeText(QString::fromUtf8(payload));
    }
}

}  // namespace

void handOverClipboard(Pasteboard& pasteboard) {
    if (!pasteboard.ownsContents()) return;
    QTemporaryFile file;
    file.setAutoRemove(false);
    try {
        const QByteArray contents = contentsOf(pasteboard);
        if (contents.isEmpty() || !file.open() || file.write(contents) != contents.size()) return;
        file.close();
    } catch (const std::exception& error) {
        logLine("ClipboardKeeper", describeFailure(error));
        return;
    }
    QProcess keeper;
    keeper.setProgram(QCoreApplication::applicationFilePath());
    keeper.setArguments({QStringLiteral("hold-clipboard"), file.fileName()});
    // Whoever reads what this program writes must not wait for that one to end.
    keeper.setStandardInputFile(QProcess::nullDevice());
    keeper.setStandardOutputFile(QProcess::nullDevice());
    keeper.setStandardErrorFile(QProcess::nullDevice());
    if (!keeper.startDetached()) {
        QFile::remove(file.fileName());
        return;
    }
    waitForOtherOwner(pasteboard, busyPause, patience);
}

bool holdClipboard(Pasteboard& pasteboard, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QByteArray contents = file.readAll();
    file.remove();
    put(pasteboard, contents);
    waitForOtherOwner(pasteboard, idlePause, std::nullopt);
    return true;
}

}  // namespace kestrio
