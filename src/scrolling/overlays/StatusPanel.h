#pragma once

#include <QSize>
#include <functional>
#include <memory>

class QRect;

namespace kestrio {

class ScrollingStatusModel;

/// A window with the state of a long capture, which goes with this object.
class StatusPanel {
  public:
    virtual ~StatusPanel() = default;

    /// In points; it does not change.
    virtual QSize size() const = 0;
    /// Shows it without taking the focus. `place` is in points of the desktop.
    virtual void showAt(const QRect& place) = 0;
};

/// Makes a panel that is not shown yet, on a model that outlives it. Null where that fails.
using StatusPanelFactory = std::function<std::unique_ptr<StatusPanel>(ScrollingStatusModel&)>;

}  // namespace kestrio
