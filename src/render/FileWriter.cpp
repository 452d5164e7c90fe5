#include "render/FileWriter.h"

#include "imaging/ExportError.h"

#include <QFile>

namespace kestrio {

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    const auto failed = [&] { return ExportError::fileWriteFailed(path, file.errorString()); };
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        throw failed();
    qint64 written = 0;
    while (written < bytes.size()) {
        const qint64 count = file.write(bytes.constData() + written, bytes.size() - written);
        if (count <= 0) throw failed();
        written += count;
    }
    file.close();
    if (file.error() != QFileDevice::NoError) throw failed();
}

}  // namespace kestrio
