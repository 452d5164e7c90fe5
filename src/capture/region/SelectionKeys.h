#pragma once

#include "capture/region/CaptureToolbar.h"

#include <QPointF>
#include <optional>

class QKeyEvent;

namespace kestrio {

// What keys mean while a region is being adjusted; nothing for those that mean nothing.

/// How far an arrow key goes, in points.
std::optional<QPointF> stepOfKey(const QKeyEvent& event);

/// What a key stands for on the toolbar.
std::optional<ToolbarCommand> commandOfKey(const QKeyEvent& event, const CaptureToolbar& toolbar);

}  // namespace kestrio
