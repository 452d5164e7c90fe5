#include "app/views/SettingsWindowCoordinator.h"

#include "app/views/SettingsController.h"
#include "ui/WindowPlacement.h"
#include "ui/views/EngineLease.h"

#include <QQmlComponent>
#include <QQuickWindow>
#include <tuple>

void qml_register_types_Kestrio_App();

namespace kestrio {

SettingsWindowCoordinator::SettingsWindowCoordinator(SettingsServices services,
                                                     const ProgramParts& parts, QObject* parent)
    : QObject(parent),
      services_(std::move(services)),
      permissions_(parts.permissions),
      appearance_(parts.platform.appearance),
      activation_(parts.activation),
      editors_(parts.editors) {}

SettingsWindowCoordinator::~SettingsWindowCoordinator() = default;

void SettingsWindowCoordinator::open(SettingsTab tab) {
    if (!window_) make();
    if (!window_) return;
    controller_->model().set_selectedTab(tab);
    permissions_->refresh();
    activation_->set_policy(ActivationPolicy::regular);
    bringToFront();
}

bool SettingsWindowCoordinator::bringToFront() {
    if (!window_) return false;
    kestrio::bringToFront(*window_);
    return true;
}

void SettingsWindowCoordinator::make() {
    // A linker drops a registration that nobody calls.
    qml_register_types_Kestrio_App();
    lease_ = std::make_unique<EngineLease>();
    controller_ = std::make_unique<SettingsController>(services_, permissions_, appearance_);
    QQmlComponent component(&lease_->engine(),
                            QUrl(QStringLiteral("qrc:/qt/qml/Kestrio/App/qml/SettingsWindow.qml")));
    std::unique_ptr<QObject> made(component.createWithInitialProperties(
        {{QStringLiteral("controller"), QVariant::fromValue(controller_.get())}}));
    for (const QQmlError& error : component.errors())
        qWarning("%s", qUtf8Printable(error.toString()));
    window_.reset(qobject_cast<QQuickWindow*>(made.get()));
    if (!window_) return;
    std::ignore = made.release();
    centre(*window_);
    // Queued: the window is still in its own closing call.
    connect(
        window_.get(), &QWindow::visibleChanged, this,
        [this](bool isVisible) {
            if (!isVisible) windowWasClosed();
        },
        Qt::QueuedConnection);
}

void SettingsWindowCoordinator::windowWasClosed() {
    window_.reset();
    controller_.reset();
    lease_.reset();
    if (!editors_->isEditorOpen()) activation_->set_policy(ActivationPolicy::accessory);
}

}  // namespace kestrio
