#include "app/cli/JsonFile.h"

#include "core/Localisation.h"

#include <QFile>

namespace kestrio {

namespace {

constexpr qint64 longestFile = qint64(64) << 20;

}  // namespace

QString JsonFileError::errorDescription() const {
    return localised(complaint_).arg(path_, reason_);
}

QByteArray readJsonFile(const QString& path, const char* complaint) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw JsonFileError(complaint, path, file.errorString());
    QByteArray text = file.read(longestFile + 1);
    if (text.size() > longestFile) {
        throw JsonFileError(complaint, path, localised("it is too large"));
    }
    if (file.error() != QFileDevice::NoError) {
        throw JsonFileError(complaint, path, file.errorString());
    }
    return text;
}

}  // namespace kestrio
