#pragma once

#include <QImage>
#include <QStringList>

namespace kestrio {

/// The desktop's clipboard. Main thread only.
class Pasteboard {
  public:
    virtual ~Pasteboard() = default;

    /// Empties the clipboard.
    virtual void clearContents() = 0;
    /// Puts a picture on it as the only content; false where the desktop refuses. `png` is the same
    /// picture as a PNG file, so that whoever pastes need not wait for it to be encoded; it may be
    /// empty.
    virtual bool writeImage(const QImage& image, const QByteArray& png) = 0;
    /// The picture on it; null where there is none.
    virtual QImage readImage() const = 0;
    /// The local files on it, by absolute path; empty where there are none.
    virtual QStringList readFiles() const = 0;
    /// Puts local files, by absolute path, on it as the only content; false where the desktop
    /// refuses.
    virtual bool writeFiles(const QStringList& paths) = 0;
    /// Puts a text on it as the only content; false where the desktop refuses.
    virtual bool writeText(const QString& text) = 0;
    /// The text on it; empty where there is none.
    virtual QString readText() const = 0;
    /// Whether what is on it was put there by this program.
    virtual bool ownsContents() const = 0;
};

}  // namespace kestrio
