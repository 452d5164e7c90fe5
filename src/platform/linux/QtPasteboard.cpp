#include "platform/linux/QtPasteboard.h"

#include "imaging/codecs/ImageDecoder.h"
#include "platform/linux/x11/SelectionContents.h"
#include "platform/linux/x11/SelectionOwner.h"

#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

namespace kestrio {

namespace {

constexpr auto pngType = "image/png";

constexpr auto imageType = "application/x-qt-image";

/// A picture; where only its file was given, it is decoded for each program that needs that.
class Picture : public QMimeData {
  public:
    QStringList formats() const override {
        QStringList all = QMimeData::formats();
        if (!all.contains(QLatin1String(imageType))) all.prepend(QLatin1String(imageType));
        return all;
    }

  protected:
    QVariant retrieveData(const QString& format, QMetaType type) const override {
        const QVariant present = QMimeData::retrieveData(format, type);
        if (present.isValid() || format != QLatin1String(imageType)) return present;
        return decodeImageOrNull(data(QLatin1String(pngType)));
    }
};

const char* nameOf(QClipboard::Mode mode) {
    return mode == QClipboard::Selection ? "PRIMARY" : "CLIPBOARD";
}

bool isOwn(QClipboard::Mode mode) {
    return isOfThisProgram(ownerOfSelection(nameOf(mode)));
}

// What Qt itself has: this program's contents, or those of a desktop that hands them on by itself.
PasteboardContents contentsFromQt(QClipboard::Mode mode, PasteboardKinds wanted) {
    PasteboardContents contents;
    const QMimeData* present = QGuiApplication::clipboard()->mimeData(mode);
    if (!present) return contents;
    if (wanted.testFlag(PasteboardKind::picture) && present->hasImage()) {
        contents.image = qvariant_cast<QImage>(present->imageData());
        contents.png = present->data(QLatin1String(pngType));
        if (!contents.isEmpty()) return contents;
    }
    if (wanted.testFlag(PasteboardKind::files)) {
        for (const QUrl& url : present->urls())
            if (url.isLocalFile()) contents.files << url.toLocalFile();
        if (!contents.isEmpty()) return contents;
    }
    if (wanted.testFlag(PasteboardKind::text)) contents.text = present->text();
    return contents;
}

}  // namespace

QtPasteboard::~QtPasteboard() {
    stop_.request_stop();
}

bool QtPasteboard::write(std::unique_ptr<QMimeData> content) {
    QClipboard* clipboard = QGuiApplication::clipboard();
    const quint32 before = owner();
    clipboard->setMimeData(content.release());
    if (!hasSelections()) return clipboard->ownsClipboard();
    // Qt believes that it has it once it has asked for it. Where a third program has it now, that
    // one has copied after this one, at the same moment.
    const quint32 after = owner();
    if (isOfThisProgram(after) || (after != before && after != 0)) return true;
    // For the next attempt: Qt may not have heard of what was copied last.
    bringServerTime();
    return false;
}

bool QtPasteboard::writeImage(const QImage& image, const QByteArray& png) {
    if (image.isNull() && png.isEmpty()) return false;
    auto content = std::make_unique<Picture>();
    if (!image.isNull()) content->setImageData(image);
    if (!png.isEmpty()) content->setData(QLatin1String(pngType), png);
    return write(std::move(content));
}

bool QtPasteboard::writeFiles(const QStringList& paths) {
    QList<QUrl> urls;
    // As file managers have it beside the list of addresses that Qt writes.
    QByteArray copied = "copy";
    for (const QString& path : paths) {
        urls << QUrl::fromLocalFile(path);
        copied += '\n' + urls.back().toEncoded();
    }
    auto content = std::make_unique<QMimeData>();
    content->setUrls(urls);
    content->setData(QStringLiteral("x-special/gnome-copied-files"), copied);
    return write(std::move(content));
}

bool QtPasteboard::writeText(const QString& text) {
    auto content = std::make_unique<QMimeData>();
    content->setText(text);
    return write(std::move(content));
}

Task<PasteboardContents> QtPasteboard::read(PasteboardKinds wanted, std::stop_token stop) {
    return readFrom(QClipboard::Clipboard, wanted, std::move(stop));
}

Task<PasteboardContents> QtPasteboard::readFrom(QClipboard::Mode mode, PasteboardKinds wanted,
                                                std::stop_token stop) {
    if (!hasSelections() || isOwn(mode)) co_return contentsFromQt(mode, wanted);
    const Completion<PasteboardContents> done(stop);
    queue_.async([done, mode, wanted, stop, end = stop_.get_token()] {
        auto work = [&] {
            return readSelection(nameOf(mode), wanted,
                                 [&] { return stop.stop_requested() || end.stop_requested(); });
        };
        done.run(work);
    });
    co_return co_await done;
}

quint32 QtPasteboard::owner() const {
    return ownerOfSelection(nameOf(QClipboard::Clipboard));
}

bool QtPasteboard::ownsContents() const {
    return isOwn(QClipboard::Clipboard);
}

}  // namespace kestrio
