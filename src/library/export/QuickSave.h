#pragma once

#include "library/export/SaveTarget.h"
#include "settings/AppSettings.h"

#include <QDateTime>

namespace kestrio {

/// The file that a quick save at `now` writes: in the user's save folder, named by the user's
/// pattern, never one that exists.
SaveTarget quickSaveTarget(const AppSettings& settings, const QDateTime& now, ExportFormat format);

}  // namespace kestrio
