#include "library/pins/PinnedScreenshotCoordinator.h"

#include "library/pins/PinGeometry.h"
#include "library/pins/PinnedScreenshotWindow.h"

#include <QPointer>

namespace kestrio {

namespace {

// Where no display is known, as while all are unplugged.
constexpr QRectF fallbackFrame(0, 0, 1440, 900);

}  // namespace

PinnedScreenshotCoordinator::PinnedScreenshotCoordinator(
    std::shared_ptr<Displays> displays, std::shared_ptr<FloatingWindows> floating,
    std::shared_ptr<PictureExporterProtocol> exporter, QObject* parent)
    : QObject(parent),
      displays_(std::move(displays)),
      floating_(std::move(floating)),
      exporter_(std::move(exporter)) {}

PinnedScreenshotCoordinator::~PinnedScreenshotCoordinator() {
    for (const auto& [id, window] : pinnedWindows_)
        delete window;
}

PinnedScreenshotModel PinnedScreenshotCoordinator::makeModel(Image image) const {
    const auto all = displays_->displays();
    const QSizeF size = pinnedSize(image.pointSize());
    PinnedScreenshotModel model;
    model.id = QUuid::createUuid();
    model.size = size;
    model.position =
        centredPin(size, all.empty() ? fallbackFrame : all.front().visibleFrame).topLeft();
    model.image = std::move(image);
    model.createdAt = QDateTime::currentDateTime();
    return model;
}

QUuid PinnedScreenshotCoordinator::pin(Image image) {
    const PinnedScreenshotModel model = makeModel(std::move(image));
    auto* window = new PinnedScreenshotWindow(model, floating_);
    connect(window, &PinnedScreenshotWindow::closeRequested, this,
            [this, id = model.id] { close(id); });
    connect(window, &PinnedScreenshotWindow::copyRequested, this,
            [this, image = model.image] { launch(copy(image), this); });
    pinnedWindows_.emplace(model.id, window);
    windowModels_.emplace(model.id, model);
    window->open();
    Q_EMIT pinnedWindowsChanged();
    return model.id;
}

Task<> PinnedScreenshotCoordinator::copy(Image image) {
    const QPointer<PinnedScreenshotCoordinator> self(this);
    QString failure;
    try {
        auto copying = exporter_->copyToClipboard(std::move(image));
        co_await copying;
    } catch (const std::exception& error) {
        failure = describeFailure(error);
    }
    if (self && !failure.isEmpty()) Q_EMIT copyFailed(failure);
}

void PinnedScreenshotCoordinator::close(const QUuid& id) {
    const auto found = pinnedWindows_.find(id);
    if (found == pinnedWindows_.end()) return;
    PinnedScreenshotWindow* window = found->second;
    pinnedWindows_.erase(found);
    windowModels_.erase(id);
    window->disconnect(this);
    window->hide();
    // The call that closes it may come from the window itself.
    window->deleteLater();
    Q_EMIT pinnedWindowsChanged();
}

void PinnedScreenshotCoordinator::closeAll() {
    while (!pinnedWindows_.empty())
        close(QUuid(pinnedWindows_.begin()->first));
}

PinnedScreenshotWindow* PinnedScreenshotCoordinator::window(const QUuid& id) const {
    const auto found = pinnedWindows_.find(id);
    return found == pinnedWindows_.end() ? nullptr : found->second;
}

}  // namespace kestrio
