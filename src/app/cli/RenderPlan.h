#pragma once

#include "imaging/ExportFormat.h"
#include "library/export/SaveTarget.h"
#include "settings/AppSettings.h"

#include <QStringList>
#include <optional>
#include <vector>

namespace kestrio {

/// Where finished pictures of a command go.
struct OutputChoice {
    QString output;  ///< a file, or a folder; empty for a quick save
    std::optional<ExportFormat>
        format;  ///< as asked for; else inferred from the output's extension
};

/// One picture to make.
struct RenderJob {
    QString input;
    SaveTarget output = QString();
    ExportFormat format = ExportFormat::png;
};

/// Throws UsageError where no picture is named.
void requireInputs(const QStringList& inputs);

/// What is written for each input, without touching any file. A folder takes any number of inputs
/// and gives each output the name of its input, with a number where that file exists; a file takes
/// one input. Throws UsageError, also for an output that is its own input.
std::vector<RenderJob> planRender(const QStringList& inputs, const OutputChoice& choice,
                                  const AppSettings& settings);

/// Throws ExportError::fileWriteFailed where the folder of an output does not exist: before the
/// work and not after seconds of it.
void requireFolder(const SaveTarget& output);

}  // namespace kestrio
