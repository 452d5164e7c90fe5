#include "core/Parallel.h"

#include "core/Handover.h"
#include "core/Priority.h"

#include <QThread>
#include <QThreadPool>
#include <atomic>
#include <condition_variable>
#include <mutex>

namespace kestrio {

namespace {

std::atomic<int> threadLimit{0};

// A pool of its own: callers are often themselves workers of Qt's global pool, and a band must not
// wait behind the flow that asks for it.
QThreadPool& bandPool() {
    static QThreadPool pool;
    return pool;
}

// More bands than threads, so that a band on a busy core does not hold up the rest.
constexpr int bandsPerThread = 4;

// True while this thread works on a band. All threads are busy then, so bands within a band would
// only cost hand-overs.
thread_local bool isInBand = false;

class BandRun {
  public:
    BandRun(int count, int bands, const std::function<void(int, int)>& work)
        : count_(count), bands_(bands), work_(work) {}

    void drain() {
        isInBand = true;
        for (int band = next_++; band < bands_; band = next_++) {
            try {
                work_(edge(band), edge(band + 1));
            } catch (...) {
                const std::lock_guard lock(mutex_);
                if (!failure_) failure_ = std::current_exception();
            }
        }
        isInBand = false;
    }

    void helperStarted() {
        const std::lock_guard lock(mutex_);
        ++helpers_;
    }

    void helperDone() {
        const std::lock_guard lock(mutex_);
        --helpers_;
        idle_.notify_all();
    }

    void waitAndRethrow() {
        std::unique_lock lock(mutex_);
        idle_.wait(lock, [this] { return helpers_ == 0; });
        if (failure_) std::rethrow_exception(failure_);
    }

  private:
    int edge(int band) const { return static_cast<int>(qint64(count_) * band / bands_); }

    const int count_;
    const int bands_;
    const std::function<void(int, int)>& work_;
    std::atomic<int> next_{0};
    std::mutex mutex_;
    std::condition_variable idle_;
    int helpers_ = 0;
    std::exception_ptr failure_;
};

}  // namespace

void setParallelThreadLimit(int threads) {
    threadLimit = threads;
}

int parallelThreads() {
    const int limit = threadLimit;
    return std::max(1, limit > 0 ? limit : QThread::idealThreadCount());
}

void parallelBands(int count, int minimumBand, const std::function<void(int, int)>& work) {
    if (count <= 0) return;
    const int threads = parallelThreads();
    const int bands = std::clamp(count / std::max(minimumBand, 1), 1, threads * bandsPerThread);
    if (bands == 1 || threads == 1 || isInBand) {
        work(0, count);
        return;
    }
    BandRun run(count, bands, work);
    for (int helper = 1; helper < std::min(threads, bands); ++helper) {
        run.helperStarted();
        handOver(&run);
        const bool started = bandPool().tryStart([&run] {
            takeOver(&run);
            stepBackForOthers();
            run.drain();
            run.helperDone();
        });
        if (!started) run.helperDone();
    }
    run.drain();
    run.waitAndRethrow();
}

}  // namespace kestrio
