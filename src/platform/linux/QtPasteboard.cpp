#include "platform/linux/QtPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

namespace kestrio {

void QtPasteboard::clearContents() {
    QGuiApplication::clipboard()->clear();
}

bool QtPasteboard::writeImage(const QImage& image, const QByteArray& png) {
    if (image.isNull()) return false;
    auto* content = new QMimeData;
    content->setImageData(image);
    if (!png.isEmpty()) content->setData(QStringLiteral("image/png"), png);
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->setMimeData(content);
    // Asked again: another program may have taken the selection in the meantime.
    const QMimeData* present = clipboard->mimeData();
    return clipboard->ownsClipboard() && present && present->hasImage();
}

QImage QtPasteboard::readImage() const {
    return QGuiApplication::clipboard()->image();
}

QStringList QtPasteboard::readFiles() const {
    QStringList paths;
    const QMimeData* content = QGuiApplication::clipboard()->mimeData();
    if (!content) return paths;
    for (const QUrl& url : content->urls())
        if (url.isLocalFile()) paths << url.toLocalFile();
    return paths;
}

bool QtPasteboard::writeFiles(const QStringList& paths) {
    QList<QUrl> urls;
    // As file managers have it beside the list of addresses that Qt writes.
    QByteArray copied = "copy";
    for (const QString& path : paths) {
        urls << QUrl::fromLocalFile(path);
        copied += '\n' + urls.back().toEncoded();
    }
    auto* content = new QMimeData;
    content->setUrls(urls);
    content->setData(QStringLiteral("x-special/gnome-copied-files"), copied);
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->setMimeData(content);
    return clipboard->ownsClipboard();
}

bool QtPasteboard::writeText(const QString& text) {
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->setText(text);
    return clipboard->ownsClipboard();
}

QString QtPasteboard::readText() const {
    return QGuiApplication::clipboard()->text();
}

bool QtPasteboard::ownsContents() const {
    return QGuiApplication::clipboard()->ownsClipboard();
}

}  // namespace kestrio
