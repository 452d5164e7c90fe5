#pragma once

#include <QIcon>
#include <functional>
#include <optional>
#include <vector>

#include "platform/VirtualKeys.h"

namespace kestrio {

/// An entry of the status item's menu. One without a title is a separator; one with entries below
/// it opens these and has no action.
struct StatusMenuEntry {
    QString title;
    std::function<void()> action;
    std::optional<KeyCombination> shortcut;  ///< shown only; the menu does not listen for it
    QString toolTip;
    bool isEnabled = true;
    std::vector<StatusMenuEntry> entries;

    bool isSeparator() const { return title.isEmpty(); }
};

using StatusMenu = std::vector<StatusMenuEntry>;

/// The program's icon in the desktop's tray. Main thread only.
class StatusItem {
  public:
    virtual ~StatusItem() = default;

    /// Whether the desktop has a tray now. One that comes later gets the icon then.
    virtual bool isAvailable() const = 0;
    /// Shows the icon. `menu` is asked again each time the menu opens; actions run after the menu
    /// has left the screen.
    virtual void show(const QIcon& icon, const QString& toolTip,
                      std::function<StatusMenu()> menu) = 0;
    virtual void setIcon(const QIcon& icon, const QString& toolTip) = 0;
};

}  // namespace kestrio
