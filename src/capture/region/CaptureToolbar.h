#pragma once

#include "annotation/editing/AnnotationTool.h"
#include "capture/CaptureAction.h"

#include <QRectF>
#include <QString>
#include <variant>
#include <vector>

namespace kestrio {

/// What a button of the toolbar does: ends with an action, goes on with a tool, or ends without
/// anything.
struct CancelCapture {};
using ToolbarCommand = std::variant<CaptureAction, AnnotationTool, CancelCapture>;

/// One button. `place` is in points from the toolbar's top left corner.
struct ToolbarButton {
    ToolbarCommand command;
    QString icon;     ///< of the resource folder ":/kestrio/capture"
    QString toolTip;  ///< with the key that does the same
    QRectF place;
    bool isPrimary = false;
};

/// The row of buttons below an adjusted selection, without any painting.
class CaptureToolbar {
  public:
    CaptureToolbar();

    QSizeF size() const { return size_; }
    const std::vector<ToolbarButton>& buttons() const { return buttons_; }
    /// Where lines part groups of buttons.
    const std::vector<double>& separators() const { return separators_; }
    /// The index of the button under a point of the toolbar; -1 where there is none.
    int buttonAt(QPointF point) const;

  private:
    void add(ToolbarCommand command, const char* icon, QString toolTip);
    void separate();

    std::vector<ToolbarButton> buttons_;
    std::vector<double> separators_;
    QSizeF size_;
    double next_;
};

}  // namespace kestrio
