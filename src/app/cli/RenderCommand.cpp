#include "app/cli/RenderCommand.h"

#include "app/cli/ProgressLine.h"
#include "app/cli/RenderPlan.h"
#include "app/cli/StopSignals.h"
#include "app/cli/StyleOptions.h"
#include "app/flows/FlowFailure.h"
#include "core/FileSystem.h"
#include "core/Localisation.h"
#include "core/Stopwatch.h"
#include "imaging/ExportError.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/PictureLoading.h"
#include "library/export/FileNaming.h"
#include "library/export/PictureExporter.h"
#include "platform/PlatformServices.h"
#include "render/ImageRendererService.h"
#include "settings/AppSettingsService.h"

#include <QFileInfo>
#include <algorithm>
#include <cmath>

namespace kestrio {

namespace {

struct RenderOptions {
    std::vector<RenderJob> jobs;
    CommandLineStyle style;
    bool isJson = false;
    bool isQuickSave = false;
};

struct RenderedFile {
    RenderJob job;
    QSize pixels;
    SavedFile saved;
    double loadMilliseconds = 0;
    double composeMilliseconds = 0;
};

struct FailedFile {
    QString input;
    QString message;
    bool namesInput;  // the message names the input itself
};

struct RenderReport {
    std::vector<RenderedFile> files;
    std::vector<FailedFile> failures;
    bool isCancelled = false;
};

void addRenderOptions(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        Kestrio::tr("Sets pictures on a backdrop and writes them as files."));
    parser.addPositionalArgument(QStringLiteral("INPUT"),
                                 Kestrio::tr("a picture; several may be given"),
                                 QStringLiteral("INPUT..."));
    parser.addOption({{QStringLiteral("o"), QStringLiteral("output")},
                      Kestrio::tr("the file to write, or a folder"),
                      QStringLiteral("OUTPUT")});
    parser.addOption({QStringLiteral("quick-save"),
                      Kestrio::tr("write to the save folder of the settings instead")});
    parser.addOption(
        {QStringLiteral("format"),
         Kestrio::tr("png, jpeg or webp; inferred from the output's ending unless given"),
         QStringLiteral("FORMAT")});
    parser.addOption({QStringLiteral("json"), Kestrio::tr("print what was written as JSON")});
    addStyleOptions(parser);
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, Kestrio::tr("show help")});
}

std::optional<ExportFormat> formatOption(const QCommandLineParser& parser) {
    if (!parser.isSet(QStringLiteral("format"))) return std::nullopt;
    const QString name = parser.value(QStringLiteral("format"));
    if (const auto format = formatNamed(name)) return format;
    throw UsageError(Kestrio::tr("unknown format \"%1\"; known are %2")
                         .arg(name, rawStrings<ExportFormat>().join(QStringLiteral(", "))));
}

AppSettings userSettings() {
    return AppSettingsService(std::make_shared<IniUserDefaults>(IniUserDefaults::standardPath()))
        .load();
}

// A missing picture is reported before anything that is wrong with the output.
void requireExisting(const QStringList& inputs) {
    if (inputs.size() == 1 && fileKind(inputs.front()) == FileKind::missing) {
        loadImageFile(inputs.front());
    }
}

RenderOptions parsedOptions(const QCommandLineParser& parser) {
    RenderOptions options;
    options.isJson = parser.isSet(QStringLiteral("json"));
    options.isQuickSave = parser.isSet(QStringLiteral("quick-save"));
    const QString output = parser.value(QStringLiteral("output"));
    requireInputs(parser.positionalArguments());
    requireExisting(parser.positionalArguments());
    if (!output.isEmpty() && options.isQuickSave) {
        throw UsageError(Kestrio::tr("give only one of -o and --quick-save"));
    }
    if (output.isEmpty() && !options.isQuickSave) {
        throw UsageError(Kestrio::tr("say where the result goes: -o OUTPUT or --quick-save"));
    }
    options.jobs =
        planRender(parser.positionalArguments(), {output, formatOption(parser)}, userSettings());
    options.style = styleFromOptions(parser);
    return options;
}

struct Outputs {
    std::shared_ptr<ImageRendererServiceProtocol> renderer;
    std::shared_ptr<PictureExporterProtocol> exporter;
};

Task<RenderedFile> renderOne(Outputs outputs, CommandLineStyle style, RenderJob job,
                             EncodeHooks hooks) {
    RenderedFile file;
    file.job = job;
    Stopwatch stopwatch;
    auto loading = loadPicture(job.input);
    LoadedPicture loaded = co_await loading;
    file.loadMilliseconds = stopwatch.lap();
    CompositeRequest request = style.requestFor(loaded.bitmap);
    loaded = {};
    requireEncodable(finishedSize(request), job.format);
    const auto composing = outputs.renderer->renderComposite(std::move(request), hooks.stop);
    Image picture = co_await composing;
    file.composeMilliseconds = stopwatch.lap();
    file.pixels = picture.pixelSize();
    const auto saving =
        outputs.exporter->saveImage(std::move(picture), job.output, job.format, hooks);
    file.saved = co_await saving;
    co_return file;
}

Task<RenderReport> renderAll(RenderOptions options, Outputs outputs, std::stop_token stop) {
    RenderReport report;
    ProgressLine progress(static_cast<int>(options.jobs.size()));
    EncodeHooks hooks;
    hooks.stop = stop;
    hooks.progress = [&progress](double fraction) { progress.setFraction(fraction); };
    int number = 0;
    for (const RenderJob& job : options.jobs) {
        progress.startItem(++number, QFileInfo(job.input).fileName());
        try {
            // The save folder is Kestrio's own choice on a fresh account, so it makes it.
            if (!options.isQuickSave) requireFolder(job.output);
            const auto rendering = renderOne(outputs, options.style, job, hooks);
            RenderedFile file = co_await rendering;
            report.files.push_back(std::move(file));
        } catch (const std::exception& error) {
            const FlowFailure failure = FlowFailure::from(error);
            report.isCancelled = failure.isCancelled();
            if (report.isCancelled) break;
            const auto* unreadable = dynamic_cast<const ImageLoadError*>(&error);
            const bool namesInput = unreadable && !unreadable->path().isEmpty();
            report.failures.push_back({job.input, failure.reason(), namesInput});
        }
    }
    co_return report;
}

JsonValue rounded(double milliseconds) {
    return jsonNumber(std::round(milliseconds * 10) / 10);
}

JsonValue jsonOf(const RenderedFile& file) {
    return {{"input", file.job.input.toStdString()},
            {"path", file.saved.path.toStdString()},
            {"format", rawString(file.job.format).toStdString()},
            {"width", file.pixels.width()},
            {"height", file.pixels.height()},
            {"bytes", file.saved.byteCount},
            {"milliseconds",
             {{"load", rounded(file.loadMilliseconds)},
              {"compose", rounded(file.composeMilliseconds)},
              {"encode", rounded(file.saved.encodeMilliseconds)},
              {"write", rounded(file.saved.writeMilliseconds)}}}};
}

QByteArray jsonOf(const RenderReport& report) {
    JsonValue document = JsonValue::object();
    document["outputs"] = JsonValue::array();
    for (const RenderedFile& file : report.files)
        document["outputs"].push_back(jsonOf(file));
    document["failures"] = JsonValue::array();
    for (const FailedFile& failure : report.failures) {
        document["failures"].push_back(
            {{"input", failure.input.toStdString()}, {"message", failure.message.toStdString()}});
    }
    return jsonText(document, 2) + '\n';
}

// What standard output is owed. False where it cannot be written to.
bool printResults(const RenderOptions& options, const RenderReport& report) {
    if (options.isJson) return printDocument(jsonOf(report));
    return !options.isQuickSave || std::ranges::all_of(report.files, [](const RenderedFile& file) {
        return printPath(file.saved.path, Kestrio::tr("Saved to %1"));
    });
}

ExitStatus reportOutcome(const RenderOptions& options, const RenderReport& report) {
    for (const FailedFile& failure : report.failures) {
        printError(failure.namesInput ? failure.message
                                      : failure.input + QStringLiteral(": ") + failure.message);
    }
    if (!printResults(options, report)) return ExitStatus::failed;
    if (report.isCancelled) return ExitStatus::cancelled;
    return report.failures.empty() ? ExitStatus::done : ExitStatus::failed;
}

}  // namespace

ExitStatus runRender(const QStringList& arguments) {
    QCommandLineParser parser;
    addRenderOptions(parser);
    if (!parser.parse(QStringList(QStringLiteral("kestrio render")) + arguments)) {
        throw UsageError(parser.errorText());
    }
    if (parser.isSet(QStringLiteral("help"))) {
        printHelp(parser, "render [options] INPUT...");
        return ExitStatus::done;
    }
    // A backdrop picture is decoded once for all inputs.
    const auto pictures = DecodedPictures::shared();
    const RenderOptions options = parsedOptions(parser);
    const StopSignals stopSignals;
    const auto watermarks =
        std::make_shared<WatermarkService>(std::make_shared<MemoryUserDefaults>());
    const Outputs outputs{std::make_shared<ImageRendererService>(watermarks),
                          std::make_shared<PictureExporter>(makePasteboard())};
    const RenderReport report = runUntilDone(renderAll(options, outputs, stopSignals.token()));
    return reportOutcome(options, report);
}

}  // namespace kestrio
