#pragma once

#include "platform/Appearance.h"
#include "platform/FloatingWindows.h"
#include "scrolling/overlays/StatusPanel.h"
#include "ui/views/EngineLease.h"

class QQuickWindow;

namespace kestrio {

/// The panel of a long capture as a window of its own. It is made of the controls of the editor,
/// which opens right after the capture and finds the engine loaded. It does not take the focus when
/// it appears; clicked, it takes keys. Needs a GUI application; main thread.
class ScrollingStatusWindow : public StatusPanel {
  public:
    /// `model` outlives the window.
    ScrollingStatusWindow(ScrollingStatusModel& model, std::shared_ptr<Appearance> appearance,
                          std::shared_ptr<FloatingWindows> floating);
    ~ScrollingStatusWindow() override;
    Q_DISABLE_COPY_MOVE(ScrollingStatusWindow)

    QSize size() const override;
    void showAt(const QRect& place) override;
    /// Null where the views could not be loaded.
    QQuickWindow* window() const { return window_.get(); }

  private:
    std::shared_ptr<Appearance> appearance_;
    std::shared_ptr<FloatingWindows> floating_;
    EngineLease lease_;
    std::unique_ptr<QQuickWindow> window_;
};

/// Makes such windows.
StatusPanelFactory statusWindows(std::shared_ptr<Appearance> appearance,
                                 std::shared_ptr<FloatingWindows> floating);

}  // namespace kestrio
