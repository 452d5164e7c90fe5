#pragma once

#include <QString>

namespace kestrio {

/// A path for a file that other programs are given, in the user's cache: `name` with `suffix`, and
/// a number where that exists. Files that are older than a week are removed on this occasion. Empty
/// where the folder cannot be made.
QString newSharedFile(const QString& name, const QString& suffix);

}  // namespace kestrio
