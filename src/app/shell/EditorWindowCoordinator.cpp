#include "app/shell/EditorWindowCoordinator.h"

#include "app/shell/WindowFocus.h"
#include "core/Localisation.h"
#include "editor/views/EditorWindow.h"

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

EditorWindowCoordinator::EditorWindowCoordinator(std::function<EditorServices()> makeServices,
                                                 std::shared_ptr<ActivationState> activation,
                                                 QObject* parent)
    : QObject(parent), makeServices_(std::move(makeServices)), activation_(std::move(activation)) {}

EditorWindowCoordinator::~EditorWindowCoordinator() = default;

void EditorWindowCoordinator::open(const CapturedImage& image, const QString& name) {
    if (!services_) services_ = makeServices_();
    auto made = std::make_unique<EditorWindow>(*services_, nameOf(image, name));
    made->open(image.image);
    show(*made);
    editors_.push_back(std::move(made));
    set_isEditorOpen(true);
    bringToFront();
}

void EditorWindowCoordinator::show(EditorWindow& editor) {
    centre(*editor.window());
    moveAside(*editor.window(), editors_.size());
    activation_->set_policy(ActivationPolicy::regular);
    // Queued: the window is still in its own closing call.
    connect(
        editor.window(), &QWindow::visibleChanged, this,
        [this](bool isVisible) {
            if (!isVisible) removeClosed();
        },
        Qt::QueuedConnection);
}

void EditorWindowCoordinator::removeClosed() {
    const auto isClosed = [](const auto& each) { return !each->window()->isVisible(); };
    const auto closed =
        std::stable_partition(editors_.begin(), editors_.end(), std::not_fn(isClosed));
    if (closed == editors_.end()) return;
    for (auto each = closed; each != editors_.end(); ++each)
        (*each)->controller().editor().cleanUp();
    editors_.erase(closed, editors_.end());
    if (editors_.empty()) {
        set_isEditorOpen(false);
        activation_->set_policy(ActivationPolicy::accessory);
    }
    Q_EMIT documentClosed();
}

EditorViewModel* EditorWindowCoordinator::currentEditorViewModel() {
    return editors_.empty() ? nullptr : &editors_.back()->controller().editor();
}

std::vector<OpenDocument> EditorWindowCoordinator::unexportedDocuments() const {
    std::vector<OpenDocument> found;
    for (const auto& each : editors_) {
        EditorViewModel& document = each->controller().editor();
        document.finishEditing();
        if (document.hasUnexportedChanges()) {
            found.push_back({QPointer(&document), each->controller().name()});
        }
    }
    return found;
}

bool EditorWindowCoordinator::isExporting() const {
    return std::any_of(editors_.begin(), editors_.end(),
                       [](const auto& each) { return each->controller().editor().isExporting(); });
}

bool EditorWindowCoordinator::bringToFront() {
    return bringToFront(currentEditorViewModel());
}

bool EditorWindowCoordinator::bringToFront(const EditorViewModel* document) {
    for (const auto& each : editors_) {
        if (&each->controller().editor() != document) continue;
        kestrio::bringToFront(*each->window());
        return true;
    }
    return false;
}

void EditorWindowCoordinator::saveFrame(UserDefaults& defaults) const {
    if (editors_.empty()) return;
    defaults.setString(QStringLiteral("EditorWindowFrame"),
                       frameText(editors_.back()->window()->geometry()));
}

}  // namespace kestrio
