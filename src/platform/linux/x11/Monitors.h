#pragma once

#include "platform/linux/x11/XcbConnection.h"

#include <QRect>
#include <QString>

namespace kestrio {

/// A monitor as the X server has it.
struct Monitor {
    QString name;
    QRect pixels;  ///< of the root window
};

/// All that are lit; empty where the server cannot say.
std::vector<Monitor> readMonitors(XcbConnection& connection);

}  // namespace kestrio
