#pragma once

#include "editor/views/EditorController.h"

#include <QPointer>
#include <QQuickPaintedItem>

namespace kestrio {

/// The pixels around the eyedropper, enlarged, the one that would be picked in a frame.
class MagnifierItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(kestrio::EditorController* controller READ controller WRITE setController NOTIFY
                   controllerChanged)

  public:
    explicit MagnifierItem(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) {}

    EditorController* controller() const { return controller_; }
    void setController(EditorController* controller);
    void paint(QPainter* painter) override;

    Q_SIGNAL void controllerChanged();

  private:
    QPointer<EditorController> controller_;
};

}  // namespace kestrio
