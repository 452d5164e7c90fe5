#include "app/capture/ScrollingFlow.h"

#include "core/Localisation.h"
#include "core/Log.h"

#include <QScopeGuard>
#include <exception>

namespace kestrio {

namespace {

using Service = std::shared_ptr<ScrollingCaptureServiceProtocol>;

// Opens the document's window once the picture is being put together.
ScrollingCaptureServiceProtocol::StateObserver openingObserver(
    std::weak_ptr<EditorOpener> editors, std::weak_ptr<EditorViewModel> document) {
    return [editors, document](const CaptureSessionState& state) {
        if (state.phase != CaptureSessionState::Phase::stitching) return;
        const auto shown = document.lock();
        const auto opener = editors.lock();
        if (!shown || !opener) return;
        shown->awaitCapture();
        try {
            opener->adopt(shown, {});
        } catch (const Error& error) {
            // The picture is wanted all the same: the window is tried again with it.
            logLine("ScrollingFlow", error.errorDescription());
        }
    };
}

Task<ScrolledCapture> captureInto(Service service, std::shared_ptr<EditorOpener> editors,
                                  ScrollingCaptureRequest request, std::stop_token stop) {
    ScrolledCapture captured;
    captured.document = editors->makeDocument();
    const auto document = captured.document;
    service->setStateObserver(openingObserver(editors, document));
    const auto forget = qScopeGuard([service] { service->setStateObserver({}); });
    std::exception_ptr failure;
    try {
        auto capturing = service->startScrollingCapture(std::move(request), std::move(stop));
        captured.image = co_await capturing;
    } catch (...) {
        failure = std::current_exception();
    }
    if (!failure) co_return captured;
    auto closing = editors->close(*document);
    co_await closing;
    std::rethrow_exception(failure);
}

}  // namespace

Task<ScrolledCapture> captureScrolling(Service service, std::shared_ptr<EditorOpener> editors,
                                       ScrollingCaptureRequest request, ScrolledOpening opening,
                                       std::stop_token stop) {
    if (!service) {
        throw ScrollingCaptureError::systemError(
            Kestrio::tr("This desktop does not let programs follow the screen."));
    }
    if (opening == ScrolledOpening::editor) {
        auto capturing =
            captureInto(service, std::move(editors), std::move(request), std::move(stop));
        co_return co_await capturing;
    }
    auto capturing = service->startScrollingCapture(std::move(request), std::move(stop));
    ScrolledCapture captured;
    captured.image = co_await capturing;
    co_return captured;
}

}  // namespace kestrio
