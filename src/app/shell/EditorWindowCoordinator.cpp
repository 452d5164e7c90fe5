#include "app/shell/EditorWindowCoordinator.h"

#include "core/Localisation.h"
#include "editor/document/DocumentDraft.h"
#include "editor/views/EditorWindow.h"
#include "ui/WindowPlacement.h"

#include <QQuickWindow>
#include <QScreen>
#include <algorithm>

namespace kestrio {

namespace {

// From one window to the next in points, so that each shows the title of the one below.
constexpr int cascadeStep = 32;
constexpr std::size_t cascadeLength = 6;

QString nameOf(const EditorViewModel& document, const QString& name) {
    if (!name.isEmpty()) return name;
    const QDateTime& taken = document.capturedDate();
    const QDateTime time = taken.isValid() ? taken : QDateTime::currentDateTime();
    return Kestrio::tr("Capture %1").arg(time.toString(QStringLiteral("HH-mm-ss")));
}

QString frameText(const QRect& frame) {
    return QStringLiteral("{{%1, %2}, {%3, %4}}")
        .arg(frame.x())
        .arg(frame.y())
        .arg(frame.width())
        .arg(frame.height());
}

void moveAside(QWindow& window, std::size_t openBefore) {
    const QScreen* const screen = window.screen();
    if (!screen || openBefore == 0) return;
    const QRect free = screen->availableGeometry(), place = window.geometry();
    const int step = cascadeStep * static_cast<int>(openBefore % cascadeLength);
    // Never beyond the display, on a small one to the side alone.
    const QPoint aside(place.right() + step <= free.right() ? step : 0,
                       place.bottom() + step <= free.bottom() ? step : 0);
    window.setGeometry(place.translated(aside));
}

}  // namespace

/// A document with its window, and its draft where drafts are kept.
struct EditorWindowCoordinator::OpenEditor {
    std::unique_ptr<EditorWindow> window;
    std::unique_ptr<DocumentDraft> draft;
    std::vector<Completion<bool>> closings;  ///< of those who wait for the window to go

    /// With its window.
    OpenEditor(std::shared_ptr<EditorViewModel> document, const EditorServices& services,
               const QString& name)
        : window(std::make_unique<EditorWindow>(std::move(document), services, name)) {
        window->show();
    }

    EditorViewModel& document() const { return window->controller().editor(); }
    QString name() const { return window->controller().name(); }
    void keep(const std::shared_ptr<DraftService>& drafts,
              std::shared_ptr<DraftFolder> taken = {}) {
        if (!drafts) return;
        draft = std::make_unique<DocumentDraft>(document(), name(), drafts, std::move(taken));
    }
    void answerClosings(bool isClosed) {
        for (const Completion<bool>& each : std::exchange(closings, {}))
            each.succeed(isClosed);
    }
};

EditorWindowCoordinator::EditorWindowCoordinator(std::function<EditorServices()> makeServices,
                                                 std::shared_ptr<ActivationState> activation,
                                                 QObject* parent)
    : QObject(parent), makeServices_(std::move(makeServices)), activation_(std::move(activation)) {}

EditorWindowCoordinator::~EditorWindowCoordinator() {
    stop_.request_stop();
}

void EditorWindowCoordinator::open(const CapturedImage& image, const QString& name) {
    auto document = makeDocument();
    document->loadCapture(image);
    adopt(std::move(document), name);
}

std::shared_ptr<EditorViewModel> EditorWindowCoordinator::makeDocument() {
    return std::make_shared<EditorViewModel>(services());
}

void EditorWindowCoordinator::adopt(std::shared_ptr<EditorViewModel> document,
                                    const QString& name) {
    if (bringToFront(document.get())) return;
    const QString heading = nameOf(*document, name);
    OpenEditor made(std::move(document), services(), heading);
    made.keep(services().drafts);
    show(std::move(made));
}

Task<bool> EditorWindowCoordinator::close(EditorViewModel& document) {
    OpenEditor* const editor = find(document);
    if (!editor) co_return true;
    const Completion<bool> closed(stop_.get_token());
    editor->closings.push_back(closed);
    editor->window->window()->close();
    co_return co_await closed;
}

void EditorWindowCoordinator::restore(const DraftDocument& document, const ClaimedDraft& draft) {
    auto restored = makeDocument();
    restored->loadCapture({document.picture, {}, {}});
    restored->restoreDraft(document);
    OpenEditor made(std::move(restored), services(), document.name);
    made.keep(services().drafts, draft.folder);
    show(std::move(made));
}

const EditorServices& EditorWindowCoordinator::services() {
    if (!services_) services_ = makeServices_();
    return *services_;
}

void EditorWindowCoordinator::show(OpenEditor editor) {
    QWindow& window = *editor.window->window();
    centre(window);
    moveAside(window, editors_.size());
    watchClosing(*editor.window);
    activation_->set_policy(ActivationPolicy::regular);
    editors_.push_back(std::move(editor));
    set_isEditorOpen(true);
    bringToFront();
}

void EditorWindowCoordinator::watchClosing(EditorWindow& editor) {
    // Queued: the window is still in its own closing call.
    connect(
        editor.window(), &QWindow::visibleChanged, this,
        [this](bool isVisible) {
            if (!isVisible) removeClosed();
        },
        Qt::QueuedConnection);
    EditorViewModel* const document = &editor.controller().editor();
    connect(&editor.controller().closing()->closing(), &DocumentClosing::cancelled, this,
            [this, document] {
                if (OpenEditor* const kept = find(*document)) kept->answerClosings(false);
            });
}

void EditorWindowCoordinator::removeClosed() {
    const auto isClosed = [](const auto& each) { return !each.window->window()->isVisible(); };
    const auto closed =
        std::stable_partition(editors_.begin(), editors_.end(), std::not_fn(isClosed));
    if (closed == editors_.end()) return;
    std::vector<OpenEditor> gone(std::make_move_iterator(closed),
                                 std::make_move_iterator(editors_.end()));
    editors_.erase(closed, editors_.end());
    for (OpenEditor& each : gone) {
        Q_EMIT closing(&each.document());
        if (each.draft) each.draft->discard();
        each.document().cleanUp();
    }
    if (editors_.empty()) {
        set_isEditorOpen(false);
        activation_->set_policy(ActivationPolicy::accessory);
    }
    for (OpenEditor& each : gone)
        each.answerClosings(true);
    Q_EMIT documentClosed();
}

EditorViewModel* EditorWindowCoordinator::currentEditorViewModel() {
    return editors_.empty() ? nullptr : &editors_.back().document();
}

std::vector<OpenDocument> EditorWindowCoordinator::unexportedDocuments() const {
    std::vector<OpenDocument> found;
    for (const auto& each : editors_) {
        EditorViewModel& document = each.document();
        document.finishEditing();
        if (document.outputModel().hasUnexportedChanges()) {
            found.push_back({QPointer(&document), each.name()});
        }
    }
    return found;
}

bool EditorWindowCoordinator::isExporting() const {
    return std::any_of(editors_.begin(), editors_.end(), [](const auto& each) {
        return each.document().outputModel().isExporting();
    });
}

void EditorWindowCoordinator::writeDrafts() {
    if (!services_ || !services_->drafts) return;
    for (const OpenEditor& each : editors_)
        if (each.draft) each.draft->writeNow();
    services_->drafts->settle();
}

void EditorWindowCoordinator::discardDrafts() {
    for (const OpenEditor& each : editors_)
        if (each.draft) each.draft->discard();
}

bool EditorWindowCoordinator::bringToFront() {
    return bringToFront(currentEditorViewModel());
}

bool EditorWindowCoordinator::bringToFront(const EditorViewModel* document) {
    const OpenEditor* const editor = document ? find(*document) : nullptr;
    if (editor) kestrio::bringToFront(*editor->window->window());
    return editor != nullptr;
}

EditorWindowCoordinator::OpenEditor* EditorWindowCoordinator::find(
    const EditorViewModel& document) {
    for (OpenEditor& each : editors_)
        if (&each.document() == &document) return &each;
    return nullptr;
}

void EditorWindowCoordinator::saveFrame(UserDefaults& defaults) const {
    if (editors_.empty()) return;
    defaults.setString(QStringLiteral("EditorWindowFrame"),
                       frameText(editors_.back().window->window()->geometry()));
}

}  // namespace kestrio
