#pragma once

#include "imaging/ExportError.h"
#include "render/ImageRendererService.h"

namespace kestrio {

/// A renderer that keeps what it is asked for, gives the bare screenshot back, and waits or fails
/// on demand.
class ScriptedRenderer : public ImageRendererServiceProtocol {
  public:
    std::vector<CompositeRequest> requests;
    std::optional<ExportError> renderFailure;
    /// Rendering waits for it where there is one.
    std::optional<Completion<>> gate;

    Task<Image> renderComposite(CompositeRequest request, std::stop_token) override {
        requests.push_back(request);
        if (gate) {
            const Completion<> opened = *gate;
            co_await opened;
        }
        if (renderFailure) throw *renderFailure;
        co_return request.screenshot;
    }
};

}  // namespace kestrio
