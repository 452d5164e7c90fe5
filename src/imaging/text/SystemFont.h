#pragma once

#include <QFont>

namespace kestrio {

/// The font of the program's own drawings, unhinted: Inter where it is installed, else the
/// desktop's sans serif. `size` in pixels, above 0; sizes are rounded to whole pixels.
QFont systemFont(double size, QFont::Weight weight);

/// The named family where it is installed, else the system font of medium weight. Needs a GUI
/// application, as all fonts do.
QFont fontOrSystemFont(const QString& family, double size);

/// What people type: the named family where it is installed, else the system font, of this weight,
/// with pictograms in colour where a font has them.
QFont writingFont(const QString& family, double size, QFont::Weight weight);

/// Pictograms before everything else.
QFont emojiFont(double size);

}  // namespace kestrio
