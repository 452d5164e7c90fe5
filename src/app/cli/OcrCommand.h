#pragma once

#include "app/flows/ExitStatus.h"

#include <QStringList>

namespace kestrio {

/// "kestrio ocr": prints the text of a picture.
ExitStatus runOcr(const QStringList& arguments);

}  // namespace kestrio
