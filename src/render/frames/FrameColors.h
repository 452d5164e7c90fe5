#pragma once

#include <QColor>

// The desktop colours that frames are made of, in light appearance. A frame is part of a finished
// picture and does not follow the theme of the desktop that it was made on.
namespace kestrio::frameColors {

inline const QColor windowBackground(236, 236, 236);
inline const QColor controlBackground(246, 246, 247);
inline const QColor textBackground(255, 255, 255);
inline const QColor primaryText(0, 0, 0, 217);
inline const QColor secondaryText(0, 0, 0, 128);

inline QColor black(double opacity) {
    return QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity));
}
inline QColor white(double opacity) {
    return QColor::fromRgbF(1, 1, 1, static_cast<float>(opacity));
}

}  // namespace kestrio::frameColors
