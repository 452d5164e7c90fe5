#include "app/cli/ResidentProgram.h"

#include "app/cli/InstanceHandover.h"
#include "app/cli/StopSignals.h"
#include "app/clipboard/ClipboardKeeper.h"
#include "app/instance/InstanceAddress.h"
#include "app/program/AppDelegate.h"
#include "app/views/SettingsWindowCoordinator.h"

#include <QGuiApplication>

namespace kestrio {

namespace {

// For the last writes to the disk and for handing over the clipboard.
constexpr std::chrono::seconds endLimit(6);

// Held for the life of the process.
std::unique_ptr<InstanceLock>& lock() {
    static std::unique_ptr<InstanceLock> held;
    return held;
}

SettingsServices settingsServices(const ProgramParts& parts,
                                  const std::shared_ptr<HotkeyManager>& hotkeys) {
    return {parts.settings,
            parts.userDefaults,
            parts.themes,
            hotkeys,
            parts.platform.loginItem,
            parts.platform.fileDialogs,
            std::make_shared<PatternStorageService>(parts.userDefaults),
            parts.platform.textRecognizer};
}

}  // namespace

std::optional<ExitStatus> activateInstance(const QStringList&) {
    for (;;) {
        lock() = takeInstanceLock();
        if (lock()) return std::nullopt;
        // Nothing where the lock was only looked at by a command, or let go of just now.
        if (const auto status = handOverToInstance(InstanceRequest())) return status;
    }
}

ExitStatus runResident(const QStringList&) {
    const StopSignals signals;
    const ProgramParts parts = ProgramParts::make(makePlatformServices());
    const auto hotkeys =
        std::make_shared<HotkeyManager>(parts.platform.globalHotkeys, parts.settings);
    AppDelegate delegate(
        parts, hotkeys,
        std::make_unique<SettingsWindowCoordinator>(settingsServices(parts, hotkeys), parts));
    // Not quit(), which asks each window whether it may close.
    const std::stop_callback end(signals.token(), [] { QCoreApplication::exit(); });
    const InstanceAddress address = InstanceAddress::standard();
    if (lock()) lock()->serve([&delegate] { delegate.recoverSocket(); });
    QObject::connect(&delegate, &AppDelegate::socketRecovered, &delegate, [&address] {
        if (lock()) lock()->renew(address.lockFile);
    });
    delegate.applicationDidFinishLaunching(address.socket);
    const int code = QGuiApplication::exec();
    endProcessWithin(endLimit, static_cast<int>(ExitStatus::failed));
    parts.editors->writeDrafts();
    handOverClipboard(*parts.platform.pasteboard);
    return code == 0 ? ExitStatus::done : ExitStatus::failed;
}

}  // namespace kestrio
