#include "app/shell/ToastPresenter.h"

#include "app/shell/ToastWindow.h"

namespace kestrio {

namespace {

constexpr double topGap = 60;
// Where no display is known, as while all are unplugged.
constexpr QRectF fallbackFrame(0, 0, 1440, 900);

}  // namespace

void ToastPresenter::show(const QString& text, std::chrono::milliseconds duration) {
    const auto all = displays_->displays();
    const QRectF frame = all.empty() ? fallbackFrame : all.front().visibleFrame;
    auto* toast = new ToastWindow(text, floating_);
    const QSize size = toast->fittingSize();
    toast->setGeometry(qRound(frame.center().x() - size.width() / 2.0),
                       qRound(frame.top() + topGap), size.width(), size.height());
    toast->present(duration);
}

}  // namespace kestrio
