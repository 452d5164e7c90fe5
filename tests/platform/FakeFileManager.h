#pragma once

#include <QObject>
#include <QStringList>
#include <QUrl>

namespace kestrio {

/// A file viewer on the bus that remembers what it was to show.
class FakeFileManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

  public:
    QStringList shown;

    Q_SLOT void ShowItems(const QStringList& uris, const QString&) { shown << uris; }
};

/// Stands in for the program that opens folders.
class FakeFolderOpener : public QObject {
    Q_OBJECT

  public:
    QStringList opened;

    Q_SLOT void open(const QUrl& url) { opened << url.toLocalFile(); }
};

}  // namespace kestrio
