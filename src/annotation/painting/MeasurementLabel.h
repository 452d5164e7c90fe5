#pragma once

#include "annotation/model/MeasurementAnnotation.h"

#include <QString>

namespace kestrio {

/// The length in whole image points, as in "120 px".
QString measurementLabel(const MeasurementAnnotation& measurement);

}  // namespace kestrio
