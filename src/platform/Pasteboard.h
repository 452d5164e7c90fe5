#pragma once

#include "core/Task.h"
#include "platform/PasteboardError.h"

#include <QFlags>
#include <QImage>
#include <QStringList>
#include <memory>

namespace kestrio {

enum class PasteboardKind { picture = 1, files = 2, text = 4 };
Q_DECLARE_FLAGS(PasteboardKinds, PasteboardKind)

/// What was read from the clipboard: one kind, or nothing where none of those wanted is on it.
struct PasteboardContents {
    QImage image;
    /// The same picture as a PNG file, where this program put both there; else empty.
    QByteArray png;
    QStringList files;  ///< local ones, by absolute path
    QString text;

    bool isEmpty() const { return image.isNull() && files.isEmpty() && text.isEmpty(); }
};

/// The desktop's clipboard. Main thread only. Nothing here waits for other programs.
class Pasteboard {
  public:
    virtual ~Pasteboard() = default;

    // Writing gives false where the desktop refuses, as it does for a moment after another program
    // has copied.

    /// Puts a picture on it as the only content. `png` is the same picture as a PNG file, so that
    /// whoever pastes need not wait for it to be encoded. One of both may be empty; without the
    /// picture, the file is decoded for programs that ask for another format.
    virtual bool writeImage(const QImage& image, const QByteArray& png) = 0;
    /// Puts local files, by absolute path, on it as the only content.
    virtual bool writeFiles(const QStringList& paths) = 0;
    /// Puts a text on it as the only content.
    virtual bool writeText(const QString& text) = 0;

    /// The first of picture, files and text that is wanted and on it. The owner must outlive the
    /// flow. Throws PasteboardError, where another program is asked and fails, and Cancelled.
    virtual Task<PasteboardContents> read(PasteboardKinds wanted, std::stop_token stop = {}) = 0;

    /// A number of whoever owns its contents: another one after another program has copied. 0 where
    /// nobody does, and where the desktop does not say.
    virtual quint32 owner() const = 0;
    /// Whether the desktop names this program as the owner of the contents, which end with it.
    virtual bool ownsContents() const = 0;
};

/// Writes a picture, as Pasteboard::writeImage(), and tries again a few times before it gives
/// false.
Task<bool> writeImagePatiently(std::shared_ptr<Pasteboard> pasteboard, QImage image,
                               QByteArray png);

}  // namespace kestrio
