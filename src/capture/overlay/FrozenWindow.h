#pragma once

#include "capture/ScreenSnapshotProvider.h"
#include "capture/overlay/StripedDimming.h"

#include <QBackingStore>
#include <QRegion>
#include <QTimer>
#include <QWindow>
#include <functional>

class QPainter;

namespace kestrio {

/// How a screen is dimmed of which there is no picture.
enum class LiveDimming {
    translucent,  ///< by a compositor, through the window's alpha channel
    striped,      ///< without one
};

/// A window over a whole display that shows it frozen and dimmed, with parts as they were, and
/// takes all keys while it is shown. Without a picture the live screen below it is dimmed instead.
/// Written straight into the window's memory: it must appear at once and follow the pointer.
/// Coordinates are points of the display unless said otherwise.
class FrozenWindow : public QWindow {
    Q_OBJECT

  public:
    /// `snapshot` may be without a picture.
    FrozenWindow(const Display& display, DisplaySnapshot snapshot);

    /// What is done without a picture; counts before open().
    void setLiveDimming(LiveDimming dimming) { dimming_ = dimming; }
    void open();
    /// Called at each key and each event of the pointer.
    void setInputListener(std::function<void()> listener) { inputListener_ = std::move(listener); }

  protected:
    /// The rectangles that are shown undimmed.
    virtual QRegion undimmed() const { return {}; }
    /// Draws what stands over the picture.
    virtual void paintOver(QPainter& painter) = 0;
    /// Whether the key meant something.
    virtual bool takeKey(const QKeyEvent& event) = 0;

    /// Repaints these points, now.
    void repaint(const QRegion& points);
    void repaintAll() { repaint(QRect(QPoint(), size())); }
    const DisplaySnapshot& snapshot() const { return snapshot_; }

    bool event(QEvent* event) override;
    void exposeEvent(QExposeEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QRect toPixels(const QRect& points) const;
    void paintGround(QImage& target, const QRegion& points) const;
    /// The same on screens whose memory cannot be written as it is, and without a picture.
    void paintGround(QPainter& painter, const QRegion& points) const;
    void repaintStriped(const QRegion& points);
    void grabKeys();
    void noteInput() const;

    DisplaySnapshot snapshot_;
    QBackingStore store_;
    QTimer grabbing_;
    int grabTries_ = 0;
    LiveDimming dimming_ = LiveDimming::striped;
    std::optional<StripedDimming> stripes_;
    std::function<void()> inputListener_;
};

}  // namespace kestrio
