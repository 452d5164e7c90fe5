#pragma once

#include "scrolling/overlays/ScrollPositionIndicator.h"

#include <QColor>
#include <QQuickPaintedItem>

namespace kestrio {

/// A scroll position as a narrow track with a thumb.
class ScrollIndicatorItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(kestrio::ScrollPositionIndicator position MEMBER position_ NOTIFY changed)
    Q_PROPERTY(QColor trackColor MEMBER trackColor_ NOTIFY changed)
    Q_PROPERTY(QColor thumbColor MEMBER thumbColor_ NOTIFY changed)

  public:
    explicit ScrollIndicatorItem(QQuickItem* parent = nullptr);

    void paint(QPainter* painter) override;

    Q_SIGNAL void changed();

  private:
    ScrollPositionIndicator position_;
    QColor trackColor_, thumbColor_;
};

}  // namespace kestrio
