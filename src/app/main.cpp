#include "app/cli/CommandLine.h"
#include "app/cli/ProcessSetup.h"
#include "app/language/Translations.h"
#include "core/Localisation.h"
#include "core/UserDefaults.h"
#include "platform/PlatformServices.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>

namespace {

[[noreturn]] void endWith(const char* reason) {
    std::fprintf(stderr, "kestrio: %s\n", reason);
    std::fflush(nullptr);
    std::_Exit(static_cast<int>(kestrio::ExitStatus::failed));
}

// Standard error belongs to what a user has to read; Qt's own remarks are for developers.
void handleQtMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
    // Qt would call exit(), whose handlers use the dead connection once more; Xlib then adds words
    // of its own to ours.
    if (message.startsWith(u"The X11 connection broke")) {
        endWith(qUtf8Printable(kestrio::Kestrio::tr("the connection to the display was lost")));
    }
    // What waits for that thread would wait for ever.
    if (message.startsWith(u"QThread::start: Thread creation error")) {
        endWith("there is not enough memory for another thread");
    }
    // Qt would end the process with a dump.
    if (type == QtFatalMsg) endWith(qUtf8Printable(message));
    if (type == QtCriticalMsg) std::fprintf(stderr, "kestrio: %s\n", qUtf8Printable(message));
}

class NoDisplay : public kestrio::Error {
  public:
    QString errorDescription() const override {
        return kestrio::Kestrio::tr(
            "there is no display to open a window on; start it in a desktop session");
    }
};

void translate(QCoreApplication& application) {
    using kestrio::IniUserDefaults;
    kestrio::installTranslations(application, IniUserDefaults(IniUserDefaults::standardPath()));
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
    QCoreApplication application(count, argv);
    translate(application);
    return kestrio::handOverCommandLine(arguments);
}

// Before there is an application, nothing is translated.
kestrio::ExitStatus refused(const kestrio::Error& error, int& count, char** argv) {
    QCoreApplication application(count, argv);
    translate(application);
    kestrio::printError(error.errorDescription());
    return kestrio::ExitStatus::failed;
}

}  // namespace

int main(int argc, char** argv) {
    kestrio::setUpProcess();
    if (qEnvironmentVariableIsEmpty("KESTRIO_VERBOSE")) qInstallMessageHandler(handleQtMessage);
    const QStringList arguments = kestrio::commandLineArguments(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kestrio"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KESTRIO_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.kestrio.Kestrio"));
    // Qt would take options of ours for its own, such as --style.
    int ownCount = 1;
    // Verbs that open no window work without a display, and start faster without asking for one.
    const kestrio::DisplayNeed need = kestrio::displayNeed(arguments);
    try {
        if (need == kestrio::DisplayNeed::none) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
        } else {
            if (!hasDisplay()) throw NoDisplay();
            if (const auto status = handedOver(arguments, ownCount, argv)) {
                return static_cast<int>(*status);
            }
            kestrio::preparePlatform();
        }
    } catch (const kestrio::Error& error) {
        return static_cast<int>(refused(error, ownCount, argv));
    }
    const auto application = makeApplication(need, ownCount, argv);
    translate(*application);
    const int status = static_cast<int>(kestrio::runCommandLine(arguments));
    // Everything of ours is gone and written. What is left to tear down is Qt's alone, takes longer
    // than the rest of the end, and fails where memory is short or given up work still hangs.
    std::fflush(nullptr);
    std::_Exit(status);
}
