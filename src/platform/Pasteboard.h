#pragma once

#include <QImage>

namespace kestrio {

/// The desktop's clipboard. Main thread only.
class Pasteboard {
  public:
    virtual ~Pasteboard() = default;

    /// Empties the clipboard.
    virtual void clearContents() = 0;
    /// Puts a picture on it as the only content; false where the desktop refuses.
    virtual bool writeImage(const QImage& image) = 0;
    /// The picture on it; null where there is none.
    virtual QImage readImage() const = 0;
};

}  // namespace kestrio
