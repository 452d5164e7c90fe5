#include "platform/linux/QtFileDialogs.h"

#include "core/FileSystem.h"
#include "platform/linux/QtSavePanel.h"

#include <QDir>
#include <QPointer>
#include <QScopeGuard>
#include <QWindow>

namespace kestrio {

namespace {

/// Opens a panel; true once it is accepted, false once it is dismissed or destroyed.
Completion<bool> openPanel(QFileDialog* panel, const QObject* owner, QWindow* parent,
                           std::stop_token stop) {
    Completion<bool> done(std::move(stop));
    QObject::connect(panel, &QDialog::finished, panel,
                     [done](int result) { done.succeed(result == QDialog::Accepted); });
    QObject::connect(panel, &QObject::destroyed, [done] { done.succeed(false); });
    QObject::connect(owner, &QObject::destroyed, panel, &QDialog::reject);
    if (parent) {
        QObject::connect(parent, &QObject::destroyed, panel, &QDialog::reject);
        panel->move(parent->geometry().center() - panel->rect().center());
        panel->winId();  // makes the window that can have a parent
        panel->windowHandle()->setTransientParent(parent);
    }
    panel->open();
    return done;
}

// Panels look at their folder at once and would wait for a network folder that hangs.
Task<QString> reachableFolder(QString folder) {
    constexpr std::chrono::milliseconds patience(1000);
    bool isThere = false;
    try {
        auto looking =
            runOnStorage([folder] { return fileKind(folder) == FileKind::folder; }, patience);
        isThere = co_await looking;
    } catch (const StorageTimeout&) {
        // Another place to start from is better than none.
    }
    co_return isThere ? folder : QDir::homePath();
}

template <typename Panel>
auto dropWhenDone(const QPointer<Panel>& panel) {
    return qScopeGuard([panel] {
        if (!panel) return;
        panel->hide();
        panel->deleteLater();
    });
}

QFileDialog* makeOpenPanel(const OpenPanelRequest& request) {
    auto* panel = new QFileDialog(nullptr, request.title, request.folder);
    panel->setFileMode(QFileDialog::ExistingFile);
    QStringList filters;
    for (const FileType& type : request.types)
        filters << nameFilter(type);
    if (!filters.isEmpty()) panel->setNameFilters(filters);
    return panel;
}

QFileDialog* makeFolderPanel(const OpenPanelRequest& request) {
    auto* panel = new QFileDialog(nullptr, request.title, request.folder);
    panel->setFileMode(QFileDialog::Directory);
    panel->setOption(QFileDialog::ShowDirsOnly);
    return panel;
}

QtSavePanel* makeSavePanel(const SavePanelRequest& request) {
    return new QtSavePanel(request);
}

QString chosenIn(const QFileDialog& panel) {
    return panel.selectedFiles().value(0);
}

QString savedIn(const QtSavePanel& panel) {
    return panel.chosenFile();
}

// Shows the panel that `make` makes of the request, and gives what `chosen` finds in it.
template <typename Request, typename Panel>
Task<std::optional<QString>> ask(Request request, Panel* (*make)(const Request&),
                                 QString (*chosen)(const Panel&), QPointer<const QObject> dialogs,
                                 std::stop_token stop) {
    const QPointer<QWindow> parent(request.parent);
    auto looking = reachableFolder(request.folder);
    request.folder = co_await looking;
    if (!dialogs) co_return std::nullopt;
    if (stop.stop_requested()) throw Cancelled();
    const QPointer<Panel> panel(make(request));
    const auto cleanup = dropWhenDone(panel);
    const auto closed = openPanel(panel, dialogs, parent, std::move(stop));
    const bool isAccepted = co_await closed;
    if (!isAccepted || !panel) co_return std::nullopt;
    co_return chosen(*panel);
}

}  // namespace

Task<std::optional<QString>> QtFileDialogs::chooseOpen(OpenPanelRequest request,
                                                       std::stop_token stop) {
    return ask(std::move(request), makeOpenPanel, chosenIn, &lifetime_, std::move(stop));
}

Task<std::optional<QString>> QtFileDialogs::chooseFolder(OpenPanelRequest request,
                                                         std::stop_token stop) {
    return ask(std::move(request), makeFolderPanel, chosenIn, &lifetime_, std::move(stop));
}

Task<std::optional<QString>> QtFileDialogs::chooseSave(SavePanelRequest request,
                                                       std::stop_token stop) {
    return ask(std::move(request), makeSavePanel, savedIn, &lifetime_, std::move(stop));
}

}  // namespace kestrio
