#include "app/cli/HoldClipboardCommand.h"

#include "app/clipboard/ClipboardKeeper.h"
#include "core/Localisation.h"
#include "platform/PlatformServices.h"

namespace kestrio {

ExitStatus runHoldClipboard(const QStringList& arguments) {
    if (arguments.size() != 1) throw UsageError(localised("name the file to hold"));
    return holdClipboard(*makePasteboard(), arguments.front()) ? ExitStatus::done
                                                               : ExitStatus::failed;
}

}  // namespace kestrio
