#pragma once

#include "app/flows/ExitStatus.h"

#include <QStringList>

namespace kestrio {

/// "kestrio redact": finds private data in a picture and writes the picture with it covered, or
/// says what it has found.
ExitStatus runRedact(const QStringList& arguments);

}  // namespace kestrio
