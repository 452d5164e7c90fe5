#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace kestrio {

/// A file of groups of keys, as freedesktop.org has them for desktop entries and for associations
/// of MIME types.
class DesktopFile {
  public:
    /// Empty where there is no such file.
    static DesktopFile read(const QString& path);

    bool isEmpty() const { return groups_.isEmpty(); }
    /// The value with its escapes undone; empty where it is missing.
    QString value(const QString& group, const QString& key) const;
    /// The value in the user's language, else the plain one.
    QString localisedValue(const QString& group, const QString& key) const;
    bool flag(const QString& group, const QString& key) const;
    /// The parts between semicolons, without empty ones.
    QStringList list(const QString& group, const QString& key) const;

  private:
    QHash<QString, QHash<QString, QString>> groups_;
};

}  // namespace kestrio
