#pragma once

#include "platform/MemoryPressure.h"

namespace kestrio {

/// Memory runs short when the test says so.
class ScriptedMemoryPressure : public MemoryPressure {
  public:
    using MemoryPressure::announce;
};

}  // namespace kestrio
