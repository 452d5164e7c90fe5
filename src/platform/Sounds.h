#pragma once

#include <QString>

namespace kestrio {

/// Sounds of the desktop's sound theme. Main thread only.
class Sounds {
  public:
    virtual ~Sounds() = default;

    /// Plays "Tink" or "Glass" and returns at once; silent for other names and without a sound
    /// system.
    virtual void play(const QString& name) = 0;
};

}  // namespace kestrio
