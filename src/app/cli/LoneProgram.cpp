#include "app/cli/LoneProgram.h"

#include "app/cli/InstanceHandover.h"
#include "app/cli/StopSignals.h"
#include "app/clipboard/ClipboardKeeper.h"
#include "app/instance/InstanceCommands.h"
#include "app/shell/ProgramParts.h"

#include <QEventLoop>

namespace kestrio {

namespace {

bool hasWindows(const ProgramParts& parts) {
    return parts.editors->isEditorOpen() || !parts.pins->windowModels().empty();
}

void waitForWindows(const ProgramParts& parts, std::stop_token stop) {
    QEventLoop loop;
    const auto quitWithLast = [&] {
        if (!hasWindows(parts)) loop.quit();
    };
    QObject::connect(parts.editors.get(), &EditorWindowCoordinator::isEditorOpenChanged, &loop,
                     quitWithLast);
    QObject::connect(parts.pins.get(), &PinnedScreenshotCoordinator::pinnedWindowsChanged, &loop,
                     quitWithLast);
    const std::stop_callback end(stop, [&loop] { loop.quit(); });
    if (hasWindows(parts) && !stop.stop_requested()) loop.exec();
}

}  // namespace

ExitStatus runAlone(const InstanceRequest& request) {
    const StopSignals signals;
    const ProgramParts parts = ProgramParts::make(makePlatformServices());
    InstanceCommands commands(*parts.captures, parts.platform.pasteboard, [] {});
    const ExitStatus status =
        tellReply(runUntilDone(commands.run(request, signals.token())));
    waitForWindows(parts, signals.token());
    handOverClipboard(*parts.platform.pasteboard);
    return status;
}

}  // namespace kestrio
