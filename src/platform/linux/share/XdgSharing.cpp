#include "platform/linux/share/XdgSharing.h"

#include "platform/linux/share/ExecLine.h"
#include "platform/linux/share/MimeAssociations.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QProcess>
#include <QStandardPaths>

namespace kestrio {

namespace {

// A mail program that stays with the command for so long has opened its message.
constexpr std::chrono::seconds mailPatience(20);
const QString mailCommand = QStringLiteral("xdg-email");
const QString group = QStringLiteral("Desktop Entry");

/// Whether it is a program with a window that can be started now.
bool isUsable(const DesktopFile& entry) {
    if (entry.value(group, QStringLiteral("Type")) != u"Application") return false;
    if (entry.flag(group, QStringLiteral("Hidden")) ||
        entry.flag(group, QStringLiteral("Terminal")))
        return false;
    const QString needed = entry.value(group, QStringLiteral("TryExec"));
    if (!needed.isEmpty() && QStandardPaths::findExecutable(needed).isEmpty()) return false;
    const QStringList command =
        commandFor(entry.value(group, QStringLiteral("Exec")), QString(), QString());
    return !command.isEmpty() && !QStandardPaths::findExecutable(command.front()).isEmpty();
}

QIcon iconOf(const DesktopFile& entry) {
    const QString name = entry.value(group, QStringLiteral("Icon"));
    return QDir::isAbsolutePath(name) ? QIcon(name) : QIcon::fromTheme(name);
}

QString nameOf(const DesktopFile& entry) {
    return entry.localisedValue(group, QStringLiteral("Name"));
}

}  // namespace

std::vector<SharingProgram> XdgSharing::programsFor(const QString& mimeType) const {
    const QString own = QGuiApplication::desktopFileName() + QStringLiteral(".desktop");
    std::vector<SharingProgram> programs;
    for (const QString& id : programIdsFor(mimeType)) {
        const DesktopFile entry = desktopEntry(id);
        if (id == own || !isUsable(entry)) continue;
        programs.push_back({id, nameOf(entry), iconOf(entry)});
    }
    return programs;
}

void XdgSharing::openWith(const QString& programId, const QString& path) {
    const DesktopFile entry = desktopEntry(programId);
    if (!isUsable(entry)) throw SharingError(SharingError::Case::programGone);
    const QString name = nameOf(entry);
    QStringList command = commandFor(entry.value(group, QStringLiteral("Exec")), path, name);
    const QString program = command.takeFirst();
    const QString folder = entry.value(group, QStringLiteral("Path"));
    QProcess process;
    process.setProgram(program);
    process.setArguments(command);
    process.setWorkingDirectory(folder.isEmpty() ? QDir::homePath() : folder);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    if (!process.startDetached()) throw SharingError(SharingError::Case::notStarted, name);
}

bool XdgSharing::canEmail() const {
    return !QStandardPaths::findExecutable(mailCommand).isEmpty();
}

Task<> XdgSharing::email(QString path, QString subject) {
    if (!canEmail()) throw SharingError(SharingError::Case::noMailProgram);
    // It outlives this flow where a mail program stays with it.
    auto* const process = new QProcess(qGuiApp);
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    QObject::connect(process, &QProcess::errorOccurred, process, &QObject::deleteLater);
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    const Completion<bool> done;
    QObject::connect(process, &QProcess::finished, process,
                     [done](int code, QProcess::ExitStatus) { done.succeed(code == 0); });
    QObject::connect(process, &QProcess::errorOccurred, process, [done] { done.succeed(false); });
    QTimer::singleShot(mailPatience, process, [done] { done.succeed(true); });
    process->start(mailCommand,
                   {QStringLiteral("--subject"), subject, QStringLiteral("--attach"), path});
    const bool isOpen = co_await done;
    if (!isOpen) throw SharingError(SharingError::Case::noMailProgram);
}

}  // namespace kestrio
