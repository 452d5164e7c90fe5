#pragma once

namespace kestrio {

/// What a process tells its caller when it ends, and the running program one that asks it.
enum class ExitStatus { done = 0, failed = 1, wrongUsage = 2, cancelled = 3 };

}  // namespace kestrio
