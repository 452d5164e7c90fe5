#include "app/cli/StitchCommand.h"

#include "app/cli/CommandLine.h"
#include "app/cli/ProgressLine.h"
#include "app/cli/RenderPlan.h"
#include "app/cli/StitchRun.h"
#include "app/cli/StopSignals.h"
#include "app/flows/FlowFailure.h"
#include "core/FileSystem.h"
#include "core/JsonText.h"
#include "core/Localisation.h"
#include "imaging/ExportError.h"
#include "library/export/FileNaming.h"
#include "library/export/PictureExporter.h"
#include "platform/PlatformServices.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <algorithm>
#include <cmath>

namespace kestrio {

namespace {

struct StitchOptions {
    StitchRequest request;
    QString output;
    ExportFormat format = ExportFormat::png;
    bool isJson = false;
};

void addStitchOptions(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        Kestrio::tr("Joins frames of a scrolled page into one tall picture."));
    parser.addPositionalArgument(QStringLiteral("FRAME"),
                                 Kestrio::tr("pictures of one size, from the top of the page down"),
                                 QStringLiteral("FRAME..."));
    parser.addOption({{QStringLiteral("o"), QStringLiteral("output")},
                      Kestrio::tr("the file to write"),
                      QStringLiteral("OUTPUT")});
    parser.addOption(
        {QStringLiteral("keep-going"),
         Kestrio::tr("join frames that do not continue the ones before, and say where")});
    parser.addOption(
        {QStringLiteral("json"), Kestrio::tr("print what became of each frame as JSON")});
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, Kestrio::tr("show help")});
}

ExportFormat formatOf(const QString& output) {
    const QString ending = QFileInfo(output).suffix();
    if (const auto format = formatNamed(ending)) return *format;
    throw UsageError(Kestrio::tr("cannot infer the format of %1; known endings are %2")
                         .arg(output, rawStrings<ExportFormat>().join(QStringLiteral(", "))));
}

StitchOptions parsedOptions(const QCommandLineParser& parser) {
    StitchOptions options;
    options.request.frames = parser.positionalArguments();
    requireInputs(options.request.frames);
    options.output = parser.value(QStringLiteral("output"));
    if (options.output.isEmpty())
        throw UsageError(Kestrio::tr("say where the result goes: -o OUTPUT"));
    options.format = formatOf(options.output);
    options.isJson = parser.isSet(QStringLiteral("json"));
    if (parser.isSet(QStringLiteral("keep-going"))) options.request.breaks = StitchBreaks::join;
    const QString folder = folderOf(options.output);
    if (fileKind(folder) != FileKind::folder) {
        throw ExportError::fileWriteFailed(options.output,
                                           Kestrio::tr("the folder %1 does not exist").arg(folder));
    }
    return options;
}

QString reasonOf(const StitchedFrame& frame) {
    if (!frame.wasRead()) return frame.failure;
    if (frame.outcome.obstacle != StitchObstacle::none) return displayName(frame.outcome.obstacle);
    using enum ScrollingStitchDisposition;
    switch (frame.outcome.disposition) {
        case duplicate:
            return Kestrio::tr("it shows the same as the frame before");
        case noMotion:
            return Kestrio::tr("it adds no rows");
        case horizontalMotion:
            return Kestrio::tr("it moved sideways");
        case outputLimitReached:
            return Kestrio::tr("the picture would become too large");
        case seeded:
        case appended:
        case matchFailed:
        case discontinuity:
            break;
    }
    return Kestrio::tr("it does not continue the frame before");
}

void reportFrames(const StitchResult& result) {
    int number = 0;
    for (const StitchedFrame& frame : result.frames) {
        ++number;
        if (frame.isBreak) {
            const int row = frame.outcome.totalHeightPixels - frame.outcome.addedHeightPixels;
            printError(Kestrio::tr("frame %1 (%2) was joined at row %3 without a match: %4")
                           .arg(QString::number(number), frame.input, QString::number(row),
                                reasonOf(frame)));
        } else if (!frame.wasRead() || !frame.outcome.appended) {
            printError(Kestrio::tr("frame %1 (%2) was not appended: %3")
                           .arg(QString::number(number), frame.input, reasonOf(frame)));
        }
    }
}

double rounded(double value) {
    constexpr double places = 10000;
    return std::round(value * places) / places;
}

JsonValue jsonOf(const StitchedFrame& frame) {
    if (!frame.wasRead())
        return {{"input", frame.input.toStdString()}, {"failure", frame.failure.toStdString()}};
    const ScrollingStitchOutcome& outcome = frame.outcome;
    JsonValue json = {{"input", frame.input.toStdString()},
                      {"disposition", rawString(outcome.disposition).toStdString()},
                      {"addedRows", outcome.addedHeightPixels},
                      {"motion", outcome.motionPixels},
                      {"confidence", rounded(outcome.confidence)},
                      {"horizontalOffset", outcome.horizontalOffsetPixels}};
    if (outcome.obstacle != StitchObstacle::none)
        json["obstacle"] = rawString(outcome.obstacle).toStdString();
    if (frame.isBreak) json["joinedAsBreak"] = true;
    return json;
}

QByteArray jsonOf(const StitchResult& result, const QString& savedPath) {
    JsonValue json = JsonValue::object();
    json["path"] = savedPath.isEmpty() ? JsonValue() : JsonValue(savedPath.toStdString());
    json["width"] = result.picture.width();
    json["height"] = result.picture.height();
    json["seconds"] = rounded(result.seconds);
    json["peakRetainedBytes"] = result.peakRetainedBytes;
    json["frames"] = JsonValue::array();
    for (const StitchedFrame& frame : result.frames)
        json["frames"].push_back(jsonOf(frame));
    return jsonText(json, 2) + '\n';
}

// Why no file is written; empty where one is.
QString obstacleOf(const StitchOptions& options, const StitchResult& result) {
    const bool hasFrame = std::ranges::any_of(
        result.frames, [](const StitchedFrame& frame) { return frame.outcome.appended; });
    if (!hasFrame) return Kestrio::tr("no frame could be read");
    if (result.picture.isNull()) {
        return Kestrio::tr(
            "there is not enough room for the picture in memory or in the temporary folder");
    }
    if (result.isIncomplete && options.request.breaks == StitchBreaks::refuse) {
        return Kestrio::tr(
            "the frames do not make one picture, nothing was written; --keep-going joins them "
            "nevertheless");
    }
    return {};
}

Task<ExitStatus> stitch(StitchOptions options, std::stop_token stop) {
    ProgressLine progress(int(options.request.frames.size()));
    const auto startFrame = [&progress](int number, const QString& file) {
        progress.startItem(number, QFileInfo(file).fileName());
    };
    auto stitching = stitchFiles(options.request, startFrame, stop);
    const StitchResult result = co_await stitching;
    progress.clear();
    reportFrames(result);
    QString savedPath;
    if (const QString obstacle = obstacleOf(options, result); !obstacle.isEmpty()) {
        printError(obstacle);
    } else {
        EncodeHooks hooks;
        hooks.stop = stop;
        const auto exporter = std::make_shared<PictureExporter>(nullptr);
        auto saving =
            exporter->saveImage(Image(result.picture), options.output, options.format, hooks);
        const SavedFile saved = co_await saving;
        savedPath = saved.path;
    }
    if (options.isJson && !printDocument(jsonOf(result, savedPath))) co_return ExitStatus::failed;
    const bool allRead = std::ranges::all_of(result.frames, &StitchedFrame::wasRead);
    const bool isWhole = !savedPath.isEmpty() && allRead && !result.isIncomplete;
    co_return isWhole ? ExitStatus::done : ExitStatus::failed;
}

}  // namespace

ExitStatus runStitch(const QStringList& arguments) {
    QCommandLineParser parser;
    addStitchOptions(parser);
    if (!parser.parse(QStringList(QStringLiteral("kestrio stitch")) + arguments))
        throw UsageError(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        printHelp(parser, "stitch [options] FRAME... -o OUTPUT");
        return ExitStatus::done;
    }
    const StitchOptions options = parsedOptions(parser);
    const StopSignals stopSignals;
    return runUntilDone(stitch(options, stopSignals.token()));
}

}  // namespace kestrio
