#include "app/clipboard/ClipboardKeeper.h"

#include "app/clipboard/HeldContents.h"
#include "app/clipboard/KeeperProcess.h"
#include "imaging/Image.h"
#include "imaging/codecs/ImageEncoder.h"

#include <QClipboard>
#include <QEventLoop>
#include <QGuiApplication>
#include <QSocketNotifier>
#include <QTimer>

namespace kestrio {

namespace {

constexpr std::chrono::milliseconds patience(4000);
// Beside the desktop's own notice of a change.
constexpr std::chrono::milliseconds ownerPoll(2000);

QByteArray ownContents(Pasteboard& pasteboard) {
    HeldContents held;
    held.owner = pasteboard.owner();
    held.contents = runUntilDone(
        pasteboard.read({PasteboardKind::picture, PasteboardKind::files, PasteboardKind::text}));
    const QImage picture = std::exchange(held.contents.image, {});
    if (!picture.isNull() && held.contents.png.isEmpty()) {
        held.contents.png = encodeImage(inCanonicalFormat(picture), ExportFormat::png);
    }
    return held.encoded();
}

// Runs the event loop, through which programs ask for the contents.
bool waitForAnswer(const KeeperProcess& keeper) {
    QEventLoop loop;
    bool hasAnswered = false;
    QSocketNotifier notifier(keeper.answerDescriptor(), QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &loop, [&] {
        hasAnswered = true;
        notifier.setEnabled(false);
        loop.quit();
    });
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    loop.exec();
    return hasAnswered && keeper.hasTakenOver();
}

void waitForOtherOwner(const Pasteboard& pasteboard) {
    QEventLoop loop;
    const auto look = [&] {
        if (!pasteboard.ownsContents()) loop.quit();
    };
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, look);
    QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, &loop, look);
    poll.start(ownerPoll);
    if (pasteboard.ownsContents()) loop.exec();
}

bool put(Pasteboard& pasteboard, const PasteboardContents& contents) {
    // Not decoded: this process waits for hours with it.
    if (!contents.png.isEmpty()) return pasteboard.writeImage(QImage(), contents.png);
    if (!contents.files.isEmpty()) return pasteboard.writeFiles(contents.files);
    return pasteboard.writeText(contents.text);
}

}  // namespace

void handOverClipboard(Pasteboard& pasteboard) {
    if (!pasteboard.ownsContents()) return;
    const KeeperProcess keeper(ownContents(pasteboard));
    // Where it has not, another program may have copied in the meantime.
    if (!waitForAnswer(keeper) && pasteboard.ownsContents()) {
        throw PasteboardError(PasteboardError::Case::notKept);
    }
}

bool holdClipboard(Pasteboard& pasteboard, const QByteArray& bytes,
                   const std::function<void()>& taken) {
    const auto held = HeldContents::decoded(bytes);
    if (!held) return false;
    // Nobody owns it where the process before was killed just now.
    const quint32 present = pasteboard.owner();
    if (present != held->owner && present != 0) return false;
    if (!put(pasteboard, held->contents)) return false;
    taken();
    waitForOtherOwner(pasteboard);
    return true;
}

}  // namespace kestrio
