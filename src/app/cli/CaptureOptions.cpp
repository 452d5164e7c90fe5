#include "app/cli/CaptureOptions.h"

#include "app/cli/CommandLine.h"
#include "app/instance/verbs/PathCheck.h"
#include "core/FileSystem.h"
#include "core/Localisation.h"

#include <unistd.h>
#include <QCommandLineParser>

namespace kestrio {

namespace {

void addCaptureOptions(QCommandLineParser& parser) {
    parser.setApplicationDescription(Kestrio::tr(
        "Captures the screen: a region or a window of the user's choice, the display under the "
        "pointer, or a page that is scrolled. Without an option for what becomes of the picture, "
        "the user decides, or the "
        "editor opens."));
    parser.addPositionalArgument(QStringLiteral("WHAT"),
                                 Kestrio::tr("region, window, display or scrolling"));
    parser.addOption(
        {QStringLiteral("delay"), Kestrio::tr("wait so many seconds first"), QStringLiteral("S")});
    parser.addOption(
        {QStringLiteral("auto"), Kestrio::tr("scrolling: let Kestrio scroll down to the end")});
    parser.addOption({QStringLiteral("region"),
                      Kestrio::tr("scrolling: this part of the desktop, in points; --auto then "
                                  "begins by itself"),
                      QStringLiteral("X,Y,W,H")});
    parser.addOption({QStringLiteral("edit"), Kestrio::tr("open the picture in the editor")});
    parser.addOption({QStringLiteral("copy"), Kestrio::tr("put it on the clipboard")});
    parser.addOption({QStringLiteral("pin"), Kestrio::tr("pin it to the desktop")});
    parser.addOption(
        {QStringLiteral("ocr"), Kestrio::tr("open the picture in the editor and read its text")});
    parser.addOption(
        {QStringLiteral("save"),
         Kestrio::tr("write it to the save folder of the settings and print its path")});
    parser.addOption({{QStringLiteral("o"), QStringLiteral("output")},
                      Kestrio::tr("write it to this file, as PNG, JPEG or WebP by its ending"),
                      QStringLiteral("FILE")});
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, Kestrio::tr("show help")});
}

CaptureKind kindFrom(const QStringList& positional) {
    if (positional.size() == 1) {
        const auto kind = fromRawString<CaptureKind>(positional.front().toStdString());
        if (kind) return *kind;
    }
    throw UsageError(Kestrio::tr("say what to capture: region, window, display or scrolling"));
}

int delayFrom(const QCommandLineParser& parser) {
    if (!parser.isSet(QStringLiteral("delay"))) return 0;
    bool isNumber = false;
    const int delay = parser.value(QStringLiteral("delay")).toInt(&isNumber);
    if (!isNumber || !isDelay(delay)) {
        throw UsageError(Kestrio::tr("--delay takes whole seconds from 0 to %1").arg(longestDelay));
    }
    return delay;
}

std::optional<CaptureAction> actionFrom(const QCommandLineParser& parser) {
    std::optional<CaptureAction> action;
    for (const auto& row : requestableActions) {
        if (!parser.isSet(QString::fromLatin1(row.raw))) continue;
        if (action)
            throw UsageError(Kestrio::tr("choose one of --edit, --copy, --pin, --ocr and --save"));
        action = row.value;
    }
    return action;
}

std::vector<double> regionOption(const QCommandLineParser& parser) {
    if (!parser.isSet(QStringLiteral("region"))) return {};
    const std::vector<double> region = regionFrom(parser.value(QStringLiteral("region")));
    if (region.empty()) {
        throw UsageError(Kestrio::tr(
            "--region takes left, top, width and height in points, as in 100,80,800,600"));
    }
    return region;
}

QString outputFrom(const QCommandLineParser& parser) {
    if (!parser.isSet(QStringLiteral("output"))) return {};
    const QString path = absolutePath(parser.value(QStringLiteral("output")));
    if (const QString fault = faultOfOutput(path); !fault.isEmpty()) throw UsageError(fault);
    return path;
}

}  // namespace

std::optional<CaptureVerb> captureRequestFrom(const QStringList& arguments) {
    QCommandLineParser parser;
    addCaptureOptions(parser);
    if (!parser.parse(QStringList(QStringLiteral("kestrio capture")) + arguments)) {
        throw UsageError(parser.errorText());
    }
    if (parser.isSet(QStringLiteral("help"))) {
        printHelp(parser, "capture [options] region|window|display|scrolling");
        return std::nullopt;
    }
    CaptureVerb verb;
    verb.kind = kindFrom(parser.positionalArguments());
    verb.delay = delayFrom(parser);
    verb.action = actionFrom(parser);
    verb.output = outputFrom(parser);
    verb.isAutomatic = parser.isSet(QStringLiteral("auto"));
    verb.region = regionOption(parser);
    if (const QString fault = faultOf(verb); !fault.isEmpty()) throw UsageError(fault);
    verb.isUnattended = ::isatty(STDERR_FILENO) == 0;
    return verb;
}

}  // namespace kestrio
