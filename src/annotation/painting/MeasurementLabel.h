#pragma once

#include "annotation/model/MeasurementAnnotation.h"

#include <QString>

namespace kestrio {

/// The length in whole pixels of the screenshot, which has `pixelDensity` of them a point, as in
/// "120 px".
QString measurementLabel(const MeasurementAnnotation& measurement, double pixelDensity);

}  // namespace kestrio
