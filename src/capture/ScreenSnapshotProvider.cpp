#include "capture/ScreenSnapshotProvider.h"

#include "core/Localisation.h"

namespace kestrio {

QString ScreenSnapshotError::errorDescription() const {
    return which_ == Case::region ? Kestrio::tr("Failed to capture screen region")
                                  : Kestrio::tr("Failed to capture display");
}

ScreenSnapshotProvider::ScreenSnapshotProvider(std::shared_ptr<ScreenGrabber> grabber,
                                               std::shared_ptr<Displays> displays)
    : grabber_(std::move(grabber)), displays_(std::move(displays)) {}

std::optional<Display> ScreenSnapshotProvider::displayUnder(const QRectF& rect) const {
    if (auto display = displays_->displayAt(rect.center())) return display;
    const auto all = displays_->displays();
    if (all.empty()) return std::nullopt;
    return all.front();
}

Task<Image> ScreenSnapshotProvider::capture(QRectF rect, std::stop_token stop) {
    const QRectF whole = rect.normalized().toAlignedRect();
    const auto display = displayUnder(whole);
    if (whole.isEmpty() || !display) throw ScreenSnapshotError(ScreenSnapshotError::Case::region);
    QImage pixels;
    try {
        auto grabbing =
            grabber_->grabRectangle(display->toPixels(whole).toAlignedRect(), std::move(stop));
        pixels = co_await grabbing;
    } catch (const ScreenGrabError&) {
        throw ScreenSnapshotError(ScreenSnapshotError::Case::region);
    }
    // What lay outside the desktop is missing, so the size follows the pixels.
    co_return Image(std::move(pixels), display->scale);
}

Task<Image> ScreenSnapshotProvider::captureWindow(WindowInfo window, std::stop_token stop) {
    const auto display = displayUnder(window.bounds);
    const double scale = display ? display->scale : 1;
    auto grabbing = grabber_->grabWindow(window.windowID, std::move(stop));
    QImage pixels = co_await grabbing;
    co_return Image(std::move(pixels), scale);
}

Task<DisplaySnapshot> ScreenSnapshotProvider::captureDisplay(Display display,
                                                             std::stop_token stop) {
    QImage pixels;
    try {
        auto grabbing = grabber_->grabRectangle(display.pixels, std::move(stop));
        pixels = co_await grabbing;
    } catch (const ScreenGrabError&) {
        throw ScreenSnapshotError(ScreenSnapshotError::Case::display);
    }
    co_return DisplaySnapshot{std::move(pixels), display.bounds, display.scale};
}

}  // namespace kestrio
