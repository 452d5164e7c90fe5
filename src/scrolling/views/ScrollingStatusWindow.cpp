#include "scrolling/views/ScrollingStatusWindow.h"

#include "scrolling/overlays/ScrollingStatusModel.h"

#include <QQmlComponent>
#include <QQuickWindow>

void qml_register_types_Kestrio_Scrolling();

namespace kestrio {

namespace {

const QUrl source(QStringLiteral("qrc:/qt/qml/Kestrio/Scrolling/qml/ScrollingStatusWindow.qml"));

}  // namespace

ScrollingStatusWindow::ScrollingStatusWindow(ScrollingStatusModel& model,
                                             std::shared_ptr<Appearance> appearance,
                                             std::shared_ptr<FloatingWindows> floating)
    : appearance_(std::move(appearance)), floating_(std::move(floating)) {
    // A linker drops a registration that nobody calls.
    qml_register_types_Kestrio_Scrolling();
    QQmlComponent component(&lease_.engine(), source);
    std::unique_ptr<QObject> made(component.createWithInitialProperties(
        {{QStringLiteral("model"), QVariant::fromValue(&model)},
         {QStringLiteral("appearance"), QVariant::fromValue(appearance_.get())},
         {QStringLiteral("isTranslucent"), floating_->supportsTranslucency()}}));
    for (const QQmlError& error : component.errors())
        qWarning("%s", qUtf8Printable(error.toString()));
    window_.reset(qobject_cast<QQuickWindow*>(made.get()));
    if (window_) made.release();
}

ScrollingStatusWindow::~ScrollingStatusWindow() = default;

QSize ScrollingStatusWindow::size() const {
    return window_->size();
}

void ScrollingStatusWindow::showAt(const QRect& place) {
    window_->setGeometry(place);
    floating_->prepare(*window_);
    window_->show();
}

StatusPanelFactory statusWindows(std::shared_ptr<Appearance> appearance,
                                 std::shared_ptr<FloatingWindows> floating) {
    return [=](ScrollingStatusModel& model) -> std::unique_ptr<StatusPanel> {
        auto made = std::make_unique<ScrollingStatusWindow>(model, appearance, floating);
        if (!made->window()) return nullptr;
        return made;
    };
}

}  // namespace kestrio
