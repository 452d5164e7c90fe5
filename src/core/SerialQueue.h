#pragma once

#include <QString>
#include <condition_variable>
#include <deque>
#include <functional>
#include <future>
#include <mutex>
#include <thread>
#include <type_traits>

namespace kestrio {

/// Runs what it is given one piece at a time, in order, on a thread of its own that starts with the
/// first piece. The destructor runs what is still queued and then ends the thread.
class SerialQueue {
  public:
    /// `label` names the queue in logs and debuggers, as in "com.kestrio.imagerenderer".
    explicit SerialQueue(QString label);
    ~SerialQueue();

    SerialQueue(const SerialQueue&) = delete;
    SerialQueue& operator=(const SerialQueue&) = delete;

    const QString& label() const { return label_; }

    /// True on the queue's own thread.
    bool isCurrent() const;

    /// Queues `work`, which must not throw.
    void async(std::function<void()> work);

    /// Queues `work`, waits for it and returns its result or rethrows what it threw. Must not be
    /// called from the queue itself: it would wait for its own end. Throws std::logic_error there.
    template <typename Work>
    std::invoke_result_t<Work> sync(Work&& work) {
        refuseReentry();
        std::packaged_task<std::invoke_result_t<Work>()> task(std::forward<Work>(work));
        auto result = task.get_future();
        async([&task] { task(); });
        return result.get();
    }

  private:
    void refuseReentry() const;
    void run();

    const QString label_;
    mutable std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<std::function<void()>> pending_;
    bool closing_ = false;
    std::thread thread_;
};

}  // namespace kestrio
