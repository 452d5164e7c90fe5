#include "annotation/painting/TextColumn.h"

#include "imaging/text/SystemFont.h"

#include <QStringList>

namespace kestrio {

namespace {

// Lines are laid out for this size of type in pixels and scaled when they are painted.
constexpr double layoutSize = 64;

// Qt counts widths in 26.6 bits.
constexpr double widestColumn = 1e6;

// Qt leaves alignments of text layouts as they are.
Qt::Alignment mirrored(Qt::Alignment alignment) {
    if (alignment == Qt::AlignLeft) return Qt::AlignRight;
    if (alignment == Qt::AlignRight) return Qt::AlignLeft;
    return alignment;
}

QTextOption optionOf(const QString& paragraph, const TextSetting& setting) {
    QTextOption option(paragraph.isRightToLeft() ? mirrored(setting.alignment) : setting.alignment);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(Qt::LayoutDirectionAuto);
    option.setUseDesignMetrics(true);
    return option;
}

/// Returns where the next paragraph begins.
double layOut(QTextLayout& paragraph, double width, double top) {
    paragraph.beginLayout();
    for (QTextLine line = paragraph.createLine(); line.isValid(); line = paragraph.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, top});
        top += line.height();
    }
    paragraph.endLayout();
    return top;
}

}  // namespace

TextColumn::TextColumn(const QString& text, const TextSetting& setting) {
    const QFont font = writingFont(setting.family, layoutSize, setting.weight);
    const double width = std::min(setting.width * layoutSize, widestColumn);
    for (const QString& paragraph : text.split(u'\n')) {
        QTextLayout& layout = paragraphs_.emplace_back(paragraph, font);
        layout.setTextOption(optionOf(paragraph, setting));
        height_ = layOut(layout, width, height_);
    }
}

double TextColumn::height() const {
    return height_ / layoutSize;
}

double TextColumn::naturalWidth() const {
    double widest = 0;
    for (const QTextLayout& paragraph : paragraphs_)
        for (int i = 0; i < paragraph.lineCount(); ++i)
            widest = std::max(widest, paragraph.lineAt(i).naturalTextWidth());
    return widest / layoutSize;
}

void TextColumn::paint(QPainter& painter, const QPointF& place, double fontSize,
                       const QColor& color) const {
    painter.save();
    painter.translate(place);
    painter.scale(fontSize / layoutSize, fontSize / layoutSize);
    painter.setPen(color);
    for (const QTextLayout& paragraph : paragraphs_)
        paragraph.draw(&painter, {});
    painter.restore();
}

}  // namespace kestrio
