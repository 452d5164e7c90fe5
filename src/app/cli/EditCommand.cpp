#include "app/cli/EditCommand.h"

#include "app/cli/InstanceHandover.h"
#include "app/cli/LoneProgram.h"
#include "core/FileSystem.h"
#include "core/Localisation.h"

#include <QCommandLineParser>

namespace kestrio {

namespace {

void addEditOptions(QCommandLineParser& parser) {
    parser.setApplicationDescription(Kestrio::tr("Opens the editor on a picture."));
    parser.addPositionalArgument(QStringLiteral("FILE"),
                                 Kestrio::tr("a picture; the clipboard's unless given"),
                                 QStringLiteral("[FILE]"));
    parser.addOption({QStringLiteral("density"),
                      Kestrio::tr("pixels per point of the picture, 1 unless given"),
                      QStringLiteral("F")});
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, Kestrio::tr("show help")});
}

double densityOption(const QCommandLineParser& parser) {
    if (!parser.isSet(QStringLiteral("density"))) return 1;
    bool isNumber = false;
    const double density = parser.value(QStringLiteral("density")).toDouble(&isNumber);
    if (!isNumber || !isDensity(density)) {
        throw UsageError(
            Kestrio::tr("--density takes a number above 0 and at most %1").arg(largestDensity));
    }
    return density;
}

// Nothing where help was asked for, which has been printed.
std::optional<EditVerb> editRequestFrom(const QStringList& arguments) {
    QCommandLineParser parser;
    addEditOptions(parser);
    if (!parser.parse(QStringList(QStringLiteral("kestrio edit")) + arguments)) {
        throw UsageError(parser.errorText());
    }
    if (parser.isSet(QStringLiteral("help"))) {
        printHelp(parser, "edit [options] [FILE]");
        return std::nullopt;
    }
    const QStringList inputs = parser.positionalArguments();
    if (inputs.size() > 1) throw UsageError(Kestrio::tr("the editor opens one picture at a time"));
    EditVerb verb;
    verb.density = densityOption(parser);
    if (!inputs.isEmpty()) verb.file = absolutePath(inputs.front());
    return verb;
}

}  // namespace

std::optional<ExitStatus> handOverEdit(const QStringList& arguments) {
    const auto verb = editRequestFrom(arguments);
    if (!verb) return ExitStatus::done;
    return handOverToInstance(*verb);
}

ExitStatus runEdit(const QStringList& arguments) {
    const auto verb = editRequestFrom(arguments);
    if (!verb) return ExitStatus::done;
    return runAlone(*verb);
}

}  // namespace kestrio
