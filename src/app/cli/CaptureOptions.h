#pragma once

#include "app/instance/verbs/CaptureVerb.h"

#include <QStringList>

namespace kestrio {

/// What the arguments of "kestrio capture" ask for; nothing where they asked for help, which has
/// been printed. Throws UsageError, also for a file that could not be written to later: a picture
/// must not be lost for that.
std::optional<CaptureVerb> captureRequestFrom(const QStringList& arguments);

}  // namespace kestrio
