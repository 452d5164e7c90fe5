#include "core/UserDefaults.h"

#include "core/AtomicFile.h"
#include "core/FileSystem.h"
#include "core/Log.h"

#include <QFile>
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

namespace {

QMap<QString, QVariant> valuesOf(const QSettings& settings) {
    QMap<QString, QVariant> values;
    for (const QString& key : settings.allKeys())
        values.insert(key, settings.value(key));
    return values;
}

}  // namespace

IniUserDefaults::IniUserDefaults(const QString& path)
    : settings_(path, QSettings::IniFormat), queue_(QStringLiteral("com.kestrio.userdefaults")) {
    values_ = valuesOf(settings_);
}

IniUserDefaults::~IniUserDefaults() = default;

QVariant IniUserDefaults::read(const QString& key) const {
    const std::lock_guard lock(mutex_);
    return values_.value(key);
}

void IniUserDefaults::write(const QString& key, const QVariant& value) {
    const std::lock_guard lock(mutex_);
    if (value.isValid()) {
        values_.insert(key, value);
    } else {
        values_.remove(key);
    }
    const bool isFirst = changes_.isEmpty();
    changes_.insert(key, value);
    // Later changes go with the same writing.
    if (isFirst) queue_.async([this] { writeChanges(); });
}

void IniUserDefaults::synchronise() {
    queue_.sync([this] { writeChanges(); });
}

namespace {

// What replaces a file gets its permissions, so that nobody else reads it at any moment.
void makePrivate(const QString& path) {
    try {
        makeFolders(folderOf(path), FileAccess::ownerOnly);
        if (fileKind(path) == FileKind::missing) replaceFile(path, {}, FileAccess::ownerOnly);
        const auto own = QFile::ReadOwner | QFile::WriteOwner;
        const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                            QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
        if (QFile::permissions(path) & others) QFile::setPermissions(path, own);
    } catch (const FileError& error) {
        logLine("UserDefaults", error.errorDescription());
    }
}

}  // namespace

void IniUserDefaults::writeChanges() {
    QMap<QString, QVariant> changes;
    {
        const std::lock_guard lock(mutex_);
        changes = std::exchange(changes_, {});
    }
    for (auto change = changes.cbegin(); change != changes.cend(); ++change) {
        if (change->isValid()) {
            settings_.setValue(change.key(), *change);
        } else {
            settings_.remove(change.key());
        }
    }
    makePrivate(settings_.fileName());
    settings_.sync();
    QMap<QString, QVariant> written = valuesOf(settings_);
    const std::lock_guard lock(mutex_);
    for (auto change = changes_.cbegin(); change != changes_.cend(); ++change) {
        if (change->isValid()) {
            written.insert(change.key(), *change);
        } else {
            written.remove(change.key());
        }
    }
    values_ = std::move(written);
}

QString IniUserDefaults::standardPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/kestrio/kestrio.ini");
}

}  // namespace kestrio
