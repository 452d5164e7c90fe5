#include "platform/linux/recognition/RecognitionFiles.h"

#include <unistd.h>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace kestrio {

namespace {

QString recognitionFolder() {
    const QString forced = qEnvironmentVariable("KESTRIO_RECOGNITION");
    if (!forced.isEmpty()) return forced;
    const QString program = QCoreApplication::applicationDirPath();
    const QString ofBuildTree = program + QStringLiteral("/../recognition");
    if (QFileInfo(ofBuildTree).isDir()) return ofBuildTree;
    return QDir::cleanPath(program + QStringLiteral("/../lib/kestrio/recognition"));
}

}  // namespace

QByteArray RecognitionFiles::missing() const {
    for (const QByteArray& file : {library, finder, reader, characters})
        if (access(file.constData(), R_OK) != 0) return file;
    return {};
}

RecognitionFiles recognitionFiles() {
    const QByteArray folder = QFile::encodeName(recognitionFolder());
    return {folder + "/libonnxruntime.so.1", folder + "/text-lines.onnx",
            folder + "/characters.onnx", folder + "/characters.txt"};
}

}  // namespace kestrio
