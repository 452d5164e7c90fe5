#pragma once

#include "app/hotkeys/HotkeyManager.h"
#include "app/instance/InstanceBus.h"
#include "app/instance/InstanceCommands.h"
#include "app/program/ImageIntake.h"
#include "app/program/ProgramParts.h"
#include "app/program/StatusMenus.h"
#include "app/shell/AppShortcuts.h"
#include "app/shell/DraftRestoring.h"
#include "app/shell/Quitting.h"
#include "app/shell/SettingsOpener.h"

namespace kestrio {

/// The resident program: an icon in the tray, hotkeys, and the ear for other starts. Main thread.
class AppDelegate : public QObject {
    Q_OBJECT

  public:
    AppDelegate(ProgramParts parts, std::shared_ptr<HotkeyManager> hotkeys,
                std::unique_ptr<SettingsOpener> settingsWindow, QObject* parent = nullptr);
    ~AppDelegate() override;

    /// Shows the icon and takes up work. `socket` is where other starts ask.
    void applicationDidFinishLaunching(const QString& socket);

    /// Makes the socket again where somebody removed it.
    void recoverSocket() { server_.recoverWhereLost(); }
    /// Other starts could not reach the program for a moment, since somebody removed its socket.
    Q_SIGNAL void socketRecovered();

  private:
    void bindHotkeys();
    void bindShortcuts();
    void showStatusItem();
    void followCaptures();
    void watchForTray();
    Task<> explainHowToReach();
    void giveBackMemoryWhenIdle();
    void activate();
    void applicationWillTerminate();
    StatusMenuActions menuActions();

    ProgramParts parts_;
    std::shared_ptr<HotkeyManager> hotkeys_;
    ImageIntake intake_;
    AppShortcuts shortcuts_;
    Quitting quitting_;
    DraftRestoring restoring_;
    std::unique_ptr<SettingsOpener> settingsWindow_;
    InstanceCommands commands_;
    InstanceServer server_;
    InstanceBus bus_;
    QTimer idle_;
    std::shared_ptr<StatusItemModel> statusItem_;
};

}  // namespace kestrio
