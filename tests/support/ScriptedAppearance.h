#pragma once

#include "platform/Appearance.h"

namespace kestrio {

/// A desktop whose looks a test sets.
class ScriptedAppearance : public Appearance {
  public:
    using Appearance::set_isDark;
    using Appearance::set_isMotionReduced;
};

}  // namespace kestrio
