#pragma once

#include "core/Published.h"

#include <QObject>

namespace kestrio {

/// Whether the program is a mere icon in the tray or has a window that people work in.
enum class ActivationPolicy { accessory, regular };

/// The program's policy, which the coordinators of its windows set. Main thread.
class ActivationState : public QObject {
    Q_OBJECT
    PUBLISHED_WRITABLE(ActivationPolicy, policy, ActivationPolicy::accessory)
};

}  // namespace kestrio
