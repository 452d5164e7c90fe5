#include "ui/Palette.h"

namespace kestrio {

namespace {

QColor grey(int value, int alpha = 255) {
    return {value, value, value, alpha};
}

// What light and dark windows share.
Palette shared() {
    Palette palette;
    palette.accent = {0x0a, 0x7c, 0xff};
    palette.accentText = grey(0xff);
    palette.dim = grey(0, 0x80);
    palette.knob = grey(0xff);
    palette.knobEdge = {0x8e, 0x8e, 0x93};
    palette.noteText = grey(0xff);
    palette.cropShade = grey(0, 0x99);
    palette.overlayLine = grey(0xff);
    palette.overlayThirds = grey(0xff, 0xaa);
    palette.overlayShadow = grey(0, 0x30);
    palette.overlayLabel = {0x1d, 0x1d, 0x1f, 0xcc};
    palette.overlayGround = {0x1d, 0x1d, 0x1f};
    palette.overlayText = grey(0xff);
    palette.guide = {0xff, 0x2d, 0x92};
    return palette;
}

Palette makeLight() {
    Palette palette = shared();
    palette.ground = {0xe9, 0xea, 0xee};
    palette.surface = {0xfb, 0xfb, 0xfd};
    palette.raised = grey(0xff);
    palette.well = {0xec, 0xee, 0xf2};
    palette.hairline = {0xdc, 0xdd, 0xe3};
    palette.edge = grey(0, 50);
    palette.hover = {0xec, 0xee, 0xf3};
    palette.pressed = {0xdf, 0xe2, 0xea};
    palette.text = {0x1d, 0x1d, 0x1f};
    palette.secondaryText = {0x62, 0x62, 0x6b};
    palette.success = {0x1f, 0x9d, 0x3a};
    palette.danger = {0xd9, 0x2d, 0x20};
    palette.note = {0x1d, 0x1d, 0x1f, 0xe6};
    return palette;
}

Palette makeDark() {
    Palette palette = shared();
    palette.ground = {0x1b, 0x1b, 0x1f};
    palette.surface = {0x26, 0x26, 0x2b};
    palette.raised = {0x32, 0x32, 0x38};
    palette.well = {0x1f, 0x1f, 0x24};
    palette.hairline = {0x3a, 0x3a, 0x41};
    palette.edge = grey(0xff, 70);
    palette.hover = {0x36, 0x36, 0x3d};
    palette.pressed = {0x42, 0x42, 0x4a};
    palette.text = {0xf2, 0xf2, 0xf5};
    palette.secondaryText = {0xa6, 0xa6, 0xb0};
    palette.success = {0x32, 0xd7, 0x4b};
    palette.danger = {0xff, 0x69, 0x61};
    palette.note = {0x4a, 0x4a, 0x52};
    return palette;
}

}  // namespace

const Palette& Palette::light() {
    static const Palette palette = makeLight();
    return palette;
}

const Palette& Palette::dark() {
    static const Palette palette = makeDark();
    return palette;
}

}  // namespace kestrio
