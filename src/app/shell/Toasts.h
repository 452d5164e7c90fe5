#pragma once

#include <QString>
#include <chrono>

namespace kestrio {

/// Short words on the desktop that leave by themselves.
class Toasts {
  public:
    virtual ~Toasts() = default;

    /// Each has a place of its own; they do not wait for one another.
    virtual void show(const QString& text, std::chrono::milliseconds duration) = 0;
};

}  // namespace kestrio
