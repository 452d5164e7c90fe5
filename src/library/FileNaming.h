#pragma once

#include "imaging/ExportFormat.h"

#include <QDateTime>
#include <QString>
#include <optional>

namespace kestrio {

/// A variable of naming patterns and the label that explains it to users.
struct NamingVariable {
    const char* variable;
    const char* label;
};

inline constexpr NamingVariable namingVariables[] = {
    {"{date}", "Date (yyyy-MM-dd)"},
    {"{time}", "Time (HH-mm-ss)"},
    {"{sequence}", "Sequence"},
};

/// One expansion of a naming pattern, without an extension: letters, digits, "_" and "-" only, and
/// never empty. `date` is taken in its own time zone.
QString formatFileName(int sequence, const QDateTime& date, const QString& pattern);

/// The name to use in a directory, without the extension: the lowest sequence number whose file
/// does not exist yet, counted from 1 at every call. Patterns without "{sequence}" get "_002" and
/// so on from the second file on. `extension` with or without its dot; empty appends none.
QString uniqueFileName(const QString& directory, const QString& extension, const QDateTime& date,
                       const QString& pattern);

/// The format that a name such as "png" or "jpg" stands for, or nothing.
std::optional<ExportFormat> formatNamed(const QString& name);

}  // namespace kestrio
