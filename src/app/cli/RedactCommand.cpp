#include "app/cli/RedactCommand.h"

#include "app/cli/CommandLine.h"
#include "app/cli/RedactReport.h"
#include "app/cli/StopSignals.h"
#include "core/Localisation.h"
#include "platform/PlatformServices.h"
#include "settings/AppSettingsService.h"
#include "text/recognition/OCRError.h"
#include "text/recognition/OCRService.h"

#include <QCommandLineParser>

namespace kestrio {

namespace {

struct RedactOptions {
    RedactRun run;
    bool isJson = false;
};

void addRedactOptions(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        Kestrio::tr("Finds private data in a picture and writes the picture with it covered."));
    parser.addPositionalArgument(QStringLiteral("INPUT"), Kestrio::tr("a picture"));
    parser.addOption({{QStringLiteral("o"), QStringLiteral("output")},
                      Kestrio::tr("the file to write, or a folder"),
                      QStringLiteral("OUTPUT")});
    parser.addOption({QStringLiteral("kind"),
                      Kestrio::tr("solid, pixelate or blur; solid unless given, since text under "
                                  "the others can be reconstructed"),
                      QStringLiteral("KIND")});
    parser.addOption({QStringLiteral("type"),
                      Kestrio::tr("what to look for, with commas between: %1; unless given, what "
                                  "the settings have switched on")
                          .arg(rawStrings<SensitiveInfoType>().join(QStringLiteral(", "))),
                      QStringLiteral("TYPES")});
    parser.addOption(
        {QStringLiteral("list"), Kestrio::tr("print what is found and write no picture")});
    parser.addOption({QStringLiteral("json"), Kestrio::tr("print what is found as JSON")});
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, Kestrio::tr("show help")});
}

template <TabledEnum E>
E named(const QString& name, const QString& message) {
    if (const auto value = fromRawString<E>(name.toStdString())) return *value;
    throw UsageError(message.arg(name, rawStrings<E>().join(QStringLiteral(", "))));
}

std::set<SensitiveInfoType> typesOption(const QCommandLineParser& parser) {
    std::set<SensitiveInfoType> types;
    if (!parser.isSet(QStringLiteral("type"))) return types;
    for (const QString& name : parser.value(QStringLiteral("type")).split(u',')) {
        types.insert(named<SensitiveInfoType>(name.trimmed(),
                                              Kestrio::tr("unknown type \"%1\"; known are %2")));
    }
    return types;
}

std::shared_ptr<UserDefaults> userDefaults() {
    return std::make_shared<IniUserDefaults>(IniUserDefaults::standardPath());
}

std::optional<RenderJob> jobOption(const QCommandLineParser& parser, const QString& input) {
    const QString output = parser.value(QStringLiteral("output"));
    if (parser.isSet(QStringLiteral("list"))) {
        if (!output.isEmpty()) throw UsageError(Kestrio::tr("give only one of -o and --list"));
        return std::nullopt;
    }
    if (output.isEmpty())
        throw UsageError(Kestrio::tr("say where the result goes: -o OUTPUT; or give --list"));
    const auto jobs =
        planRender({input}, {output, std::nullopt}, AppSettingsService(userDefaults()).load());
    return jobs.front();
}

RedactOptions parsedOptions(const QCommandLineParser& parser) {
    const QStringList inputs = parser.positionalArguments();
    if (inputs.size() != 1 || inputs.front().isEmpty())
        throw UsageError(Kestrio::tr("name one picture to redact"));
    RedactOptions options;
    options.run.input = inputs.front();
    if (parser.isSet(QStringLiteral("kind"))) {
        options.run.kind = named<RedactionKind>(parser.value(QStringLiteral("kind")),
                                                Kestrio::tr("unknown kind \"%1\"; known are %2"));
    }
    options.run.types = typesOption(parser);
    options.run.job = jobOption(parser, options.run.input);
    if (options.run.job) requireFolder(options.run.job->output);
    options.isJson = parser.isSet(QStringLiteral("json"));
    return options;
}

// Who names a type wants it whatever the switches say.
std::shared_ptr<PatternMatcherProtocol> matcherFor(const std::set<SensitiveInfoType>& types) {
    const auto storage = std::make_shared<PatternStorageService>(userDefaults());
    if (types.empty()) return std::make_shared<PatternMatcher>(storage);
    auto builtIn = builtInPatterns();
    for (SensitivePattern& pattern : builtIn)
        pattern.isEnabled = types.contains(pattern.type);
    return std::make_shared<PatternMatcher>(builtIn, storage->loadCustomPatterns());
}

Task<ExitStatus> redact(RedactOptions options, std::stop_token stop) {
    const auto reading =
        std::make_shared<OCRService>(makeTextRecognizer(), OCRService::unattendedTimeout);
    // Said at once, and not after a large picture was decoded.
    if (const QString obstacle = reading->obstacle(); !obstacle.isEmpty())
        throw OCRError::recognitionFailed(obstacle);
    const RedactServices services{
        std::make_shared<SensitiveInfoDetector>(reading, matcherFor(options.run.types)),
        std::make_shared<PictureExporter>(nullptr)};
    auto running = redactPicture(options.run, services, stop);
    const RedactResult result = co_await running;
    if (result.detections.empty()) printError(Kestrio::tr("No sensitive information detected"));
    QByteArray document;
    if (options.isJson)
        document = jsonOf(result);
    else if (!options.run.job)
        document = plainTextOf(result);
    co_return printDocument(document) ? ExitStatus::done : ExitStatus::failed;
}

}  // namespace

ExitStatus runRedact(const QStringList& arguments) {
    QCommandLineParser parser;
    addRedactOptions(parser);
    if (!parser.parse(QStringList(QStringLiteral("kestrio redact")) + arguments))
        throw UsageError(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        printHelp(parser, "redact [options] INPUT -o OUTPUT");
        return ExitStatus::done;
    }
    const RedactOptions options = parsedOptions(parser);
    const StopSignals stopSignals;
    return runUntilDone(redact(options, stopSignals.token()));
}

}  // namespace kestrio
