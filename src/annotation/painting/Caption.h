#pragma once

#include "core/CodableColor.h"

#include <QPainter>

namespace kestrio {

/// White or near black, whichever reads better on the colour.
QColor captionColorOn(const CodableColor& color);

/// How far a caption reaches, in units of the painter, of a font of `fontSize` of them.
QSizeF captionSize(const QString& text, double fontSize);

/// Draws a short line with the middle of its ink at `center`: set as outlines, so that it stands
/// there to the fraction of a pixel.
void paintCaption(QPainter& painter, const QString& text, const QPointF& center, double fontSize,
                  const QColor& color);

}  // namespace kestrio
