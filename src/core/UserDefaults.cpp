#include "core/UserDefaults.h"

#include <QStandardPaths>

namespace kestrio {

std::optional<QByteArray> UserDefaults::data(const QString& key) const {
    const QVariant value = read(key);
    // A hand-edited INI file holds plain text where the program would have written bytes.
    if (value.typeId() == QMetaType::QString) return value.toString().toUtf8();
    // INI files read text with bare commas as a list.
    if (value.typeId() == QMetaType::QStringList) {
        return value.toStringList().join(u',').toUtf8();
    }
    if (value.typeId() == QMetaType::QByteArray) return value.toByteArray();
    return std::nullopt;
}

std::optional<QString> UserDefaults::string(const QString& key) const {
    const QVariant value = read(key);
    if (value.typeId() != QMetaType::QString) return std::nullopt;
    return value.toString();
}

std::optional<QStringList> UserDefaults::stringArray(const QString& key) const {
    const QVariant value = read(key);
    // INI files write a list of one string as that string.
    if (value.typeId() == QMetaType::QString) return QStringList{value.toString()};
    if (value.typeId() != QMetaType::QStringList) return std::nullopt;
    return value.toStringList();
}

std::optional<bool> UserDefaults::boolean(const QString& key) const {
    const QVariant value = read(key);
    if (value.typeId() == QMetaType::Bool) return value.toBool();
    const QString text = value.typeId() == QMetaType::QString ? value.toString() : QString();
    if (text == u"true") return true;
    if (text == u"false") return false;
    return std::nullopt;
}

IniUserDefaults::IniUserDefaults(const QString& path) : settings_(path, QSettings::IniFormat) {}

QString IniUserDefaults::standardPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/kestrio/kestrio.ini");
}

}  // namespace kestrio
