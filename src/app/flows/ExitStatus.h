#pragma once

namespace kestrio {

/// How a process ends, for its caller, and how the running program answers one that asks it.
enum class ExitStatus { done = 0, failed = 1, wrongUsage = 2, cancelled = 3 };

}  // namespace kestrio
