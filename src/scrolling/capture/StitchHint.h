#pragma once

#include <QString>

#include "scrolling/stitch/ScrollingStitchOutcome.h"

namespace kestrio {

/// What a user who scrolls can do about a frame that was not joined; empty where that is nothing.
QString hintFor(const ScrollingStitchOutcome& outcome);

}  // namespace kestrio
