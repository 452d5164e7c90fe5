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
    {"{date}", Kestrio::marked("Date (yyyy-MM-dd)")},
    {"{time}", Kestrio::marked("Time (HH-mm-ss)")},
    {"{sequence}", Kestrio::marked("Sequence")},
};

/// One expansion of a naming pattern, without an extension: letters, digits, "_" and "-" only, and
/// never empty. `date` is taken in its own time zone.
QString formatFileName(int sequence, const QDateTime& date, const QString& pattern);

/// "stem" + suffix, with "_002" and so on before the suffix from the second number on. The stem is
/// shortened where the name would be longer than file systems allow.
QString numberedFileName(const QString& stem, const QString& suffix, int number);

/// The name, with its extension, that a pattern gives the `number`th file of one moment. Patterns
/// without "{sequence}", and those whose names are too long, are numbered as numberedFileName()
/// does; after a million numbers a name is unique by itself. `extension` with or without its dot;
/// empty appends none.
QString patternFileName(int number, const QString& extension, const QDateTime& date,
                        const QString& pattern);

/// The name to suggest in a directory, without the extension: the lowest number whose file does not
/// exist yet. Another process may take it meanwhile; what is written without asking goes to a
/// SaveTarget::newFile().
QString uniqueFileName(const QString& directory, const QString& extension, const QDateTime& date,
                       const QString& pattern);

/// The format that a name such as "png" or "jpg" stands for, or nothing.
std::optional<ExportFormat> formatNamed(const QString& name);

}  // namespace kestrio
