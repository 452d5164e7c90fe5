#include "scrolling/overlays/ScrollingStatusModel.h"

#include "core/Localisation.h"

#include <QLocale>
#include <algorithm>

namespace kestrio {

ScrollingStatusModel::ScrollingStatusModel(bool isManual, double visibleHeight, QObject* parent)
    : QObject(parent), visibleHeight_(visibleHeight) {
    enter(isManual ? Phase::scrolling : Phase::waiting);
}

void ScrollingStatusModel::enter(Phase phase) {
    phase_ = phase;
    switch (phase) {
        case Phase::scrolling:
            set_status(Kestrio::tr("Scroll the target window to capture..."));
            break;
        case Phase::waiting:
            set_status(Kestrio::tr("Region selected. Click to start auto-scroll capture."));
            break;
        case Phase::autoScrolling:
            set_status(Kestrio::tr("Auto-scrolling capture in progress..."));
            break;
        case Phase::stitching:
            set_status(Kestrio::tr("Putting the picture together…"));
            break;
    }
    const bool isWaiting = phase == Phase::waiting;
    set_primaryTitle(isWaiting ? Kestrio::tr("Start Scrolling") : Kestrio::tr("Done"));
    set_primaryTip(isWaiting ? Kestrio::tr("Scroll and capture the window")
                             : Kestrio::tr("Make one picture of all frames"));
    set_primaryKey(isWaiting ? Kestrio::tr("Enter to start") : Kestrio::tr("Enter to stop"));
    set_isPressable(phase != Phase::stitching);
}

void ScrollingStatusModel::showProgress(const ScrollingProgress& newest) {
    if (!newest.thumbnail.isNull()) set_thumbnail(newest.thumbnail);
    set_hint(newest.hint);
    set_isBottomReached(newest.reachedBottom);
    if (newest.frameCount == 0) return;
    set_progress(Kestrio::tr("%Ln frames, %1 px", nullptr, newest.frameCount)
                     .arg(QLocale().toString(newest.heightPixels)));
    ScrollPositionIndicator now;
    now.visibleHeight = visibleHeight_;
    now.contentHeight = std::max<double>(newest.heightPixels, visibleHeight_);
    now.scrollOffset = now.contentHeight - visibleHeight_;
    set_indicator(now);
}

void ScrollingStatusModel::showStarted() {
    if (phase_ == Phase::waiting) enter(Phase::autoScrolling);
}

void ScrollingStatusModel::showStitching() {
    set_hint({});
    enter(Phase::stitching);
}

void ScrollingStatusModel::pressPrimary() {
    if (!isPressable()) return;
    if (phase_ == Phase::waiting) {
        if (!std::exchange(isStartRequested_, true)) Q_EMIT startRequested();
    } else if (!std::exchange(isCompleteRequested_, true)) {
        Q_EMIT completeRequested();
    }
}

void ScrollingStatusModel::pressCancel() {
    if (isPressable() && !std::exchange(isCancelRequested_, true)) Q_EMIT cancelRequested();
}

QString ScrollingStatusModel::summary() const {
    QStringList lines{Kestrio::tr("Scrolling Capture"), status()};
    for (const QString& each : {progress(), hint()})
        if (!each.isEmpty()) lines << each;
    if (isBottomReached()) lines << Kestrio::tr("Bottom reached");
    if (isPressable()) lines << primaryKey() << Kestrio::tr("Esc to cancel");
    return lines.join(u'\n');
}

}  // namespace kestrio
