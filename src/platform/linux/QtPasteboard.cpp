#include "platform/linux/QtPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace kestrio {

void QtPasteboard::clearContents() {
    QGuiApplication::clipboard()->clear();
}

bool QtPasteboard::writeImage(const QImage& image) {
    if (image.isNull()) return false;
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->setImage(image);
    return clipboard->ownsClipboard();
}

QImage QtPasteboard::readImage() const {
    return QGuiApplication::clipboard()->image();
}

}  // namespace kestrio
