#pragma once

#include "editor/views/TextPanel.h"

#include <QPointer>
#include <QQuickItem>

namespace kestrio {

/// The frames round the text that was read. Lies on the screenshot as it is shown, turned with it,
/// so that its own size is the screenshot's. Main thread.
class HighlightsItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(kestrio::TextPanel* panel READ panel WRITE setPanel NOTIFY panelChanged)
    /// The number of the block under the pointer; -1 beside all of them.
    Q_PROPERTY(int hovered READ hovered WRITE setHovered NOTIFY hoveredChanged)
    Q_PROPERTY(QColor color MEMBER color_ NOTIFY colorChanged)

  public:
    explicit HighlightsItem(QQuickItem* parent = nullptr);

    TextPanel* panel() const { return panel_; }
    void setPanel(TextPanel* panel);
    int hovered() const { return hovered_; }
    void setHovered(int index);

    /// The block at a point of the item; -1 beside all of them.
    Q_INVOKABLE int blockAt(const QPointF& place) const;
    /// Where a block is, in points of the item.
    Q_INVOKABLE QRectF blockRect(int index) const;

    Q_SIGNAL void panelChanged();
    Q_SIGNAL void hoveredChanged();
    Q_SIGNAL void colorChanged();

  protected:
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

  private:
    void placeFrame(QSGNode* frame, const QRectF& rect, bool isStrong) const;

    QPointer<TextPanel> panel_;
    int hovered_ = -1;
    QColor color_;
};

}  // namespace kestrio
