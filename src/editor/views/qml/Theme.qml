pragma Singleton
import QtQuick

// The one source of colours, spacing and sizes. The window sets what the desktop asks for.
QtObject {
    property bool isDark: false
    property bool isMotionReduced: false

    readonly property color ground: isDark ? "#1b1b1f" : "#e9eaee"
    readonly property color surface: isDark ? "#26262b" : "#fbfbfd"
    readonly property color raised: isDark ? "#323238" : "#ffffff"
    readonly property color well: isDark ? "#1f1f24" : "#eceef2"
    readonly property color hairline: isDark ? "#3a3a41" : "#dcdde3"
    readonly property color hover: isDark ? "#36363d" : "#eceef3"
    readonly property color pressed: isDark ? "#42424a" : "#dfe2ea"
    readonly property color text: isDark ? "#f2f2f5" : "#1d1d1f"
    readonly property color secondaryText: isDark ? "#a6a6b0" : "#62626b"
    readonly property color accent: "#0a7cff"
    readonly property color accentText: "#ffffff"
    readonly property color success: isDark ? "#32d74b" : "#1f9d3a"
    readonly property color danger: isDark ? "#ff6961" : "#d92d20"
    readonly property color dim: "#80000000"

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
        return "qrc:/qt/qml/Kestrio/Editor/qml/icons/" + name + ".svg"
    }
}
