#pragma once

#include "platform/Pasteboard.h"

namespace kestrio {

/// The clipboard through QClipboard.
class QtPasteboard : public Pasteboard {
  public:
    void clearContents() override;
    bool writeImage(const QImage& image, const QByteArray& png) override;
    QImage readImage() const override;
    QStringList readFiles() const override;
    bool writeFiles(const QStringList& paths) override;
    bool writeText(const QString& text) override;
    QString readText() const override;
    bool ownsContents() const override;
};

}  // namespace kestrio
