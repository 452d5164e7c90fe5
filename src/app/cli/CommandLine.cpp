#include "app/cli/CommandLine.h"

#include "app/cli/CaptureCommand.h"
#include "app/cli/EditCommand.h"
#include "app/cli/HoldClipboardCommand.h"
#include "app/cli/OcrCommand.h"
#include "app/cli/RedactCommand.h"
#include "app/cli/RenderCommand.h"
#include "app/cli/ResidentProgram.h"
#include "app/cli/StitchCommand.h"
#include "app/flows/FlowFailure.h"
#include "core/Localisation.h"
#include "core/NativePath.h"

#include <unistd.h>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>

namespace kestrio {

namespace {

constexpr CliVerb verbs[] = {
    {"", nullptr, runResident, DisplayNeed::windows, activateInstance},
    {"capture", Kestrio::marked("capture a region, a window, a display or a scrolled page"),
     runCapture, DisplayNeed::windows, handOverCapture},
    {"edit", Kestrio::marked("open the editor on a picture"), runEdit, DisplayNeed::windows,
     handOverEdit},
    {"render", Kestrio::marked("set pictures on a backdrop and write them as files"), runRender},
    {"redact", Kestrio::marked("cover private data in a picture"), runRedact},
    {"stitch", Kestrio::marked("join frames of a scrolled page into one tall picture"), runStitch},
    {"ocr", Kestrio::marked("print the text of a picture"), runOcr},
    {"hold-clipboard", nullptr, runHoldClipboard, DisplayNeed::gui},
};

class OutputError : public Error {
  public:
    QString errorDescription() const override {
        return Kestrio::tr("standard output cannot be written to");
    }
};

bool write(const QByteArray& text) {
    std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stdout);
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

QByteArray verbsText() {
    QString list;
    constexpr int nameColumns = 11;
    for (const CliVerb& verb : verbs) {
        if (!verb.summary) continue;
        list += QStringLiteral("  ") + QString::fromLatin1(verb.name).leftJustified(nameColumns) +
                Kestrio::tr(verb.summary) + u'\n';
    }
    return Kestrio::tr(
               "Kestrio, a screenshot beautifier\n\n"
               "usage: kestrio                    start in the tray, or bring the running one to "
               "notice\n"
               "       kestrio VERB [ARGUMENTS]\n\n"
               "%1\n"
               "  -h, --help     show this help; after a verb, its options\n"
               "  -v, --version  show the version")
               .arg(list)
               .toUtf8() +
           '\n';
}

ExitStatus printed(const QByteArray& text) {
    return printDocument(text) ? ExitStatus::done : ExitStatus::failed;
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

// The status that a failure of `work` comes to, which it reports.
template <typename Work>
auto guarded(Work work) -> decltype(work()) {
    try {
        return work();
    } catch (const UsageError& error) {
        printError(error.errorDescription());
        return ExitStatus::wrongUsage;
    } catch (const std::exception& error) {
        const FlowFailure failure = FlowFailure::from(error);
        if (!failure.isCancelled()) printError(failure.reason());
        return failure.exitStatus();
    }
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

void printHelp(const QCommandLineParser& parser, const char* usage) {
    const QString text = parser.helpText();
    const QString heading = Kestrio::tr("usage: kestrio %1").arg(QString::fromLatin1(usage));
    if (!write((heading + text.mid(text.indexOf(u'\n'))).toUtf8())) throw OutputError();
}

bool printDocument(const QByteArray& text) {
    if (write(text)) return true;
    printError(OutputError().errorDescription());
    return false;
}

bool printPath(const QString& path, const QString& sentence) {
    // Scripts take the name as it is; a terminal would obey what control characters it holds.
    const bool isTerminal = ::isatty(STDOUT_FILENO) == 1;
    const QByteArray name = isTerminal ? printableText(path).toUtf8() : toNativePath(path);
    return printDocument(sentence.toUtf8().replace("%1", name) + '\n');
}

void printError(const QString& message) {
    QString line = message;
    line.replace(u'\n', u' ');
    std::fprintf(stderr, "kestrio: %s\n", printableText(line).toUtf8().constData());
}

ExitStatus runCommandLine(const QStringList& arguments) {
    const QString first = arguments.value(0);
    if (first == u"--help" || first == u"-h" || first == u"help") {
        return printed(verbsText());
    }
    if (first == u"--version" || first == u"-v") {
        return printed("kestrio " + QCoreApplication::applicationVersion().toUtf8() + '\n');
    }
    if (const CliVerb* verb = verbOf(arguments)) {
        return guarded([&] { return verb->run(arguments.mid(1)); });
    }
    printError(Kestrio::tr("unknown verb \"%1\"; known are %2").arg(first, verbNames()));
    return ExitStatus::wrongUsage;
}

}  // namespace kestrio
