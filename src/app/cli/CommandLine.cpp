#include "app/cli/CommandLine.h"

#include "app/cli/CaptureCommand.h"
#include "app/cli/EditCommand.h"
#include "app/cli/HoldClipboardCommand.h"
#include "app/cli/RenderCommand.h"
#include "app/cli/ResidentProgram.h"
#include "core/Error.h"
#include "core/Localisation.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>

namespace kestrio {

namespace {

constexpr CliVerb verbs[] = {
    {"", nullptr, runResident, DisplayNeed::windows, activateInstance},
    {"capture", "capture a region, a window or a display", runCapture, DisplayNeed::windows,
     handOverCapture},
    {"edit", "open the editor on a picture", runEdit, DisplayNeed::windows, handOverEdit},
    {"render", "set pictures on a backdrop and write them as files", runRender},
    {"hold-clipboard", nullptr, runHoldClipboard, DisplayNeed::gui},
};

void printVerbs() {
    std::printf(
        "Kestrio, a screenshot beautifier\n\n"
        "usage: kestrio                    start in the tray, or bring the running one to notice\n"
        "       kestrio VERB [ARGUMENTS]\n\n");
    for (const CliVerb& verb : verbs)
        if (verb.summary) std::printf("  %-10s %s\n", verb.name, verb.summary);
    std::printf(
        "\n  -h, --help     tell this; after a verb, its options\n"
        "  -v, --version  tell the version\n");
}

QString verbNames() {
    QStringList names;
    for (const CliVerb& verb : verbs)
        if (verb.summary) names << QString::fromLatin1(verb.name);
    return names.join(QStringLiteral(", "));
}

const CliVerb* verbOf(const QStringList& arguments) {
    for (const CliVerb& verb : verbs)
        if (arguments.value(0) == QLatin1String(verb.name)) return &verb;
    return nullptr;
}

// What stands behind "--" are names of files.
bool asksForHelp(const QStringList& arguments) {
    const QStringList options = arguments.mid(0, arguments.indexOf(QStringLiteral("--")));
    return options.contains(QStringLiteral("--help")) || options.contains(QStringLiteral("-h"));
}

// The status that a failure of `work` comes to, which it tells.
template <typename Work>
auto guarded(Work work) -> decltype(work()) {
    try {
        return work();
    } catch (const UsageError& error) {
        printError(error.errorDescription());
        return ExitStatus::wrongUsage;
    } catch (const std::exception& error) {
        printError(describeFailure(error));
    }
    return ExitStatus::failed;
}

}  // namespace

DisplayNeed displayNeed(const QStringList& arguments) {
    const CliVerb* verb = verbOf(arguments);
    if (asksForHelp(arguments)) return DisplayNeed::none;
    return verb ? verb->display : DisplayNeed::none;
}

std::optional<ExitStatus> handOverCommandLine(const QStringList& arguments) {
    const CliVerb* verb = verbOf(arguments);
    if (!verb || !verb->handOver) return std::nullopt;
    return guarded([&] { return verb->handOver(arguments.mid(1)); });
}

bool printHelp(const QCommandLineParser& parser, const char* usage) {
    const QString text = parser.helpText();
    return printDocument("usage: kestrio " + QByteArray(usage) +
                         text.mid(text.indexOf(u'\n')).toUtf8());
}

bool printDocument(const QByteArray& text) {
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stdout);
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

void printError(const QString& message) {
    QString line = message;
    line.replace(u'\n', u' ');
    std::fprintf(stderr, "kestrio: %s\n", line.toUtf8().constData());
}

ExitStatus runCommandLine(const QStringList& arguments) {
    const QString first = arguments.value(0);
    if (first == u"--help" || first == u"-h" || first == u"help") {
        printVerbs();
        return ExitStatus::done;
    }
    if (first == u"--version" || first == u"-v") {
        std::printf("kestrio %s\n", qUtf8Printable(QCoreApplication::applicationVersion()));
        return ExitStatus::done;
    }
    if (const CliVerb* verb = verbOf(arguments)) {
        return guarded([&] { return verb->run(arguments.mid(1)); });
    }
    printError(localised("unknown verb \"%1\"; known are %2").arg(first, verbNames()));
    return ExitStatus::wrongUsage;
}

}  // namespace kestrio
