#include "app/shell/PermissionManager.h"

#include "core/Localisation.h"
#include "platform/DesktopWords.h"

#include <QGuiApplication>

namespace kestrio {

namespace {

QString programName() {
    const QString name = QGuiApplication::applicationDisplayName();
    return name.isEmpty() ? QStringLiteral("Kestrio") : name;
}

QString permissionText() {
    const QString text = Kestrio::tr(
        "%1 requires screen recording permission to capture the screen.\n\n"
        "Please go to %2, find %1 and enable the permission, then restart %1.\n\n"
        "If %1 already appears enabled, toggle it off and on again (or remove it with “−” and let "
        "%1 re-add itself), then restart.");
    return text.arg(programName(), desktopWords().screenRecordingPage);
}

}  // namespace

PermissionManager::PermissionManager(std::shared_ptr<ScreenPermission> permission,
                                     std::shared_ptr<Alerts> alerts, QObject* parent)
    : QObject(parent), permission_(std::move(permission)), alerts_(std::move(alerts)) {}

void PermissionManager::refresh() {
    set_screenRecordingGranted(permission_->preflight());
}

void PermissionManager::checkAtLaunch() {
    set_isChecking(true);
    refresh();
    if (!screenRecordingGranted()) set_screenRecordingGranted(permission_->request());
    set_isChecking(false);
}

Task<> PermissionManager::showPermissionAlert() {
    const auto permission = permission_;
    AlertRequest request;
    if (const QString obstacle = permission->obstacle(); !obstacle.isEmpty()) {
        request.style = AlertStyle::informational;
        request.title = Kestrio::tr("The Screen Cannot Be Captured Here");
        request.text = obstacle;
        auto told = alerts_->show(std::move(request));
        co_await told;
        co_return;
    }
    request.style = AlertStyle::informational;
    request.title = Kestrio::tr("Screen Recording Permission Required");
    request.text = permissionText();
    request.buttons = {desktopWords().openSettings, Kestrio::tr("Later")};
    auto shown = alerts_->show(std::move(request));
    if (co_await shown == 0) permission->openSettings();
}

}  // namespace kestrio
