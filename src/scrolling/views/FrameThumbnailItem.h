#pragma once

#include <QImage>
#include <QQuickPaintedItem>

namespace kestrio {

/// A picture, whole and in the middle of the item, never larger than it is.
class FrameThumbnailItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QImage picture READ picture WRITE setPicture NOTIFY pictureChanged)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY pictureChanged)

  public:
    explicit FrameThumbnailItem(QQuickItem* parent = nullptr) : QQuickPaintedItem(parent) {}

    const QImage& picture() const { return picture_; }
    void setPicture(const QImage& picture);
    bool isEmpty() const { return picture_.isNull(); }
    void paint(QPainter* painter) override;

    Q_SIGNAL void pictureChanged();

  private:
    QImage picture_;
};

}  // namespace kestrio
