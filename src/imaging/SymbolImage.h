#pragma once

#include <QColor>
#include <QImage>
#include <QString>

namespace kestrio {

/// An icon of assets/icons in one colour, as wide and high as `pixels`; null for an
/// unknown name.
QImage symbolImage(const QString& name, const QColor& color, int pixels);

}  // namespace kestrio
