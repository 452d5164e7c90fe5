#pragma once

#include "imaging/Image.h"
#include "platform/Displays.h"
#include "platform/ScreenGrabber.h"
#include "platform/WindowList.h"

#include <memory>

namespace kestrio {

/// The screen could not be read.
class ScreenSnapshotError : public Error {
  public:
    enum class Case { region, display };

    explicit ScreenSnapshotError(Case which) : which_(which) {}
    QString errorDescription() const override;

  private:
    Case which_;
};

/// A display as it was at one moment.
struct DisplaySnapshot {
    QImage image;   ///< Format_RGB32
    QRectF bounds;  ///< points of the desktop
    double scale = 1;
};

/// Takes pictures of the screen. Rectangles are in points of the desktop. Main thread only. All
/// throw ScreenSnapshotError, and Cancelled after a stop.
class ScreenSnapshotProviderProtocol {
  public:
    virtual ~ScreenSnapshotProviderProtocol() = default;

    /// The rectangle grown to whole points; the display under its centre gives the scale.
    virtual Task<Image> capture(QRectF rect, std::stop_token stop = {}) = 0;
    /// Throws ScreenGrabError::windowGone where the window has gone.
    virtual Task<Image> captureWindow(WindowInfo window, std::stop_token stop = {}) = 0;
    virtual Task<DisplaySnapshot> captureDisplay(Display display, std::stop_token stop = {}) = 0;
};

class ScreenSnapshotProvider : public ScreenSnapshotProviderProtocol {
  public:
    ScreenSnapshotProvider(std::shared_ptr<ScreenGrabber> grabber,
                           std::shared_ptr<Displays> displays);

    Task<Image> capture(QRectF rect, std::stop_token stop) override;
    Task<Image> captureWindow(WindowInfo window, std::stop_token stop) override;
    Task<DisplaySnapshot> captureDisplay(Display display, std::stop_token stop) override;

  private:
    std::optional<Display> displayUnder(const QRectF& rect) const;

    std::shared_ptr<ScreenGrabber> grabber_;
    std::shared_ptr<Displays> displays_;
};

}  // namespace kestrio
