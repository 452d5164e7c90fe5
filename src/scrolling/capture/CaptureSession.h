#pragma once

#include <QDateTime>
#include <QRectF>
#include <QUuid>
#include <optional>
#include <vector>

#include "core/Published.h"
#include "scrolling/capture/ScrollingCaptureConfig.h"
#include "scrolling/capture/ScrollingCaptureError.h"
#include "scrolling/capture/ScrollingFrame.h"

namespace kestrio {

/// Where a scrolling capture is.
struct CaptureSessionState {
    enum class Phase { idle, selectingRegion, capturing, stitching, completed, cancelled, failed };

    Phase phase = Phase::idle;
    std::optional<ScrollingCaptureError> error = std::nullopt;  ///< of a failed one

    bool operator==(const CaptureSessionState&) const = default;
};

/// A frame that was accepted.
struct CapturedFrame {
    QUuid id;
    QImage image;
    int sequenceNumber = 0;
    QDateTime captureTime;
    QRectF region;  ///< points of the desktop

    bool operator==(const CapturedFrame& other) const { return id == other.id; }
};

/// One scrolling capture: its state, and the newest of its frames. Main thread.
class CaptureSession : public QObject {
    Q_OBJECT
    PUBLISHED_WRITABLE(CaptureSessionState, state, {})
    PUBLISHED(std::vector<CapturedFrame>, frames, {})
    PUBLISHED_WRITABLE(QRectF, captureRegion, {})

  public:
    explicit CaptureSession(ScrollingCaptureConfig config) : config_(config) {}

    const ScrollingCaptureConfig& config() const { return config_; }
    const QDateTime& startTime() const { return startTime_; }
    /// How many frames were accepted.
    int nextSequenceNumber() const { return nextSequenceNumber_; }

    /// Only the newest two are kept.
    void addFrame(const QImage& image);

  private:
    ScrollingCaptureConfig config_;
    QDateTime startTime_ = QDateTime::currentDateTime();
    int nextSequenceNumber_ = 0;
};

}  // namespace kestrio
