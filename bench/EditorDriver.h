#pragma once

#include <time.h>
#include <QApplication>
#include <QQuickWindow>
#include <QThread>
#include <QTimer>
#include <cmath>
#include <functional>
#include <optional>

namespace kestrio {

inline double milliseconds(clockid_t clock) {
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

/// Work of the main thread, by frames of one window.
struct FrameLog {
    std::vector<double> work, processor, shownAfter;
    double sinceFrame = 0, processorSinceFrame = 0;
    std::optional<double> firstInput;
    double longestEvent = 0;
    bool isRecording = false;

    void start() {
        *this = {};
        isRecording = true;
    }
};

/// Times each event from outside.
class TimedApplication : public QApplication {
  public:
    using QApplication::QApplication;

    FrameLog log;

    void watch(QQuickWindow* window) {
        connect(window, &QQuickWindow::frameSwapped, this, [this] { isFramePresented_ = true; });
    }

    bool notify(QObject* receiver, QEvent* event) override {
        if (thread() != QThread::currentThread() || depth_ > 0 || !log.isRecording) {
            return QApplication::notify(receiver, event);
        }
        const double start = milliseconds(CLOCK_MONOTONIC);
        const double processorStart = milliseconds(CLOCK_THREAD_CPUTIME_ID);
        ++depth_;
        const bool isHandled = QApplication::notify(receiver, event);
        --depth_;
        const double end = milliseconds(CLOCK_MONOTONIC);
        log.sinceFrame += end - start;
        log.processorSinceFrame += milliseconds(CLOCK_THREAD_CPUTIME_ID) - processorStart;
        log.longestEvent = std::max(log.longestEvent, end - start);
        if (std::exchange(isFramePresented_, false)) endFrame(end);
        return isHandled;
    }

  private:
    void endFrame(double now) {
        log.work.push_back(std::exchange(log.sinceFrame, 0));
        log.processor.push_back(std::exchange(log.processorSinceFrame, 0));
        if (const auto input = std::exchange(log.firstInput, std::nullopt)) {
            log.shownAfter.push_back(now - *input);
        }
    }

    int depth_ = 0;
    bool isFramePresented_ = false;
};

inline TimedApplication& application() {
    return *static_cast<TimedApplication*>(qApp);
}

inline double percentile(std::vector<double> values, double fraction) {
    if (values.empty()) return NAN;
    std::sort(values.begin(), values.end());
    const auto last = static_cast<double>(values.size() - 1);
    return values[static_cast<std::size_t>(std::lround(fraction * last))];
}

inline void runEventsFor(double duration) {
    QEventLoop loop;
    QTimer::singleShot(static_cast<int>(duration), Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

inline void report(const char* what, double figure, double bound, const char* unit) {
    std::printf("%-34s %8.1f %-3s bound %5.0f  %s\n", what, figure, unit, bound,
                figure <= bound ? "kept" : "MISSED");
    std::fflush(stdout);
}

inline void reportFrames(const char* what) {
    application().log.isRecording = false;
    const FrameLog& log = application().log;
    report(what, percentile(log.work, 0.95), 16, "ms");
    std::printf(
        "    %zu frames: median %.1f, greatest %.1f, p95 of processor time %.1f; "
        "shown after %.1f (p95); longest event %.1f\n",
        log.work.size(), percentile(log.work, 0.5), percentile(log.work, 1),
        percentile(log.processor, 0.95), percentile(log.shownAfter, 0.95), log.longestEvent);
}

// The pointer.

inline constexpr int eventInterval = 8;  // ms

class Pointer {
  public:
    explicit Pointer(QQuickWindow* window) : window_(window) {}

    void press(const QPointF& place) { send(QEvent::MouseButtonPress, place, Qt::LeftButton); }
    void release(const QPointF& place) { send(QEvent::MouseButtonRelease, place, Qt::NoButton); }
    void move(const QPointF& place) { send(QEvent::MouseMove, place, Qt::LeftButton); }

    void zoom(const QPointF& place, int eighths) {
        noteInput();
        QWheelEvent event(place, window_->mapToGlobal(place), {}, {0, eighths}, Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(window_, &event);
    }

  private:
    static void noteInput() {
        auto& first = application().log.firstInput;
        if (!first) first = milliseconds(CLOCK_MONOTONIC);
    }

    void send(QEvent::Type type, const QPointF& place, Qt::MouseButtons held) {
        noteInput();
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, place, window_->mapToGlobal(place), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(window_, &event);
    }

    QQuickWindow* window_;
};

/// Calls `step` with 0 to 1 at the pace of a pointer.
inline void paced(int steps, const std::function<void(double)>& step) {
    QEventLoop loop;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    int done = 0;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        step(static_cast<double>(++done) / steps);
        if (done == steps) loop.quit();
    });
    timer.start(eventInterval);
    loop.exec();
}

}  // namespace kestrio
