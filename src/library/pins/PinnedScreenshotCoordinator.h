#pragma once

#include "core/Task.h"
#include "library/export/PictureExporter.h"
#include "library/pins/PinnedScreenshotModel.h"
#include "platform/Displays.h"
#include "platform/FloatingWindows.h"

#include <map>
#include <memory>

namespace kestrio {

class PinnedScreenshotWindow;

/// Pins pictures to the desktop. Main thread only.
class PinnedScreenshotCoordinatorProtocol {
  public:
    virtual ~PinnedScreenshotCoordinatorProtocol() = default;

    /// Opens a window that floats over all others, without taking the focus.
    virtual QUuid pin(Image image) = 0;
    /// Nothing happens for an unknown id.
    virtual void close(const QUuid& id) = 0;
    virtual void closeAll() = 0;
};

/// Pins in windows of their own, which stay until they are closed or the program ends.
class PinnedScreenshotCoordinator : public QObject, public PinnedScreenshotCoordinatorProtocol {
    Q_OBJECT

  public:
    PinnedScreenshotCoordinator(std::shared_ptr<Displays> displays,
                                std::shared_ptr<FloatingWindows> floating,
                                std::shared_ptr<PictureExporterProtocol> exporter,
                                QObject* parent = nullptr);
    ~PinnedScreenshotCoordinator() override;

    QUuid pin(Image image) override;
    void close(const QUuid& id) override;
    void closeAll() override;

    /// What is pinned now.
    const std::map<QUuid, PinnedScreenshotModel>& windowModels() const { return windowModels_; }
    /// Null for an unknown id.
    PinnedScreenshotWindow* window(const QUuid& id) const;

    Q_SIGNAL void pinnedWindowsChanged();
    /// A pin's picture could not be copied; `message` is for the user.
    Q_SIGNAL void copyFailed(const QString& message);

  private:
    PinnedScreenshotModel makeModel(Image image) const;
    Task<> copy(Image image);

    std::shared_ptr<Displays> displays_;
    std::shared_ptr<FloatingWindows> floating_;
    std::shared_ptr<PictureExporterProtocol> exporter_;
    std::map<QUuid, PinnedScreenshotWindow*> pinnedWindows_;
    std::map<QUuid, PinnedScreenshotModel> windowModels_;
};

}  // namespace kestrio
