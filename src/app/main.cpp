#include "app/cli/CommandLine.h"

#include <QGuiApplication>

namespace {

// Standard error belongs to what a user has to read; Qt's own remarks are for developers.
void dropQtMessages(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtFatalMsg || type == QtCriticalMsg) {
        std::fprintf(stderr, "kestrio: %s\n", qUtf8Printable(message));
    }
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
    if (!kestrio::needsDisplay(arguments)) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(ownCount, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kestrio"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KESTRIO_VERSION));
    return static_cast<int>(kestrio::runCommandLine(arguments));
}
