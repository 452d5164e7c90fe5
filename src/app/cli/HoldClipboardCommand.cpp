#include "app/cli/HoldClipboardCommand.h"

#include "app/clipboard/ClipboardKeeper.h"
#include "app/clipboard/KeeperProcess.h"
#include "core/Localisation.h"
#include "platform/PlatformServices.h"

namespace kestrio {

ExitStatus runHoldClipboard(const QStringList& arguments) {
    const QByteArray held = takeInheritedContents();
    if (!arguments.isEmpty() || held.isEmpty()) {
        throw UsageError(Kestrio::tr("hold-clipboard is for Kestrio itself, which starts it"));
    }
    return holdClipboard(*makePasteboard(), held, answerTakenOver) ? ExitStatus::done
                                                                   : ExitStatus::failed;
}

}  // namespace kestrio
