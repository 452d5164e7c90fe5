#pragma once

#include "capture/CaptureAction.h"

#include "scrolling/capture/ScrollingCaptureServiceProtocol.h"

#include <QString>
#include <optional>

namespace kestrio {

enum class CaptureKind { region, window, display, scrolling };

/// A capture as somebody asks for it.
struct CaptureRequest {
    CaptureKind kind = CaptureKind::region;
    /// Seconds to count down first.
    int delay = 0;
    /// What becomes of the picture; the user decides where absent, and where it is `edit`, what the
    /// user decides otherwise counts.
    std::optional<CaptureAction> action = std::nullopt;
    /// The file that the picture is written to as it was captured; empty for none. It wins over
    /// opening the editor.
    QString output = {};
    /// How a scrolling capture goes.
    ScrollingCaptureRequest scrolling = {};
};

/// What became of it.
struct CaptureReport {
    CaptureAction action = CaptureAction::edit;
    QString savedPath;  ///< empty where no file was written
};

}  // namespace kestrio
