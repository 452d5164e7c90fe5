#include "editor/views/EditorWindow.h"

#include "core/Localisation.h"
#include "core/Priority.h"
#include "editor/views/ThumbnailProvider.h"

#include <QtQml/qqmlextensionplugin.h>
#include <QQuickWindow>

void qml_register_types_Kestrio_Editor();

namespace kestrio {

namespace {

class WindowError : public Error {
  public:
    QString errorDescription() const override {
        return localised("the editor's window could not be made");
    }
};

}  // namespace

EditorWindow::EditorWindow(EditorServices services, const QString& name)
    : controller_(std::move(services), name) {
    // A linker drops a registration that nobody calls.
    static const bool isRegistered = [] {
        qml_register_types_Kestrio_Editor();
        preferWindows();
        // Drawn by the processor, windows come up sooner than with a graphics context, and what
        // they show most is a picture that the processor has made.
        if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND")) {
            QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        }
        return true;
    }();
    Q_UNUSED(isRegistered)
    engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine_.addImageProvider(QStringLiteral("thumbnail"), controller_.makeThumbnailProvider());
}

void EditorWindow::open(const Image& image) {
    controller_.open(image);
    if (!engine_.rootObjects().isEmpty()) return;
    engine_.setInitialProperties(
        {{QStringLiteral("controller"), QVariant::fromValue(&controller_)}});
    engine_.load(QUrl(QStringLiteral("qrc:/qt/qml/Kestrio/Editor/qml/EditorWindow.qml")));
    if (engine_.rootObjects().isEmpty()) throw WindowError();
}

QObject* EditorWindow::root() const {
    return engine_.rootObjects().value(0);
}

}  // namespace kestrio
