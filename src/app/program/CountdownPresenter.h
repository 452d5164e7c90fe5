#pragma once

#include "app/capture/CaptureCoordinator.h"
#include "platform/Displays.h"
#include "platform/FloatingWindows.h"
#include "platform/GlobalHotkeys.h"

namespace kestrio {

class CountdownWindow;

/// Shows the seconds that are left of a timed capture on the display under the pointer, and takes
/// Escape for calling it off, whichever window has the focus. Main thread.
class CountdownPresenter : public QObject {
    Q_OBJECT

  public:
    CountdownPresenter(std::shared_ptr<CaptureCoordinator> captures,
                       std::shared_ptr<Displays> displays,
                       std::shared_ptr<FloatingWindows> floating,
                       std::shared_ptr<GlobalHotkeys> hotkeys, QObject* parent = nullptr);
    ~CountdownPresenter() override;

  private:
    void follow();
    void show(int seconds);
    void hide();

    std::shared_ptr<CaptureCoordinator> captures_;
    std::shared_ptr<Displays> displays_;
    std::shared_ptr<FloatingWindows> floating_;
    std::shared_ptr<GlobalHotkeys> hotkeys_;
    std::unique_ptr<CountdownWindow> window_;
};

}  // namespace kestrio
