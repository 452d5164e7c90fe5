#pragma once

#include <QtGlobal>

class QQmlEngine;

namespace kestrio {

/// The use of the one QML engine of the process, by a window for as long as it lives. The engine is
/// made for the first lease, so that only the first window loads the views, and goes some seconds
/// after the last one: what it has loaded is memory that an idle program need not keep. Needs a GUI
/// application; main thread.
class EngineLease {
  public:
    EngineLease();
    ~EngineLease();
    Q_DISABLE_COPY_MOVE(EngineLease)

    QQmlEngine& engine() const;
};

}  // namespace kestrio
