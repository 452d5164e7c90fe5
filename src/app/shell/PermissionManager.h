#pragma once

#include "core/Published.h"
#include "core/Task.h"
#include "platform/Alerts.h"
#include "platform/ScreenPermission.h"

#include <memory>

namespace kestrio {

/// The permission to read the screen, as far as the desktop has one. Main thread.
class PermissionManager : public QObject {
    Q_OBJECT
    PUBLISHED(bool, screenRecordingGranted, false)
    PUBLISHED(bool, isChecking, false)

  public:
    PermissionManager(std::shared_ptr<ScreenPermission> permission, std::shared_ptr<Alerts> alerts,
                      QObject* parent = nullptr);

    /// Looks whether it is granted, and asks the user once where it is not.
    void checkAtLaunch();
    void refresh();
    void openSettings() { permission_->openSettings(); }
    /// What no permission would change, for users; empty where it can be granted.
    QString obstacle() const { return permission_->obstacle(); }
    /// Says how to grant it and offers the place to do so, or what stands against it.
    Task<> showPermissionAlert();

  private:
    std::shared_ptr<ScreenPermission> permission_;
    std::shared_ptr<Alerts> alerts_;
};

}  // namespace kestrio
