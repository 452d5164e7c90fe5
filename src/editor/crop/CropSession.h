#pragma once

#include "core/Published.h"

#include <QObject>
#include <QRectF>
#include <optional>

namespace kestrio {

/// The crop frame while the user is cropping. Main thread.
class CropSession : public QObject {
    Q_OBJECT
    PUBLISHED(bool, isCropMode, false)
    /// Points of the screenshot.
    PUBLISHED_WRITABLE(QRectF, cropRect, {})
    PUBLISHED(bool, cropLockAspectRatio, false)
    /// Width by height.
    PUBLISHED(std::optional<double>, cropLockedRatio, std::nullopt)

  public:
    /// Begins with a frame around the whole picture, whose size is in points.
    void begin(const QSizeF& size);
    void end();
    /// Locks the frame to a ratio (width by height), or frees it.
    void setCropRatio(std::optional<double> ratio);
};

}  // namespace kestrio
