#include "app/cli/JsonFile.h"

#include "core/AtomicFile.h"
#include "core/Localisation.h"
#include "core/RegularFile.h"

namespace kestrio {

namespace {

constexpr qint64 longestFile = qint64(64) << 20;

}  // namespace

QString JsonFileError::errorDescription() const {
    return Kestrio::tr(complaint_).arg(path_, reason_);
}

QByteArray readJsonFile(const QString& path, const char* complaint) {
    try {
        return readRegularFile(path, longestFile);
    } catch (const FileError& error) {
        throw JsonFileError(complaint, path, error.reason());
    }
}

}  // namespace kestrio
