#pragma once

#include "editor/document/EditorViewModel.h"
#include "ui/views/ColorPicking.h"

namespace kestrio {

/// The eyedropper, the colours picked last, and colours as texts. Main thread. The base has its
/// whole name, by which the QML tools look it up.
class ColorPanel : public kestrio::ColorPicking {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the editor")
    Q_PROPERTY(bool isPicking READ isPicking NOTIFY pickingChanged)
    Q_PROPERTY(QColor swatch READ swatch NOTIFY colorChanged)
    /// The colour as a text in the chosen format; that there is none.
    Q_PROPERTY(QString text READ text NOTIFY colorChanged)
    Q_PROPERTY(bool hasColor READ hasColor NOTIFY colorChanged)
    Q_PROPERTY(QVariantList formats READ formats CONSTANT)
    Q_PROPERTY(QString format READ format NOTIFY colorChanged)
    Q_PROPERTY(bool isCopied READ isCopied NOTIFY copiedChanged)

  public:
    explicit ColorPanel(EditorViewModel& editor, QObject* parent = nullptr);

    bool isPicking() const { return picker().isColorPickingMode(); }
    QColor swatch() const { return picker().currentSwatch(); }
    QString text() const { return picker().currentText(); }
    bool hasColor() const { return picker().currentColor().has_value(); }
    QVariantList recent() const override;
    QVariantList formats() const;
    QString format() const;
    bool isCopied() const { return picker().showCopiedFeedback(); }

    /// Starts or ends picking. What is picked becomes the tools' colour in annotation mode, with
    /// `forBackdrop` the backdrop's too.
    Q_INVOKABLE void toggle(bool forBackdrop = false);
    void pickFor(QObject* receiver) override;
    /// Points of the picture, from its top left corner.
    Q_INVOKABLE void movePointer(const QPointF& point);
    Q_INVOKABLE void pick(const QPointF& point, bool forBackdrop);
    Q_INVOKABLE void show(const QColor& color);
    Q_INVOKABLE void chooseFormat(const QString& id);
    Q_INVOKABLE void copy() { picker().copyCurrentColor(); }
    /// What is readable on a swatch of the colour.
    Q_INVOKABLE QColor textOn(const QColor& color) const;

    Q_SIGNAL void pickingChanged();
    Q_SIGNAL void colorChanged();
    Q_SIGNAL void copiedChanged();

  private:
    ColorPickerViewModel& picker() { return editor_.colorPickerVM(); }
    const ColorPickerViewModel& picker() const { return editor_.colorPickerVM(); }

    EditorViewModel& editor_;
    bool isForBackdrop_ = false;
};

}  // namespace kestrio
