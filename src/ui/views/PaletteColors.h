#pragma once

#include "core/Published.h"
#include "ui/Palette.h"

#include <QQmlEngine>

// A colour of the palette as a property of the same name.
#define KESTRIO_PALETTE_COLOR(name)                        \
    Q_PROPERTY(QColor name READ name NOTIFY isDarkChanged) \
  public:                                                  \
    QColor name() const {                                  \
        return Palette::of(isDark()).name;                 \
    }

namespace kestrio {

/// The palette for QML, where Theme passes it on.
class PaletteColors : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    PUBLISHED_WRITABLE(bool, isDark, false)
    KESTRIO_PALETTE_COLOR(ground)
    KESTRIO_PALETTE_COLOR(surface)
    KESTRIO_PALETTE_COLOR(raised)
    KESTRIO_PALETTE_COLOR(well)
    KESTRIO_PALETTE_COLOR(hairline)
    KESTRIO_PALETTE_COLOR(edge)
    KESTRIO_PALETTE_COLOR(hover)
    KESTRIO_PALETTE_COLOR(pressed)
    KESTRIO_PALETTE_COLOR(text)
    KESTRIO_PALETTE_COLOR(secondaryText)
    KESTRIO_PALETTE_COLOR(accent)
    KESTRIO_PALETTE_COLOR(accentText)
    KESTRIO_PALETTE_COLOR(success)
    KESTRIO_PALETTE_COLOR(danger)
    KESTRIO_PALETTE_COLOR(dim)
    KESTRIO_PALETTE_COLOR(knob)
    KESTRIO_PALETTE_COLOR(knobEdge)
    KESTRIO_PALETTE_COLOR(note)
    KESTRIO_PALETTE_COLOR(noteText)
    KESTRIO_PALETTE_COLOR(cropShade)
    KESTRIO_PALETTE_COLOR(overlayLine)
    KESTRIO_PALETTE_COLOR(overlayThirds)
    KESTRIO_PALETTE_COLOR(overlayShadow)
    KESTRIO_PALETTE_COLOR(overlayLabel)
    KESTRIO_PALETTE_COLOR(overlayGround)
    KESTRIO_PALETTE_COLOR(overlayText)
    KESTRIO_PALETTE_COLOR(guide)
};

}  // namespace kestrio

#undef KESTRIO_PALETTE_COLOR
