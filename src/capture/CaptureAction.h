#pragma once

namespace kestrio {

/// What the user wants done with a selection.
enum class CaptureAction { edit, copy, save, pin, ocr };

}  // namespace kestrio
