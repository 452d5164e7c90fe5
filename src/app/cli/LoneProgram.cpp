#include "app/cli/LoneProgram.h"

#include "app/cli/InstanceHandover.h"
#include "app/cli/StopSignals.h"
#include "app/clipboard/ClipboardKeeper.h"
#include "app/instance/InstanceCommands.h"
#include "app/program/ProgramParts.h"
#include "app/shell/AppShortcuts.h"
#include "app/shell/DraftRestoring.h"
#include "app/shell/Quitting.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

namespace kestrio {

namespace {

constexpr std::chrono::milliseconds windowPoll(50);
// For an alert that nobody answers.
constexpr std::chrono::seconds longestMessage(60);

bool hasDocuments(const ProgramParts& parts) {
    return parts.editors->isEditorOpen() || !parts.pins->windowModels().empty();
}

/// Anything, also alerts and toasts, which report how the command went.
bool showsWindows() {
    const auto windows = QGuiApplication::topLevelWindows();
    return std::any_of(windows.begin(), windows.end(),
                       [](const QWindow* window) { return window->isVisible(); });
}

void waitForWindows(const ProgramParts& parts, std::stop_token stop) {
    QEventLoop loop;
    Quitting quitting({parts.editors, parts.settings, parts.platform.alerts, parts.toasts},
                      [&loop] { loop.quit(); });
    AppShortcuts shortcuts;
    shortcuts.add(AppShortcuts::quit, [&quitting] { quitting.request(); });
    QDeadlineTimer patience(longestMessage);
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
        if (hasDocuments(parts)) {
            patience.setRemainingTime(longestMessage);
        } else if (!showsWindows() || patience.hasExpired()) {
            loop.quit();
        }
    });
    poll.start(windowPoll);
    const std::stop_callback end(stop, [&loop] { loop.quit(); });
    if (showsWindows() && !stop.stop_requested()) loop.exec();
}

}  // namespace

ExitStatus runAlone(const InstanceRequest& request) {
    const StopSignals signals;
    const ProgramParts parts = ProgramParts::make(makePlatformServices());
    InstanceCommands commands(*parts.captures, parts.platform.pasteboard, [] {});
    const ExitStatus status = reportReply(runUntilDone(commands.run(request, signals.token())));
    DraftRestoring restoring({parts.drafts, parts.editors, parts.platform.alerts});
    if (std::holds_alternative<EditVerb>(request) && status == ExitStatus::done) restoring.offer();
    waitForWindows(parts, signals.token());
    parts.editors->writeDrafts();
    handOverClipboard(*parts.platform.pasteboard);
    return status;
}

}  // namespace kestrio
