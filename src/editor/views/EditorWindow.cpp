#include "editor/views/EditorWindow.h"

#include "core/Localisation.h"
#include "core/Priority.h"
#include "editor/views/ThumbnailProvider.h"

#include <QtQml/qqmlextensionplugin.h>
#include <QPointer>
#include <QQmlComponent>
#include <QQmlEngine>
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

// All editors of the process share it, so that only the first one loads the views. Dies before the
// application does.
QQmlEngine& engine() {
    static QPointer<QQmlEngine> shared;
    static const bool isMade = [] {
        // A linker drops a registration that nobody calls.
        qml_register_types_Kestrio_Editor();
        preferWindows();
        // Drawn by the processor, windows come up sooner than with a graphics context, and what
        // they show most is a picture that the processor has made.
        if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND")) {
            QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        }
        auto* made = new QQmlEngine;
        made->addImportPath(QStringLiteral("qrc:/qt/qml"));
        // Its threads end only while there still is an application.
        qAddPostRoutine([] { delete shared.data(); });
        shared = made;
        return true;
    }();
    Q_UNUSED(isMade)
    return *shared;
}

}  // namespace

EditorWindow::EditorWindow(EditorServices services, const QString& name)
    : controller_(std::move(services), name) {
    engine().addImageProvider(controller_.thumbnailProvider(), controller_.makeThumbnailProvider());
}

EditorWindow::~EditorWindow() {
    window_.reset();
    engine().removeImageProvider(controller_.thumbnailProvider());
}

void EditorWindow::open(const Image& image) {
    controller_.open(image);
    if (window_) return;
    QQmlComponent component(
        &engine(), QUrl(QStringLiteral("qrc:/qt/qml/Kestrio/Editor/qml/EditorWindow.qml")));
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
