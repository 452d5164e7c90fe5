#pragma once

#include "platform/FileReveal.h"

namespace kestrio {

/// Asks the file viewer over D-Bus to show the file; where none answers, the folder is opened with
/// whatever opens folders.
class DBusFileReveal : public FileReveal {
  public:
    /// `busAddress` empty stands for the session's bus.
    explicit DBusFileReveal(QString busAddress = {}) : busAddress_(std::move(busAddress)) {}

    void reveal(const QString& path) override;

  private:
    QString busAddress_;
};

}  // namespace kestrio
