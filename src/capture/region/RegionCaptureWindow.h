#pragma once

#include "capture/RegionSelector.h"
#include "capture/overlay/FrozenWindow.h"
#include "capture/region/CaptureToolbarPainter.h"
#include "capture/region/RegionSelection.h"

#include <functional>

namespace kestrio {

/// The overlay on which a region is chosen. Ends once, with what was chosen or with nothing where
/// it was cancelled; whoever opened it closes it then.
class RegionCaptureWindow : public FrozenWindow {
    Q_OBJECT

  public:
    using Ending = std::function<void(std::optional<RegionCaptureResult>)>;

    RegionCaptureWindow(const Display& display, DisplaySnapshot snapshot,
                        std::vector<WindowInfo> windows, RegionSelectionOptions options,
                        bool isDark, Ending ending);

  protected:
    QRegion undimmed() const override;
    void paintOver(QPainter& painter) override;
    bool takeKey(const QKeyEvent& event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    bool isAdjusting() const { return selection_.phase() == SelectionPhase::adjusting; }
    bool showsPointerAids() const;
    bool showsMagnifier() const;
    QRectF toolbarRect() const;
    QRectF labelRect() const;
    ToolbarLook toolbarLook() const;
    /// All that may differ from the picture, for reporting what has changed.
    QRegion decorations() const;
    /// Repaints what differs between before and now.
    void follow(const QRegion& before, const QRectF& cutOutBefore);
    template <typename Change>
    void change(Change change);
    QString sizeText() const;
    void hoverToolbar(QPointF point);
    bool takeAdjustingKey(const QKeyEvent& event);
    void moveByKey(const QKeyEvent& event, QPointF step);
    void choose();
    void run(const ToolbarCommand& command);
    void end(CaptureAction action, std::optional<AnnotationTool> tool);
    void cancel();
    Image crop() const;

    RegionSelection selection_;
    RegionSelectionOptions options_;
    QRectF bounds_;
    bool isDark_;
    Ending ending_;
    CaptureToolbar toolbar_;
    std::optional<CodableColor> toolColor_;
    CaptureToolbarPainter toolbarPainter_;
    int hoveredButton_ = -1;
    int pressedButton_ = -1;
    bool showsToolTip_ = false;
    QTimer toolTipDelay_;
};

}  // namespace kestrio
