#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace kestrio {

/// Runs the main loop until the condition holds; false where it does not within ten seconds, which
/// a busy machine may need.
template <typename Condition>
bool waitUntil(Condition holds) {
    const QDeadlineTimer limit(std::chrono::seconds(10));
    bool isMet = holds();
    QTimer poll;
    // Not quit(), which closes all windows first.
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        isMet = holds();
        if (isMet || limit.hasExpired()) QCoreApplication::exit();
    });
    poll.start(std::chrono::milliseconds(2));
    // Not a nested loop: Qt reports palettes only while the application itself runs.
    if (!isMet) QCoreApplication::exec();
    return isMet;
}

/// Runs the main loop for a while, in which something should not happen.
inline void waitFor(std::chrono::milliseconds duration) {
    const QDeadlineTimer end(duration);
    waitUntil([&] { return end.hasExpired(); });
}

}  // namespace kestrio
