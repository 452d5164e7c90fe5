#include "platform/linux/x11/X11ScreenStream.h"

#include "core/Localisation.h"

#include <algorithm>
#include <utility>

namespace kestrio {

namespace {

constexpr std::chrono::seconds patienceAtTheStart(10);
constexpr std::chrono::seconds patienceAtTheEnd(3);
constexpr int highestRate = 240;

/// All pixels that the region touches. What sums of fractions add to it is no pixel more.
QRect pixelsOf(const Display& display, QRectF region) {
    constexpr double slack = 1e-3;
    return display.toPixels(region).adjusted(slack, slack, -slack, -slack).toAlignedRect() &
           display.pixels;
}

}  // namespace

X11ScreenStream::X11ScreenStream(std::shared_ptr<Displays> displays)
    : displays_(std::move(displays)) {
    QObject::connect(displays_.get(), &Displays::changed, &context_, [this] { checkLayout(); });
}

X11ScreenStream::~X11ScreenStream() {
    *errorHandler_ = {};
    // A start that is going on may keep them longer than their handlers may be called.
    for (auto run = run_; run; run = run->before)
        run->thread.end();
}

void X11ScreenStream::setFrameHandler(FrameHandler handler) {
    sink_->setHandler(std::move(handler));
}

void X11ScreenStream::setErrorHandler(ErrorHandler handler) {
    *errorHandler_ = std::move(handler);
}

Task<void> X11ScreenStream::start(ScreenStreamRequest request) {
    ++generation_;
    const auto report = [slot = errorHandler_](const QString& reason) {
        // A copy: the handler may set another one.
        if (const ErrorHandler handler = *slot) handler(reason);
    };
    auto run = std::make_shared<Run>(sink_, report);
    run->before = std::exchange(run_, run);
    return begin(displays_, request, std::move(run));
}

// Neither this nor finish() touches the stream, which may go meanwhile.
Task<void> X11ScreenStream::begin(std::shared_ptr<Displays> displays, ScreenStreamRequest request,
                                  std::shared_ptr<Run> run) {
    if (run->before) {
        auto finished = finish(run->before);
        co_await finished;
        run->before.reset();
    }
    const Display display = displayForStream(displays->displays(), request.region);
    const QRect pixels = pixelsOf(display, request.region);
    run->display = display;
    run->pixels = pixels;
    const Completion<> begun =
        run->thread.begin({pixels, display.toPoints(QRectF(pixels)), display.scale,
                           std::clamp(request.maximumRate, 1, highestRate)});
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &timer, [begun, run] {
        run->thread.requestStop();
        begun.fail(
            std::make_exception_ptr(ScreenStreamError(Kestrio::tr("The screen does not answer"))));
    });
    timer.start(patienceAtTheStart);
    co_await begun;
}

Task<void> X11ScreenStream::stop() {
    return finish(run_);
}

Task<void> X11ScreenStream::finish(std::shared_ptr<Run> run) {
    for (; run; run = run->before) {
        run->thread.requestStop();
        const Completion<> finished = run->thread.whenFinished();
        QTimer timer;
        timer.setSingleShot(true);
        QObject::connect(&timer, &QTimer::timeout, &timer, [finished] { finished.succeed(); });
        timer.start(patienceAtTheEnd);
        co_await finished;
    }
}

void X11ScreenStream::checkLayout() {
    if (!run_ || !run_->display) return;
    const Display& before = *run_->display;
    for (const Display& display : displays_->displays())
        if (display.name == before.name && display.pixels.topLeft() == before.pixels.topLeft() &&
            display.bounds.topLeft() == before.bounds.topLeft() && display.scale == before.scale &&
            display.pixels.contains(run_->pixels))
            return;
    run_->thread.fail(Kestrio::tr("The display that was being captured has changed"));
}

}  // namespace kestrio
