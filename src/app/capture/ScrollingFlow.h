#pragma once

#include "app/shell/EditorOpener.h"
#include "scrolling/capture/ScrollingCaptureServiceProtocol.h"

namespace kestrio {

/// A long picture and the document that was opened for it.
struct ScrolledCapture {
    CapturedImage image;
    std::shared_ptr<EditorViewModel> document;  ///< null where no editor was wanted
};

/// What becomes of the picture, as far as it matters before there is one.
enum class ScrolledOpening { editor, nothing };

/// A scrolling capture, with an editor that opens as soon as the user has stopped scrolling: a tall
/// picture takes its time to be put together. Where that fails, the editor closes again. Main
/// thread. Throws ScrollingCaptureError.
Task<ScrolledCapture> captureScrolling(std::shared_ptr<ScrollingCaptureServiceProtocol> service,
                                       std::shared_ptr<EditorOpener> editors,
                                       ScrollingCaptureRequest request, ScrolledOpening opening,
                                       std::stop_token stop);

}  // namespace kestrio
