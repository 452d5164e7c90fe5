#include "capture/picker/OverlayWindowPicker.h"

#include "capture/picker/WindowPickerWindow.h"

#include <QScopeGuard>

namespace kestrio {

namespace {

Task<std::optional<WindowInfo>> pickOn(OverlayServices services, std::function<void()> onInput,
                                       std::stop_token stop) {
    auto looking = overlayGround(services, stop);
    OverlayGround ground = co_await looking;
    throwIfStopped(stop);
    const Completion<std::optional<WindowInfo>> done(stop);
    WindowPickerWindow::Endings endings;
    endings.picked = [done](std::optional<WindowInfo> window) { done.succeed(std::move(window)); };
    endings.cancelled = [done] { done.fail(std::make_exception_ptr(Cancelled())); };
    auto* window = new WindowPickerWindow(ground.display, std::move(ground.snapshot),
                                          std::move(ground.windows), std::move(endings));
    const auto unplugged = failWithoutDisplay(services, ground.display, done);
    const auto closing = qScopeGuard([window, unplugged] {
        QObject::disconnect(unplugged);
        dismiss(window);
    });
    window->setInputListener(std::move(onInput));
    window->setLiveDimming(liveDimming(services));
    window->open();
    co_return co_await done;
}

}  // namespace

Task<std::optional<WindowInfo>> OverlayWindowPicker::pick(std::function<void()> onInput,
                                                          std::stop_token stop) {
    return pickOn(services_, std::move(onInput), std::move(stop));
}

}  // namespace kestrio
