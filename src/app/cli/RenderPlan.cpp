#include "app/cli/RenderPlan.h"

#include "app/cli/CommandLine.h"
#include "core/Localisation.h"
#include "library/FileNaming.h"
#include "library/QuickSave.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace kestrio {

namespace {

bool isFolder(const QString& path) {
    return path.endsWith(u'/') || QFileInfo(path).isDir();
}

ExportFormat formatOfFile(const OutputChoice& choice) {
    if (choice.format) return *choice.format;
    const QString extension = QFileInfo(choice.output).suffix();
    if (const auto format = formatNamed(extension)) return *format;
    throw UsageError(
        localised("\"%1\" does not tell a format; end it in .png, .jpeg or .webp, or give --format")
            .arg(choice.output));
}

QString pathInFolder(const QString& folder, const QString& input, ExportFormat format,
                     const QSet<QString>& planned) {
    const QFileInfo source(input);
    // A hidden file such as ".shot" is all suffix to Qt.
    const QString base = source.completeBaseName();
    const QString stem = base.isEmpty() ? source.fileName() : base;
    const QString suffix = u'.' + fileExtension(format);
    QString path = QDir(folder).filePath(stem + suffix);
    for (int number = 2; planned.contains(path) || QFileInfo::exists(path); ++number) {
        path = QDir(folder).filePath(stem + QString::asprintf("_%03d", number) + suffix);
    }
    return path;
}

void refuseOverwritingInput(const RenderJob& job) {
    const QString target = QFileInfo(job.output).canonicalFilePath();
    if (!target.isEmpty() && target == QFileInfo(job.input).canonicalFilePath()) {
        throw UsageError(localised("%1 would be overwritten by its own result; name another output")
                             .arg(job.input));
    }
}

std::vector<RenderJob> planIntoFolder(const QStringList& inputs, const OutputChoice& choice,
                                      const AppSettings& settings) {
    const ExportFormat format = choice.format.value_or(settings.defaultExportFormat);
    std::vector<RenderJob> jobs;
    QSet<QString> planned;
    for (const QString& input : inputs) {
        const QString path = pathInFolder(choice.output, input, format, planned);
        planned.insert(path);
        jobs.push_back({input, path, format});
    }
    return jobs;
}

}  // namespace

void requireInputs(const QStringList& inputs) {
    if (inputs.isEmpty() || inputs.contains(QString())) {
        throw UsageError(localised("name a picture to render"));
    }
}

std::vector<RenderJob> planRender(const QStringList& inputs, const OutputChoice& choice,
                                  const AppSettings& settings) {
    requireInputs(inputs);
    const bool isQuickSave = choice.output.isEmpty();
    if (!isQuickSave && isFolder(choice.output)) return planIntoFolder(inputs, choice, settings);
    if (inputs.size() > 1 && isQuickSave) {
        throw UsageError(localised("--quick-save takes one picture; name a folder for several"));
    }
    if (inputs.size() > 1) {
        throw UsageError(localised("several pictures need a folder to go to; \"%1\" is none")
                             .arg(choice.output));
    }
    RenderJob job{inputs.front(), choice.output, ExportFormat::png};
    if (isQuickSave) {
        job.format = choice.format.value_or(settings.defaultExportFormat);
        job.output = quickSavePath(settings, QDateTime::currentDateTime(), job.format);
    } else {
        job.format = formatOfFile(choice);
    }
    refuseOverwritingInput(job);
    return {job};
}

}  // namespace kestrio
