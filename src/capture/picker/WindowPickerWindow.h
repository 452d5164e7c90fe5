#pragma once

#include "capture/WindowPicker.h"
#include "capture/overlay/FrozenWindow.h"

#include <functional>

namespace kestrio {

/// The overlay on which a window is picked with a click. Ends once; whoever opened it closes it
/// then.
class WindowPickerWindow : public FrozenWindow {
    Q_OBJECT

  public:
    struct Endings {
        std::function<void(std::optional<WindowInfo>)> picked;  ///< nothing for a click beside
        std::function<void()> cancelled;
    };

    WindowPickerWindow(const Display& display, DisplaySnapshot snapshot,
                       std::vector<WindowInfo> windows, Endings endings);

  protected:
    QRegion undimmed() const override;
    void paintOver(QPainter& painter) override;
    bool takeKey(const QKeyEvent& event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    const WindowInfo* windowUnder(QPointF point) const;
    QRectF inView(const WindowInfo& window) const;
    QRectF nameBox(const WindowInfo& window) const;
    /// At the top, or at the bottom where the hovered window's name is in the way.
    QRectF hintBox() const;
    void hover(const WindowInfo* window);
    void paintHighlight(QPainter& painter, const WindowInfo& window) const;
    void cancel();

    QRectF bounds_;
    std::vector<WindowInfo> windows_;
    const WindowInfo* hovered_ = nullptr;
    Endings endings_;
};

}  // namespace kestrio
