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

QString nameOf(const CapturedImage& image, const QString& name) {
    if (!name.isEmpty()) return name;
    return localised("Capture ") + image.captureDate.toString(QStringLiteral("HH-mm-ss"));
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

    OpenEditor(const EditorServices& services, const QString& name)
        : window(std::make_unique<EditorWindow>(services, name)) {}

    EditorViewModel& document() const { return window->controller().editor(); }
    QString name() const { return window->controller().name(); }
    void keep(const std::shared_ptr<DraftService>& drafts,
              std::shared_ptr<DraftFolder> taken = {}) {
        if (!drafts) return;
        draft = std::make_unique<DocumentDraft>(document(), name(), drafts, std::move(taken));
    }
};

EditorWindowCoordinator::EditorWindowCoordinator(std::function<EditorServices()> makeServices,
                                                 std::shared_ptr<ActivationState> activation,
                                                 QObject* parent)
    : QObject(parent), makeServices_(std::move(makeServices)), activation_(std::move(activation)) {}

EditorWindowCoordinator::~EditorWindowCoordinator() = default;

void EditorWindowCoordinator::open(const CapturedImage& image, const QString& name) {
    OpenEditor made(services(), nameOf(image, name));
    made.window->open(image.image);
    made.keep(services().drafts);
    show(std::move(made));
}

void EditorWindowCoordinator::restore(const DraftDocument& document, const ClaimedDraft& draft) {
    OpenEditor made(services(), document.name);
    made.window->open(document.picture);
    made.document().restoreDraft(document);
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
}

void EditorWindowCoordinator::removeClosed() {
    const auto isClosed = [](const auto& each) { return !each.window->window()->isVisible(); };
    const auto closed =
        std::stable_partition(editors_.begin(), editors_.end(), std::not_fn(isClosed));
    if (closed == editors_.end()) return;
    for (auto each = closed; each != editors_.end(); ++each) {
        if (each->draft) each->draft->discard();
        each->document().cleanUp();
    }
    editors_.erase(closed, editors_.end());
    if (editors_.empty()) {
        set_isEditorOpen(false);
        activation_->set_policy(ActivationPolicy::accessory);
    }
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
        if (document.hasUnexportedChanges()) {
            found.push_back({QPointer(&document), each.name()});
        }
    }
    return found;
}

bool EditorWindowCoordinator::isExporting() const {
    return std::any_of(editors_.begin(), editors_.end(),
                       [](const auto& each) { return each.document().isExporting(); });
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
    for (const auto& each : editors_) {
        if (&each.document() != document) continue;
        kestrio::bringToFront(*each.window->window());
        return true;
    }
    return false;
}

void EditorWindowCoordinator::saveFrame(UserDefaults& defaults) const {
    if (editors_.empty()) return;
    defaults.setString(QStringLiteral("EditorWindowFrame"),
                       frameText(editors_.back().window->window()->geometry()));
}

}  // namespace kestrio
