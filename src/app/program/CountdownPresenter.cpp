#include "app/program/CountdownPresenter.h"

#include "app/program/CountdownWindow.h"

namespace kestrio {

namespace {

constexpr double topGap = 60;
// Of none of the hotkeys that users choose, which count from 1.
constexpr int escapeId = 1000;

}  // namespace

CountdownPresenter::CountdownPresenter(std::shared_ptr<CaptureCoordinator> captures,
                                       std::shared_ptr<Displays> displays,
                                       std::shared_ptr<FloatingWindows> floating,
                                       std::shared_ptr<GlobalHotkeys> hotkeys, QObject* parent)
    : QObject(parent),
      captures_(std::move(captures)),
      displays_(std::move(displays)),
      floating_(std::move(floating)),
      hotkeys_(std::move(hotkeys)) {
    connect(captures_.get(), &CaptureCoordinator::countdownRemainingChanged, this,
            &CountdownPresenter::follow);
    connect(captures_.get(), &CaptureCoordinator::isCountingDownChanged, this,
            &CountdownPresenter::follow);
    connect(hotkeys_.get(), &GlobalHotkeys::pressed, this, [this](int id) {
        if (id == escapeId) captures_->cancelCountdown();
    });
}

CountdownPresenter::~CountdownPresenter() {
    hide();
}

void CountdownPresenter::follow() {
    const int seconds = captures_->countdownRemaining();
    if (captures_->isCountingDown() && seconds > 0) {
        show(seconds);
    } else {
        hide();
    }
}

void CountdownPresenter::show(int seconds) {
    if (window_) {
        window_->setSeconds(seconds);
        return;
    }
    hotkeys_->registerHotkey(escapeId, *combinationOf(QKeyCombination(Qt::Key_Escape)));
    const auto display = displays_->displayUnderPointer();
    if (!display) return;
    window_ = std::make_unique<CountdownWindow>(*floating_);
    const QRectF free = display->visibleFrame;
    const QSize size = CountdownWindow::fittingSize();
    window_->setPosition(qRound(free.center().x() - size.width() / 2.0),
                         qRound(free.top() + topGap));
    window_->setSeconds(seconds);
    window_->show();
}

void CountdownPresenter::hide() {
    hotkeys_->unregisterHotkey(escapeId);
    window_.reset();
}

}  // namespace kestrio
