#pragma once

#include "editor/document/EditorViewModel.h"

#include <QQmlEngine>
#include <QUrl>
#include <QVariantMap>

namespace kestrio {

/// What the watermark section shows beside the style's fields: its picture, fonts and stored
/// presets. Main thread.
class WatermarkPanel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the editor")
    Q_PROPERTY(QVariantList types READ types CONSTANT)
    Q_PROPERTY(QVariantList positions READ positions CONSTANT)
    Q_PROPERTY(QStringList fonts READ fonts CONSTANT)
    /// Each {id, name}.
    Q_PROPERTY(QVariantList presets READ presets NOTIFY presetsChanged)
    Q_PROPERTY(QString currentPreset READ currentPreset NOTIFY presetsChanged)
    /// The mark's picture for an Image; empty where there is none.
    Q_PROPERTY(QUrl picture READ picture NOTIFY pictureChanged)

  public:
    explicit WatermarkPanel(EditorViewModel& editor, QObject* parent = nullptr);

    QVariantList types() const;
    QVariantList positions() const;
    /// Families of the desktop, without its symbol fonts.
    QStringList fonts() const;
    QVariantList presets() const;
    QString currentPreset() const;
    QUrl picture() const;

    /// Makes a picture file the mark. A file that is not a picture is reported and changes nothing.
    Q_INVOKABLE void setPicture(const QUrl& file);
    Q_INVOKABLE void savePreset(const QString& name);
    Q_INVOKABLE void selectPreset(const QString& id);
    Q_INVOKABLE void deletePreset(const QString& id);

    Q_SIGNAL void presetsChanged();
    Q_SIGNAL void pictureChanged();

  private:
    WatermarkViewModel& mark() { return editor_.watermarkVM(); }
    const WatermarkViewModel& mark() const { return editor_.watermarkVM(); }

    EditorViewModel& editor_;
};

}  // namespace kestrio
