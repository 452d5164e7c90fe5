#pragma once

#include "app/instance/InstanceMessages.h"

namespace kestrio {

/// The longest countdown, in seconds.
inline constexpr int longestDelay = 3600;
/// The most pixels a point that a picture may have.
inline constexpr double largestDensity = 16;

bool isDensity(double density);

/// Why this request makes no sense, whoever sent it, for users; empty where nothing is wrong. Looks
/// at no disk.
QString faultOf(const InstanceRequest& request);

/// Why no picture can be written to this path; empty where nothing speaks against it. It must be
/// absolute, end in the name of a picture format and lead to a file or to nothing in a folder that
/// can be written to. Looks at the disk, which may hang.
QString faultOfOutput(const QString& path);

}  // namespace kestrio
