#pragma once

#include "core/SerialQueue.h"
#include "platform/Pasteboard.h"

#include <QClipboard>
#include <memory>

namespace kestrio {

/// The clipboard: written through QClipboard; read, under X11, from its owner without QClipboard,
/// which would wait for that on the main thread.
class QtPasteboard : public Pasteboard {
  public:
    QtPasteboard() = default;
    ~QtPasteboard() override;

    bool writeImage(const QImage& image, const QByteArray& png) override;
    bool writeFiles(const QStringList& paths) override;
    bool writeText(const QString& text) override;
    Task<PasteboardContents> read(PasteboardKinds wanted, std::stop_token stop = {}) override;
    quint32 owner() const override;
    bool ownsContents() const override;

    /// As read(), also of what is selected with the mouse (QClipboard::Selection).
    Task<PasteboardContents> readFrom(QClipboard::Mode mode, PasteboardKinds wanted,
                                      std::stop_token stop = {});

  private:
    bool write(std::unique_ptr<QMimeData> content);

    std::stop_source stop_;
    SerialQueue queue_{QStringLiteral("com.kestrio.clipboard")};
};

}  // namespace kestrio
