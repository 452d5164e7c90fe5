#include "app/shell/EditorWindowCoordinator.h"

#include "app/shell/WindowFocus.h"
#include "core/Localisation.h"
#include "editor/views/EditorWindow.h"

#include <QQuickWindow>

namespace kestrio {

namespace {

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

}  // namespace

EditorWindowCoordinator::EditorWindowCoordinator(std::function<EditorServices()> makeServices,
                                                 std::shared_ptr<ActivationState> activation,
                                                 QObject* parent)
    : QObject(parent), makeServices_(std::move(makeServices)), activation_(std::move(activation)) {}

EditorWindowCoordinator::~EditorWindowCoordinator() = default;

void EditorWindowCoordinator::open(const CapturedImage& image, const QString& name) {
    close(AfterClosing::keepPolicy);
    if (!services_) services_ = makeServices_();
    auto made = std::make_unique<EditorWindow>(*services_, nameOf(image, name));
    made->open(image.image);
    editor_ = std::move(made);
    showCentred();
    // Queued: the window is still in its own closing call.
    connect(
        editor_->window(), &QWindow::visibleChanged, this,
        [this](bool isVisible) {
            if (!isVisible) windowWasClosed();
        },
        Qt::QueuedConnection);
    set_isEditorOpen(true);
}

void EditorWindowCoordinator::showCentred() {
    centre(*editor_->window());
    activation_->set_policy(ActivationPolicy::regular);
    bringToFront();
}

bool EditorWindowCoordinator::bringToFront() {
    if (!editor_) return false;
    kestrio::bringToFront(*editor_->window());
    return true;
}

EditorViewModel* EditorWindowCoordinator::currentEditorViewModel() {
    return editor_ ? &editor_->controller().editor() : nullptr;
}

void EditorWindowCoordinator::windowWasClosed() {
    // The signal may come late, from a window that another one has followed.
    if (editor_ && !editor_->window()->isVisible()) close(AfterClosing::restoreAccessory);
}

void EditorWindowCoordinator::close(AfterClosing after) {
    if (!editor_) return;
    editor_->window()->disconnect(this);
    editor_->controller().editor().cleanUp();
    editor_->window()->hide();
    editor_.reset();
    set_isEditorOpen(false);
    if (after == AfterClosing::restoreAccessory) {
        activation_->set_policy(ActivationPolicy::accessory);
    }
}

void EditorWindowCoordinator::saveFrame(UserDefaults& defaults) const {
    if (!editor_) return;
    defaults.setString(QStringLiteral("EditorWindowFrame"), frameText(editor_->window()->geometry()));
}

}  // namespace kestrio
