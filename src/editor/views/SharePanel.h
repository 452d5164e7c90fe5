#pragma once

#include "editor/output/DocumentSharing.h"

#include <QQmlEngine>
#include <QVariantMap>

namespace kestrio {

/// The menu that hands the finished picture to other programs. Main thread.
class SharePanel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the editor")
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY busyChanged)

  public:
    SharePanel(EditorViewModel& editor, EditorServices services, QString name,
               QObject* parent = nullptr);

    bool isBusy() const { return sharing_.isSharing(); }

    /// Programs that open pictures, each {id, name, icon}; the icon is a URL and may be empty.
    /// Asked again each time the menu opens.
    Q_INVOKABLE QVariantList programs() const;
    Q_INVOKABLE void email() { sharing_.email(); }
    Q_INVOKABLE void openWith(const QString& program) { sharing_.openWith(program); }
    Q_INVOKABLE void copyFile() { sharing_.copyFile(); }

    Q_SIGNAL void busyChanged();

  private:
    DocumentSharing sharing_;
};

}  // namespace kestrio
