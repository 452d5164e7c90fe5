#pragma once

#include "platform/Appearance.h"
#include "scrolling/overlays/ScrollingStatusModel.h"

#include <QQmlEngine>

namespace kestrio {

/// The panel's model.
struct ScrollingStatusElement {
    Q_GADGET
    QML_FOREIGN(ScrollingStatusModel)
    QML_NAMED_ELEMENT(ScrollingStatusModel)
    QML_UNCREATABLE("The window's owner makes it")
};

/// How the desktop wants the panel to look.
struct AppearanceElement {
    Q_GADGET
    QML_FOREIGN(Appearance)
    QML_NAMED_ELEMENT(Appearance)
    QML_UNCREATABLE("A service of the desktop")
};

}  // namespace kestrio
