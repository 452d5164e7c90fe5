#pragma once

#include "platform/Sounds.h"

#include <QStringList>

namespace kestrio {

/// Sounds that nobody hears.
class RecordingSounds : public Sounds {
  public:
    QStringList played;

    void play(const QString& name) override { played << name; }
};

}  // namespace kestrio
