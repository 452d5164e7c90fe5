#pragma once

#include "core/Published.h"

#include <QObject>

namespace kestrio {

/// How the desktop wants programs to look. Main thread only. What is not known yet, or never, reads
/// as light and moving; whoever shows windows follows the change signals.
class Appearance : public QObject {
    Q_OBJECT
    PUBLISHED(bool, isDark, false)
    /// Whether the user asks for as little motion as can be.
    PUBLISHED(bool, isMotionReduced, false)
};

}  // namespace kestrio
