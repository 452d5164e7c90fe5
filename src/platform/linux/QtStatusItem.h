#pragma once

#include "platform/StatusItem.h"
#include "platform/linux/x11/XcbConnection.h"

#include <QDBusPendingCallWatcher>
#include <QMenu>
#include <QSystemTrayIcon>
#include <QTimer>
#include <memory>

namespace kestrio {

/// The tray through QSystemTrayIcon: StatusNotifierItem where the desktop has a host for it, XEmbed
/// otherwise. Needs a QApplication.
///
/// Qt decides between the two once, with the first icon; so none is made before the desktop has a
/// tray, which at login may come later than this program.
class QtStatusItem : public StatusItem {
  public:
    explicit QtStatusItem(std::shared_ptr<XcbConnection> xServer);

    bool isAvailable() const override;
    void show(std::shared_ptr<StatusItemModel> model) override;

  private:
    bool hasXTray() const;
    void tryToShow();
    void askForHost();
    void tryLater();
    void reveal();
    void make();
    void updateIcon();
    void rebuild();

    std::shared_ptr<XcbConnection> xServer_;
    std::shared_ptr<StatusItemModel> model_;
    QTimer waiting_;
    std::unique_ptr<QDBusPendingCallWatcher> answer_;
    std::chrono::milliseconds nextWait_;
    std::unique_ptr<QMenu> menu_;  // made, like the icon, once there is a tray
    std::unique_ptr<QSystemTrayIcon> icon_;
};

}  // namespace kestrio
