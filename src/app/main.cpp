#include "app/cli/CommandLine.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <malloc.h>
#include <memory>
#include <optional>

namespace {

// Qt would call exit(), whose handlers use the dead connection once more; Xlib then adds words of
// its own to ours. Where it gets no connection at all, Qt would end with a dump.
[[noreturn]] void endWithoutDisplay(const char* reason) {
    std::fprintf(stderr, "kestrio: %s\n", reason);
    std::fflush(nullptr);
    std::_Exit(static_cast<int>(kestrio::ExitStatus::failed));
}

// Standard error belongs to what a user has to read; Qt's own remarks are for developers.
void handleQtMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (message.startsWith(u"The X11 connection broke")) {
        endWithoutDisplay("the connection to the display was lost");
    }
    if (message.startsWith(u"This application failed to start")) {
        endWithoutDisplay("the display refuses the connection; it may serve too many programs");
    }
    if (type == QtFatalMsg || type == QtCriticalMsg)
        std::fprintf(stderr, "kestrio: %s\n", qUtf8Printable(message));
}

// Qt ends the process with a dump where it finds none.
bool hasDisplay() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (!qEnvironmentVariableIsEmpty(name)) return true;
    return false;
}

// File panels are widgets. What opens no window starts sooner without them.
std::unique_ptr<QGuiApplication> makeApplication(kestrio::DisplayNeed need, int& count,
                                                 char** arguments) {
    if (need == kestrio::DisplayNeed::windows) {
        return std::make_unique<QApplication>(count, arguments);
    }
    return std::make_unique<QGuiApplication>(count, arguments);
}

// Asking another process takes no connection to a display, which would take longest.
std::optional<kestrio::ExitStatus> handedOver(const QStringList& arguments, int& count,
                                              char** argv) {
    const QCoreApplication application(count, argv);
    return kestrio::handOverCommandLine(arguments);
}

}  // namespace

int main(int argc, char** argv) {
    // Of the allocator's arenas only the first one gives memory back that lies free at its end; with
    // one for each thread, some pictures' worth stayed for good.
    mallopt(M_ARENA_MAX, 1);
    if (qEnvironmentVariableIsEmpty("KESTRIO_VERBOSE")) qInstallMessageHandler(handleQtMessage);
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    QCoreApplication::setApplicationName(QStringLiteral("kestrio"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KESTRIO_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.kestrio.Kestrio"));
    // Qt would take options of ours for its own, such as --style.
    int ownCount = 1;
    // Verbs that open no window work without a display, and start faster without asking for one.
    const kestrio::DisplayNeed need = kestrio::displayNeed(arguments);
    if (need == kestrio::DisplayNeed::none) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    } else if (!hasDisplay()) {
        kestrio::printError(QStringLiteral(
            "there is no display to open a window on; start it in a desktop session"));
        return static_cast<int>(kestrio::ExitStatus::failed);
    } else if (const auto status = handedOver(arguments, ownCount, argv)) {
        return static_cast<int>(*status);
    }
    const auto application = makeApplication(need, ownCount, argv);
    return static_cast<int>(kestrio::runCommandLine(arguments));
}
