#pragma once

#include "platform/FileReveal.h"

#include <QFileInfo>
#include <QStringList>

namespace kestrio {

/// A file viewer that only remembers the absolute paths that it was to show.
class RecordingFileReveal : public FileReveal {
  public:
    QStringList revealed;

    void reveal(const QString& path) override { revealed << QFileInfo(path).absoluteFilePath(); }
};

}  // namespace kestrio
