pragma Singleton
import QtQuick
import Kestrio.Ui

// The one source of colours, spacing and sizes. The window sets what the desktop asks for.
QtObject {
    property bool isDark: false
    property bool isMotionReduced: false
    onIsDarkChanged: PaletteColors.isDark = isDark

    readonly property color ground: PaletteColors.ground
    readonly property color surface: PaletteColors.surface
    readonly property color raised: PaletteColors.raised
    readonly property color well: PaletteColors.well
    readonly property color hairline: PaletteColors.hairline
    readonly property color hover: PaletteColors.hover
    readonly property color pressed: PaletteColors.pressed
    readonly property color text: PaletteColors.text
    readonly property color secondaryText: PaletteColors.secondaryText
    readonly property color accent: PaletteColors.accent
    readonly property color accentText: PaletteColors.accentText
    readonly property color success: PaletteColors.success
    readonly property color danger: PaletteColors.danger
    readonly property color dim: PaletteColors.dim
    readonly property color knob: PaletteColors.knob
    readonly property color knobEdge: PaletteColors.knobEdge
    readonly property color note: PaletteColors.note
    readonly property color noteText: PaletteColors.noteText
    readonly property color cropShade: PaletteColors.cropShade
    readonly property color overlayLine: PaletteColors.overlayLine
    readonly property color overlayThirds: PaletteColors.overlayThirds
    readonly property color overlayShadow: PaletteColors.overlayShadow
    readonly property color overlayLabel: PaletteColors.overlayLabel
    readonly property color overlayText: PaletteColors.overlayText

    // To choose with one click: for surfaces, and for lines and dots on them.
    readonly property var quickColors: ["#FF3B30", "#FF9500", "#FFCC00", "#28CD41", "#007AFF", "#AF52DE",
        "#FFFFFF", "#1D1D1F"]
    readonly property var inkColors: ["#FFFFFF", "#1D1D1F", "#8E8E93", "#007AFF", "#FF3B30", "#FF9500",
        "#28CD41", "#AF52DE"]

    readonly property int tiny: 4
    readonly property int small: 8
    readonly property int medium: 12
    readonly property int large: 16
    readonly property int huge: 24
    readonly property int radius: 6
    readonly property int largeRadius: 10
    readonly property int captionSize: 11
    readonly property int bodySize: 13
    readonly property int titleSize: 15
    readonly property int motion: isMotionReduced ? 0 : 140

    function icon(name) {
        return "qrc:/kestrio/icons/" + name + ".svg"
    }
}
