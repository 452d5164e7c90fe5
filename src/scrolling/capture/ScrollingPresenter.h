#pragma once

#include <QImage>
#include <QObject>
#include <QRectF>
#include <QString>

namespace kestrio {

/// What is shown of a long capture while it goes on.
struct ScrollingPresentation {
    QRectF region;         ///< points of the desktop
    bool isManual = true;  ///< the user scrolls; else the program does
};

/// How far a long capture has come.
struct ScrollingProgress {
    QImage thumbnail;  ///< the newest frame, made small already; null where unchanged
    int frameCount = 0;
    int heightPixels = 0;  ///< of the long picture so far
    bool reachedBottom = false;
    QString hint;  ///< a sentence about the newest frame, such as that the user scrolled
                   ///< too fast; empty for none
};

/// Shows a long capture to the user and takes what the user decides. begin() and end() enclose one
/// capture; requests come from the event loop, never from within a call, so that their receiver may
/// end the presentation at once. Main thread only.
class ScrollingPresenter : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    /// Shows frame and panel. In automatic mode the panel waits for the user to start.
    virtual void begin(const ScrollingPresentation& presentation) = 0;
    virtual void showProgress(const ScrollingProgress& progress) = 0;
    /// A frame was accepted.
    virtual void flash() = 0;
    /// Automatic scrolling has begun.
    virtual void showStarted() = 0;
    /// The result is being put together; nothing can be pressed any more.
    virtual void showStitching() = 0;
    virtual void end() = 0;

    Q_SIGNAL void startRequested();  ///< automatic mode only
    Q_SIGNAL void completeRequested();
    Q_SIGNAL void cancelRequested();
};

}  // namespace kestrio
