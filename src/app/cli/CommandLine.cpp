#include "app/cli/CommandLine.h"

#include "app/cli/EditCommand.h"
#include "app/cli/RenderCommand.h"
#include "core/Error.h"
#include "core/Localisation.h"

#include <QCoreApplication>
#include <cstdio>

namespace kestrio {

namespace {

constexpr CliVerb verbs[] = {
    {"edit", "open the editor on a picture", runEdit, true},
    {"render", "set pictures on a backdrop and write them as files", runRender},
};

void printVerbs() {
    std::printf("Kestrio, a screenshot beautifier\n\nusage: kestrio VERB [ARGUMENTS]\n\n");
    for (const CliVerb& verb : verbs)
        std::printf("  %-10s %s\n", verb.name, verb.summary);
    std::printf("\n\"kestrio VERB --help\" tells the options of a verb.\n");
}

QString verbNames() {
    QStringList names;
    for (const CliVerb& verb : verbs)
        names << QString::fromLatin1(verb.name);
    return names.join(QStringLiteral(", "));
}

ExitStatus runVerb(const CliVerb& verb, const QStringList& arguments) {
    try {
        return verb.run(arguments);
    } catch (const UsageError& error) {
        printError(error.errorDescription());
        return ExitStatus::wrongUsage;
    } catch (const std::exception& error) {
        printError(describeFailure(error));
    }
    return ExitStatus::failed;
}

}  // namespace

bool needsDisplay(const QStringList& arguments) {
    return std::any_of(std::begin(verbs), std::end(verbs), [&](const CliVerb& verb) {
        return verb.opensWindows && arguments.value(0) == QLatin1String(verb.name);
    });
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
    if (first.isEmpty() || first == u"--help" || first == u"-h" || first == u"help") {
        printVerbs();
        return ExitStatus::done;
    }
    if (first == u"--version") {
        std::printf("kestrio %s\n", qUtf8Printable(QCoreApplication::applicationVersion()));
        return ExitStatus::done;
    }
    for (const CliVerb& verb : verbs) {
        if (first == QLatin1String(verb.name)) return runVerb(verb, arguments.mid(1));
    }
    printError(localised("unknown verb \"%1\"; known are %2").arg(first, verbNames()));
    return ExitStatus::wrongUsage;
}

}  // namespace kestrio
