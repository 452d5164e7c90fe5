#pragma once

#include <QQmlEngine>
#include <QVariantList>

namespace kestrio {

/// What the editor's pickers offer: lists of rows {id, name}.
class EditorChoices : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the editor")
    Q_PROPERTY(QVariantList backdropType READ backdropType CONSTANT)
    /// Each {id, name, rows}.
    Q_PROPERTY(QVariantList gradientGroups READ gradientGroups CONSTANT)
    Q_PROPERTY(QVariantList imageFit READ imageFit CONSTANT)
    Q_PROPERTY(QVariantList pattern READ pattern CONSTANT)
    Q_PROPERTY(QVariantList overlay READ overlay CONSTANT)
    Q_PROPERTY(QVariantList overlayPosition READ overlayPosition CONSTANT)
    Q_PROPERTY(QVariantList effect READ effect CONSTANT)
    /// Some with `spoken`, what assistive programs say of them.
    Q_PROPERTY(QVariantList frame READ frame CONSTANT)
    Q_PROPERTY(QVariantList enhancement READ enhancement CONSTANT)
    Q_PROPERTY(QVariantList shadowIntensity READ shadowIntensity CONSTANT)
    Q_PROPERTY(QVariantList light READ light CONSTANT)
    /// Each {id, name, ratio}, of width to height; 0 for that of the picture.
    Q_PROPERTY(QVariantList aspect READ aspect CONSTANT)
    /// Each {id, name, rows}, the rows like those of `aspect`.
    Q_PROPERTY(QVariantList social READ social CONSTANT)

  public:
    using QObject::QObject;

    static QVariantList backdropType();
    static QVariantList gradientGroups();
    static QVariantList imageFit();
    static QVariantList pattern();
    static QVariantList overlay();
    static QVariantList overlayPosition();
    static QVariantList effect();
    static QVariantList frame();
    static QVariantList enhancement();
    static QVariantList shadowIntensity();
    static QVariantList light();
    static QVariantList aspect();
    static QVariantList social();
};

}  // namespace kestrio
