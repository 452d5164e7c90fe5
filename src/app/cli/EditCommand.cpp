#include "app/cli/EditCommand.h"

#include "core/Localisation.h"
#include "core/UserDefaults.h"
#include "editor/views/EditorWindow.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/text/SystemFont.h"
#include "platform/PlatformServices.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QGuiApplication>

namespace kestrio {

namespace {

struct OpenedPicture {
    Image image;
    QString name;
};

OpenedPicture openedPicture(const QStringList& inputs, double density,
                            const PlatformServices& platform) {
    if (inputs.size() > 1) throw UsageError(localised("the editor opens one picture at a time"));
    if (!inputs.isEmpty()) {
        return {Image(loadImageFile(inputs.front()), density),
                QFileInfo(inputs.front()).completeBaseName()};
    }
    const QImage pasted = platform.pasteboard->readImage();
    if (pasted.isNull()) {
        throw UsageError(localised("there is no picture on the clipboard; name a file to edit"));
    }
    return {Image(pasted, density), localised("Clipboard")};
}

void addEditOptions(QCommandLineParser& parser) {
    parser.setApplicationDescription(localised("Opens the editor on a picture."));
    parser.addPositionalArgument(QStringLiteral("FILE"),
                                 localised("a picture; the clipboard's unless given"),
                                 QStringLiteral("[FILE]"));
    parser.addOption({QStringLiteral("density"),
                      localised("pixels per point of the picture, 1 unless given"),
                      QStringLiteral("F")});
    parser.addOption(
        {{QStringLiteral("h"), QStringLiteral("help")}, localised("tell all options")});
}

double densityOption(const QCommandLineParser& parser) {
    if (!parser.isSet(QStringLiteral("density"))) return 1;
    bool isNumber = false;
    const double density = parser.value(QStringLiteral("density")).toDouble(&isNumber);
    if (!isNumber || !(density > 0) || density > 16) {
        throw UsageError(localised("--density takes a number above 0"));
    }
    return density;
}

}  // namespace

ExitStatus runEdit(const QStringList& arguments) {
    QCommandLineParser parser;
    addEditOptions(parser);
    if (!parser.parse(QStringList(QStringLiteral("kestrio edit")) + arguments)) {
        throw UsageError(parser.errorText());
    }
    if (parser.isSet(QStringLiteral("help"))) {
        printDocument(parser.helpText().toUtf8());
        return ExitStatus::done;
    }
    constexpr double bodySize = 13;
    QGuiApplication::setFont(systemFont(bodySize, QFont::Normal));
    const PlatformServices platform = makePlatformServices();
    OpenedPicture picture =
        openedPicture(parser.positionalArguments(), densityOption(parser), platform);
    EditorWindow window(makeEditorServices(platform, std::make_shared<IniUserDefaults>(
                                                     IniUserDefaults::standardPath())),
                        picture.name);
    window.open(picture.image);
    picture = {};
    return QGuiApplication::exec() == 0 ? ExitStatus::done : ExitStatus::failed;
}

}  // namespace kestrio
