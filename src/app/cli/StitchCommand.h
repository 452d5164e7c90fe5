#pragma once

#include "app/flows/ExitStatus.h"

#include <QStringList>

namespace kestrio {

/// "kestrio stitch": joins frames of a scrolled page into one tall picture and writes it as a file.
ExitStatus runStitch(const QStringList& arguments);

}  // namespace kestrio
