#pragma once

#include "app/program/ProgramParts.h"
#include "app/settings/SettingsViewModel.h"
#include "app/shell/SettingsOpener.h"

class QQuickWindow;

namespace kestrio {

class EngineLease;
class SettingsController;

/// The program's one settings window. Main thread.
class SettingsWindowCoordinator : public QObject, public SettingsOpener {
    Q_OBJECT

  public:
    SettingsWindowCoordinator(SettingsServices services, const ProgramParts& parts,
                              QObject* parent = nullptr);
    ~SettingsWindowCoordinator() override;

    void open(SettingsTab tab) override;
    bool bringToFront() override;
    QQuickWindow* window() const { return window_.get(); }

  private:
    void make();
    void windowWasClosed();

    SettingsServices services_;
    std::shared_ptr<PermissionManager> permissions_;
    std::shared_ptr<Appearance> appearance_;
    std::shared_ptr<ActivationState> activation_;
    std::shared_ptr<EditorWindowCoordinator> editors_;
    std::unique_ptr<EngineLease> lease_;
    std::unique_ptr<SettingsController> controller_;
    std::unique_ptr<QQuickWindow> window_;
};

}  // namespace kestrio
