#pragma once

#include <QString>

namespace kestrio {

/// Shows files in the desktop's file viewer. Main thread only.
class FileReveal {
  public:
    virtual ~FileReveal() = default;

    /// Opens the file's folder with the file selected where the viewer can, and returns at once.
    /// Relative paths count from the working folder.
    virtual void reveal(const QString& path) = 0;
};

}  // namespace kestrio
