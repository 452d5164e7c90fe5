#include "editor/views/EditorWindow.h"

#include "core/Localisation.h"
#include "editor/views/ThumbnailProvider.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>

void qml_register_types_Kestrio_Editor();

namespace kestrio {

namespace {

class WindowError : public Error {
  public:
    QString errorDescription() const override {
        return Kestrio::tr("the editor's window could not be made");
    }
};

}  // namespace

EditorWindow::EditorWindow(std::shared_ptr<EditorViewModel> document, EditorServices services,
                           const QString& name)
    : controller_(std::move(document), std::move(services), name) {
    lease_.engine().addImageProvider(controller_.thumbnailProvider(),
                                     controller_.makeThumbnailProvider());
}

EditorWindow::~EditorWindow() {
    window_.reset();
    lease_.engine().removeImageProvider(controller_.thumbnailProvider());
}

void EditorWindow::show() {
    if (window_) return;
    // A linker drops a registration that nobody calls.
    static const bool isRegistered = (qml_register_types_Kestrio_Editor(), true);
    Q_UNUSED(isRegistered)
    QQmlComponent component(
        &lease_.engine(), QUrl(QStringLiteral("qrc:/qt/qml/Kestrio/Editor/qml/EditorWindow.qml")));
    std::unique_ptr<QObject> made(component.createWithInitialProperties(
        {{QStringLiteral("controller"), QVariant::fromValue(&controller_)}}));
    for (const QQmlError& error : component.errors())
        qWarning("%s", qUtf8Printable(error.toString()));
    auto* window = qobject_cast<QQuickWindow*>(made.get());
    if (!window) throw WindowError();
    made.release();
    window_.reset(window);
}

}  // namespace kestrio
