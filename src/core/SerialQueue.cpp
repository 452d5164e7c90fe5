#include "core/SerialQueue.h"

#include <pthread.h>

#include <stdexcept>

namespace kestrio {

SerialQueue::SerialQueue(QString label) : label_(std::move(label)) {}

SerialQueue::~SerialQueue() {
    {
        const std::lock_guard lock(mutex_);
        closing_ = true;
    }
    wake_.notify_all();
    if (thread_.joinable()) thread_.join();
}

bool SerialQueue::isCurrent() const {
    const std::lock_guard lock(mutex_);
    return thread_.get_id() == std::this_thread::get_id();
}

void SerialQueue::refuseReentry() const {
    if (isCurrent())
        throw std::logic_error("sync() called on its own queue: " + label_.toStdString());
}

void SerialQueue::async(std::function<void()> work) {
    {
        const std::lock_guard lock(mutex_);
        pending_.push_back(std::move(work));
        if (!thread_.joinable()) thread_ = std::thread([this] { run(); });
    }
    wake_.notify_one();
}

void SerialQueue::run() {
    // The kernel keeps 15 characters; the label's last part is the distinctive one.
    pthread_setname_np(pthread_self(), label_.section(u'.', -1).left(15).toUtf8().constData());
    std::unique_lock lock(mutex_);
    while (true) {
        wake_.wait(lock, [this] { return closing_ || !pending_.empty(); });
        if (pending_.empty()) return;
        const auto work = std::move(pending_.front());
        pending_.pop_front();
        lock.unlock();
        work();
        lock.lock();
    }
}

}  // namespace kestrio
