#include "app/cli/CaptureCommand.h"

#include "app/cli/CaptureOptions.h"
#include "app/cli/InstanceHandover.h"
#include "app/cli/LoneProgram.h"

namespace kestrio {

std::optional<ExitStatus> handOverCapture(const QStringList& arguments) {
    const auto verb = captureRequestFrom(arguments);
    if (!verb) return ExitStatus::done;
    return handOverToInstance(*verb);
}

ExitStatus runCapture(const QStringList& arguments) {
    const auto verb = captureRequestFrom(arguments);
    if (!verb) return ExitStatus::done;
    return runAlone(*verb);
}

}  // namespace kestrio
