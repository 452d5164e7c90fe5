#pragma once

#include <QColor>
#include <QPainter>
#include <QTextLayout>
#include <deque>

namespace kestrio {

/// How a text is set. A text wraps at the same words whatever size it is painted at.
struct TextSetting {
    QString family = {};  ///< empty for the system font
    QFont::Weight weight = QFont::Normal;
    Qt::Alignment alignment =
        Qt::AlignLeft;  ///< mirrored for paragraphs written from right to left
    double width =
        0;  ///< of the column in sizes of the font, above 0; words wider than it are broken
};

/// A text laid out in a column; paragraphs end at line feeds and say their own direction.
class TextColumn {
  public:
    TextColumn(const QString& text, const TextSetting& setting);

    /// Of all lines, in sizes of the font.
    double height() const;
    /// Of the longest line, in sizes of the font.
    double naturalWidth() const;

    /// Paints the column with its top left corner at `place`; `fontSize` in units of the painter.
    void paint(QPainter& painter, const QPointF& place, double fontSize, const QColor& color) const;

  private:
    std::deque<QTextLayout> paragraphs_;
    double height_ = 0;  ///< laid out pixels
};

}  // namespace kestrio
