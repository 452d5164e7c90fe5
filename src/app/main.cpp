#include "app/cli/CommandLine.h"

#include <QApplication>
#include <memory>

namespace {

// Standard error belongs to what a user has to read; Qt's own remarks are for developers.
void dropQtMessages(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtFatalMsg || type == QtCriticalMsg) {
        std::fprintf(stderr, "kestrio: %s\n", qUtf8Printable(message));
    }
}

// Qt ends the process with a dump where it finds none.
bool hasDisplay() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (!qEnvironmentVariableIsEmpty(name)) return true;
    return false;
}

// File panels are widgets. What opens no window starts sooner without them.
std::unique_ptr<QGuiApplication> makeApplication(bool opensWindows, int& count, char** arguments) {
    if (opensWindows) return std::make_unique<QApplication>(count, arguments);
    return std::make_unique<QGuiApplication>(count, arguments);
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("KESTRIO_VERBOSE")) qInstallMessageHandler(dropQtMessages);
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    // Qt would take options of ours for its own, such as --style.
    int ownCount = 1;
    // Verbs that open no window work without a display, and start faster without asking for one.
    const bool opensWindows = kestrio::needsDisplay(arguments);
    if (!opensWindows) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    } else if (!hasDisplay()) {
        kestrio::printError(QStringLiteral(
            "there is no display to open a window on; start it in a desktop session"));
        return static_cast<int>(kestrio::ExitStatus::failed);
    }
    const auto application = makeApplication(opensWindows, ownCount, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kestrio"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KESTRIO_VERSION));
    return static_cast<int>(kestrio::runCommandLine(arguments));
}
