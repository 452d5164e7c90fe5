#pragma once

#include "annotation/editing/AnnotationTool.h"
#include "capture/CaptureAction.h"

#include <QLineF>
#include <QRectF>
#include <QString>
#include <optional>
#include <variant>
#include <vector>

namespace kestrio {

struct CancelCapture {};
/// What a button of the toolbar does: ends with an action, goes on with a tool, chooses the colour
/// that tools start with, or ends without anything.
using ToolbarCommand = std::variant<CaptureAction, AnnotationTool, CodableColor, CancelCapture>;

/// One button. `place` is in points from the toolbar's top left corner.
struct ToolbarButton {
    ToolbarCommand command;
    QString icon;     ///< of the resource folder ":/kestrio/capture"; none for a colour
    QString toolTip;  ///< with the key that does the same
    QRectF place;
    bool isPrimary = false;
};

/// The buttons below an adjusted selection, without any painting.
class CaptureToolbar {
  public:
    /// One row where `widest` points have room for it, else several.
    explicit CaptureToolbar(double widest);

    QSizeF size() const { return size_; }
    const std::vector<ToolbarButton>& buttons() const { return buttons_; }
    /// The lines that part groups of buttons.
    const std::vector<QLineF>& separators() const { return separators_; }
    /// The index of the button under a point of the toolbar; -1 where there is none.
    int buttonAt(QPointF point) const;
    /// The colour that a digit's key chooses, or none.
    std::optional<CodableColor> colorOfKey(QChar key) const;

  private:
    void place(std::vector<ToolbarButton> group, double widest);
    /// So that what ends the choice stands at the end also of several rows.
    void moveLastRowRight();

    std::vector<ToolbarButton> buttons_;
    std::vector<QLineF> separators_;
    QSizeF size_;
    QPointF next_;
};

}  // namespace kestrio
