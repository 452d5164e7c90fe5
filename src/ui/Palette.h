#pragma once

#include <QColor>

namespace kestrio {

/// The colours of the program's own windows, once for light and once for dark ones. Raster painters
/// read it here, QML through Theme. What is drawn over pictures and over the screen is the same in
/// both.
struct Palette {
    QColor ground;    ///< behind a document
    QColor surface;   ///< of windows and panels
    QColor raised;    ///< of fields and buttons on a surface
    QColor well;      ///< sunk into a surface
    QColor hairline;  ///< between parts of a surface
    QColor edge;      ///< around colours that may be the surface's own
    QColor hover, pressed;
    QColor text, secondaryText;
    QColor accent, accentText;
    QColor success, danger;
    QColor dim;             ///< over what a sheet covers
    QColor knob, knobEdge;  ///< of sliders and switches
    QColor note, noteText;  ///< tooltips and toasts
    QColor cropShade;       ///< over what a crop takes away
    QColor overlayLine, overlayThirds, overlayShadow;
    QColor guide;          ///< lines that show what a mark snaps to
    QColor overlayLabel;   ///< behind a text over a picture
    QColor overlayGround;  ///< of windows that float over the screen
    QColor overlayText;    ///< on both

    static const Palette& light();
    static const Palette& dark();
    static const Palette& of(bool isDark) { return isDark ? dark() : light(); }
};

}  // namespace kestrio
