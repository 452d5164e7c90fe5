#include "app/cli/CaptureCommand.h"

#include "app/cli/CaptureOptions.h"
#include "app/cli/InstanceHandover.h"
#include "app/cli/LoneProgram.h"

namespace kestrio {

std::optional<ExitStatus> handOverCapture(const QStringList& arguments) {
    const auto request = captureRequestFrom(arguments);
    if (!request) return ExitStatus::done;
    return handOverToInstance(*request);
}

ExitStatus runCapture(const QStringList& arguments) {
    const auto request = captureRequestFrom(arguments);
    if (!request) return ExitStatus::done;
    return runAlone(*request);
}

}  // namespace kestrio
