#pragma once

#include "platform/Pasteboard.h"

namespace kestrio {

/// The clipboard through QClipboard.
class QtPasteboard : public Pasteboard {
  public:
    void clearContents() override;
    bool writeImage(const QImage& image) override;
    QImage readImage() const override;
};

}  // namespace kestrio
