#pragma once

#include "core/SerialQueue.h"
#include "platform/Sounds.h"

#include <memory>

namespace kestrio {

/// The desktop's sound theme through libcanberra, which is loaded with the first sound. A sound
/// system that does not answer holds up nobody but the next sound.
class ThemeSounds : public Sounds {
  public:
    ThemeSounds();
    ~ThemeSounds() override;

    void play(const QString& name) override;

  private:
    class Player;

    std::unique_ptr<Player> player_;  // used on the queue only, and outlives what is queued
    SerialQueue queue_{QStringLiteral("com.kestrio.sounds")};
};

}  // namespace kestrio
