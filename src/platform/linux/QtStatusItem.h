#pragma once

#include "platform/StatusItem.h"

#include <QMenu>
#include <QSystemTrayIcon>
#include <memory>

namespace kestrio {

/// The tray through QSystemTrayIcon: StatusNotifierItem where the desktop has a host for it, XEmbed
/// otherwise. Needs a QApplication.
class QtStatusItem : public StatusItem {
  public:
    bool isAvailable() const override;
    void show(const QIcon& icon, const QString& toolTip, std::function<StatusMenu()> menu) override;
    void setIcon(const QIcon& icon, const QString& toolTip) override;

  private:
    void rebuild();

    std::function<StatusMenu()> entries_;
    std::unique_ptr<QMenu> menu_;  // made, like the icon, when it is shown
    std::unique_ptr<QSystemTrayIcon> icon_;
};

/// Puts the entries into an empty menu. Actions run from the main loop, after the menu has gone.
void fillMenu(QMenu& menu, const StatusMenu& entries);

}  // namespace kestrio
