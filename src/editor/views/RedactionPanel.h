#pragma once

#include "editor/document/EditorViewModel.h"
#include "editor/views/ViewRows.h"

#include <QQmlEngine>

namespace kestrio {

/// Covering of private data as its button and popover show it. Main thread.
class RedactionPanel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the editor")
    Q_PROPERTY(bool isScanning READ isScanning NOTIFY scanningChanged)
    Q_PROPERTY(QString kind READ kind WRITE setKind NOTIFY kindChanged)
    Q_PROPERTY(QVariantList kinds READ kinds CONSTANT)
    /// Marks of this kind leave something of what they cover.
    Q_PROPERTY(bool isReversible READ isReversible NOTIFY kindChanged)

  public:
    explicit RedactionPanel(EditorViewModel& editor, QObject* parent = nullptr);

    bool isScanning() const { return redaction_.isScanning(); }
    QString kind() const { return rawName(redaction_.kind()); }
    void setKind(const QString& id);
    QVariantList kinds() const { return viewRows<RedactionKind>(); }
    bool isReversible() const { return redaction_.kind() != RedactionKind::solid; }

    Q_SIGNAL void scanningChanged();
    Q_SIGNAL void kindChanged();

  private:
    AutoRedaction& redaction_;
};

}  // namespace kestrio
