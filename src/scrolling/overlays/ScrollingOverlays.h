#pragma once

#include "platform/Appearance.h"
#include "platform/Displays.h"
#include "platform/FloatingWindows.h"
#include "platform/GlobalHotkeys.h"
#include "scrolling/capture/ScrollingPresenter.h"
#include "scrolling/overlays/StatusPanel.h"

namespace kestrio {

class CaptureKeys;
class ScrollingRegionOverlay;

struct ScrollingOverlayServices {
    std::shared_ptr<Displays> displays;
    std::shared_ptr<FloatingWindows> floating;
    std::shared_ptr<Appearance> appearance;
    std::shared_ptr<GlobalHotkeys> hotkeys;
};

/// Shows a long capture by a frame round its region and a panel beside it, and takes keys from
/// whatever window has the focus. Nothing of it lies in the region. Main thread.
class ScrollingOverlays : public ScrollingPresenter {
    Q_OBJECT

  public:
    /// Is given what the panel would say, whenever that changes, where the region leaves no room
    /// for a panel; and an empty text once such a capture ends. It must show nothing over the
    /// region.
    using Notify = std::function<void(QString)>;

    ScrollingOverlays(ScrollingOverlayServices services, StatusPanelFactory makePanel,
                      Notify notify, QObject* parent = nullptr);
    ~ScrollingOverlays() override;

    void begin(const ScrollingPresentation& presentation) override;
    void showProgress(const ScrollingProgress& progress) override;
    void flash() override;
    void showStarted() override;
    void showStitching() override;
    void end() override;

  private:
    void relayRequests();
    void showPanel(const QRectF& region);
    void notify(const QString& text);

    ScrollingOverlayServices services_;
    StatusPanelFactory makePanel_;
    Notify notify_;
    std::unique_ptr<ScrollingStatusModel> model_;
    std::unique_ptr<ScrollingRegionOverlay> frame_;
    std::unique_ptr<StatusPanel> panel_;
    std::unique_ptr<CaptureKeys> keys_;
    QString notice_;
};

}  // namespace kestrio
