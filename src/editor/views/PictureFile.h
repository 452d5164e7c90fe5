#pragma once

#include "editor/document/EditorViewModel.h"

namespace kestrio {

/// A picture file as it lies on the disk, and its decoded pixels.
struct PictureFile {
    QString path;
    QByteArray data;
    QImage bitmap;
};

/// Reads and decodes a file off the main loop and hands it over on it. What is no picture becomes
/// the editor's error message; where the editor is gone by then nothing happens.
void readPictureFile(EditorViewModel& editor, const QString& path,
                     std::function<void(const PictureFile&)> use);

}  // namespace kestrio
