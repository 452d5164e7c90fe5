#pragma once

#include "ui/CombinedColorInput.h"

#include <QQmlEngine>
#include <QVariantList>

namespace kestrio {

/// The fields in which views let a colour be typed.
struct ColorInputElement {
    Q_GADGET
    QML_FOREIGN(CombinedColorInput)
    QML_NAMED_ELEMENT(CombinedColorInput)
};

/// What the colour controls ask of the window that they stand in: the colours picked last, and
/// picking one from what the window shows. Main thread.
class ColorPicking : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of a window's model")
    Q_PROPERTY(QVariantList recent READ recent NOTIFY recentChanged)

  public:
    using QObject::QObject;

    /// Newest first.
    virtual QVariantList recent() const = 0;
    Q_SIGNAL void recentChanged();

    /// Starts picking for one control alone, which hears of the colour by pickedFor().
    Q_INVOKABLE virtual void pickFor(QObject* receiver) = 0;
    Q_SIGNAL void pickedFor(QObject* receiver, const QColor& color);
};

}  // namespace kestrio
