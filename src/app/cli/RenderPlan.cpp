#include "app/cli/RenderPlan.h"

#include "app/cli/CommandLine.h"
#include "core/FileSystem.h"
#include "core/Localisation.h"
#include "imaging/ExportError.h"
#include "library/export/FileNaming.h"
#include "library/export/QuickSave.h"

#include <QFileInfo>

namespace kestrio {

namespace {

bool isFolder(const QString& path) {
    return path.endsWith(u'/') || fileKind(path) == FileKind::folder;
}

ExportFormat formatOfFile(const OutputChoice& choice) {
    if (choice.format) return *choice.format;
    const QString extension = QFileInfo(choice.output).suffix();
    if (const auto format = formatNamed(extension)) return *format;
    throw UsageError(
        Kestrio::tr(
            "cannot infer the format of \"%1\"; end it in .png, .jpeg or .webp, or give --format")
            .arg(choice.output));
}

SaveTarget targetInFolder(const QString& folder, const QString& input, ExportFormat format) {
    const QFileInfo source(input);
    // A hidden file such as ".shot" is all suffix to Qt.
    const QString base = source.completeBaseName();
    return SaveTarget::newFile(folder, [stem = base.isEmpty() ? source.fileName() : base,
                                        suffix = u'.' + fileExtension(format)](int number) {
        return numberedFileName(stem, suffix, number);
    });
}

void refuseOverwritingInput(const RenderJob& job) {
    if (isSameFile(job.output.path(), job.input)) {
        throw UsageError(
            Kestrio::tr("%1 would be overwritten by its own result; name another output")
                .arg(job.input));
    }
}

std::vector<RenderJob> planIntoFolder(const QStringList& inputs, const OutputChoice& choice,
                                      const AppSettings& settings) {
    const ExportFormat format = choice.format.value_or(settings.defaultExportFormat);
    std::vector<RenderJob> jobs;
    for (const QString& input : inputs)
        jobs.push_back({input, targetInFolder(choice.output, input, format), format});
    return jobs;
}

}  // namespace

void requireInputs(const QStringList& inputs) {
    if (inputs.isEmpty() || inputs.contains(QString())) {
        throw UsageError(Kestrio::tr("name a picture to render"));
    }
}

std::vector<RenderJob> planRender(const QStringList& inputs, const OutputChoice& choice,
                                  const AppSettings& settings) {
    requireInputs(inputs);
    const bool isQuickSave = choice.output.isEmpty();
    if (!isQuickSave && isFolder(choice.output)) return planIntoFolder(inputs, choice, settings);
    if (inputs.size() > 1 && isQuickSave) {
        throw UsageError(Kestrio::tr("--quick-save takes one picture; name a folder for several"));
    }
    if (inputs.size() > 1) {
        throw UsageError(
            Kestrio::tr("several pictures need a folder as their output; \"%1\" is not a folder")
                .arg(choice.output));
    }
    if (isQuickSave) {
        const ExportFormat format = choice.format.value_or(settings.defaultExportFormat);
        return {{inputs.front(), quickSaveTarget(settings, QDateTime::currentDateTime(), format),
                 format}};
    }
    RenderJob job{inputs.front(), choice.output, formatOfFile(choice)};
    refuseOverwritingInput(job);
    return {job};
}

void requireFolder(const SaveTarget& output) {
    const QString folder = folderOf(output.path());
    if (fileKind(folder) != FileKind::folder) {
        throw ExportError::fileWriteFailed(output.path(),
                                           Kestrio::tr("the folder %1 does not exist").arg(folder));
    }
}

}  // namespace kestrio
