#pragma once

#include "core/Published.h"
#include "scrolling/capture/ScrollingPresenter.h"
#include "scrolling/overlays/ScrollPositionIndicator.h"

namespace kestrio {

/// What the panel of a long capture says and offers, all of it as it is shown. Main thread.
class ScrollingStatusModel : public QObject {
    Q_OBJECT
    PUBLISHED(QString, status, {})
    /// Frames and height so far; empty before the first.
    PUBLISHED(QString, progress, {})
    PUBLISHED(QString, hint, {})
    PUBLISHED(bool, isBottomReached, false)
    /// The newest frame, made small; null before the first.
    PUBLISHED(QImage, thumbnail, {})
    /// The newest frame within the long picture, in pixels.
    PUBLISHED(ScrollPositionIndicator, indicator, {})
    /// The button that goes on: what it does, and the key for it.
    PUBLISHED(QString, primaryTitle, {})
    PUBLISHED(QString, primaryTip, {})
    PUBLISHED(QString, primaryKey, {})
    /// Whether anything can be pressed.
    PUBLISHED(bool, isPressable, true)

  public:
    /// `visibleHeight` is that of the region, in pixels.
    ScrollingStatusModel(bool isManual, double visibleHeight, QObject* parent = nullptr);

    void showProgress(const ScrollingProgress& newest);
    void showStarted();
    void showStitching();

    /// What the button that goes on does now: starts or completes.
    Q_INVOKABLE void pressPrimary();
    Q_INVOKABLE void pressCancel();
    /// Each comes once at most.
    Q_SIGNAL void startRequested();
    Q_SIGNAL void completeRequested();
    Q_SIGNAL void cancelRequested();

    /// The panel in a few lines of plain text, for where it cannot be shown.
    QString summary() const;

  private:
    enum class Phase { scrolling, waiting, autoScrolling, stitching };

    void enter(Phase phase);

    Phase phase_ = Phase::scrolling;
    double visibleHeight_;
    bool isStartRequested_ = false;
    bool isCompleteRequested_ = false;
    bool isCancelRequested_ = false;
};

}  // namespace kestrio
