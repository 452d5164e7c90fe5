import QtQuick
import QtQuick.Layouts
import Kestrio.Editor
import Kestrio.Ui

Window {
    id: window
    required property EditorController controller
    property real panelWidth: 288

    width: 1200
    height: 800
    minimumWidth: 900
    minimumHeight: 600
    title: qsTranslate("Kestrio", "Kestrio Editor – %1").arg(controller.name)
    color: Theme.ground
    visible: true
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    Binding { target: Theme; property: "isDark"; value: window.controller.isDark }
    Binding { target: Theme; property: "isMotionReduced"; value: window.controller.isMotionReduced }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0
        // What no field or button with the focus has taken. Escape leaves a field.
        Keys.onPressed: event => {
            if (window.isTyping && event.key === Qt.Key_Escape) {
                stage.focusCanvas()
                event.accepted = true
                return
            }
            event.accepted = window.controller.isProcessing || window.controller.handleKey(event.key, event.modifiers, event.text,
                                                         window.isTyping)
        }

        TopBar {
            id: bar
            Layout.fillWidth: true
            controller: window.controller
            onEnhanceRequested: enhancement.open()
            onResetRequested: resetting.open()
        }
        RowLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            spacing: 0
            Stage {
                id: stage
                Layout.fillWidth: true
                Layout.fillHeight: true
                controller: window.controller
            }
            // In the place of the style's panel, so that the picture keeps its room.
            Loader {
                Layout.fillHeight: true
                Layout.preferredWidth: window.panelWidth
                active: window.controller.text.isShown
                visible: active
                sourceComponent: TextResults {
                    panel: window.controller.text
                    commands: window.controller.commands
                    onWidened: by => window.widenPanel(by)
                }
            }
            RightPanel {
                Layout.fillHeight: true
                Layout.preferredWidth: window.controller.isPanelShown && !window.controller.text.isShown ? window.panelWidth : 0
                visible: Layout.preferredWidth > 0
                controller: window.controller
                onWidened: by => window.widenPanel(by)
            }
        }
        ThemeStrip {
            Layout.fillWidth: true
            controller: window.controller
            onSaveRequested: window.nameTheme("", "")
            onRenameRequested: (id, name) => window.nameTheme(id, name)
        }
    }
    Lazy {
        id: enhancement
        objectName: "enhancement"
        sourceComponent: EnhancementSheet { controller: window.controller }
    }
    Lazy {
        id: exporting
        objectName: "exporting"
        sourceComponent: ExportSheet { controller: window.controller }
    }
    Lazy {
        id: resetting
        objectName: "resetting"
        sourceComponent: ResetSheet { controller: window.controller }
    }
    Lazy {
        id: naming
        objectName: "naming"
        sourceComponent: ThemeNaming { controller: window.controller }
    }
    Lazy {
        id: redaction
        objectName: "redaction"
        sourceComponent: HiddenRedactionSheet { output: window.controller.output }
    }
    Lazy {
        id: closing
        objectName: "closing"
        sourceComponent: ClosingSheet { controller: window.controller }
    }
    ShortcutOverlay { controller: window.controller }
    Loader {
        objectName: "processing"
        anchors.fill: parent
        active: window.controller.isProcessing
        sourceComponent: ProcessingOverlay {}
    }
    Toast { id: toast }

    function widenPanel(by) {
        panelWidth = Math.max(190, Math.min(420, panelWidth + by))
    }
    function nameTheme(id, name) {
        naming.active = true
        naming.item.themeId = id
        naming.item.oldName = name
        naming.open()
    }

    // Where a field gives its focus up, keys are the canvas' again.
    // Later, since focus that moves on passes through the window too.
    function keepFocus() {
        if (!isSheetShown && (activeFocusItem === null || activeFocusItem === contentItem)) stage.focusCanvas()
    }
    onActiveFocusItemChanged: Qt.callLater(keepFocus)
    // Text fields and nothing else have a cursor.
    readonly property bool isTyping: activeFocusItem !== null && activeFocusItem.cursorRectangle !== undefined
    readonly property bool isSheetShown: redaction.isShown || enhancement.isShown || exporting.isShown || resetting.isShown
        || naming.isShown || closing.isShown || controller.isShortcutOverlayVisible || controller.isProcessing
    onIsSheetShownChanged: if (!isSheetShown) stage.focusCanvas()

    Connections {
        target: window.controller
        function onToast(text) { toast.show(text, false) }
        function onFailed(text) { toast.show(text, true) }
        function onModeChanged() { stage.focusCanvas() }
    }
    Connections {
        target: window.controller.output
        function onRedactionsHidden() { redaction.open() }
    }
    Component.onCompleted: controller.reportLoadProblems()
    EditorShortcuts {
        commands: window.controller.commands
        enabled: !window.isSheetShown
    }
    Connections {
        target: window.controller.commands
        function onSaveRequested() { exporting.open() }
        function onShareRequested() { bar.openShareMenu() }
        function onCloseRequested() { window.close() }
    }
    onClosing: close => {
        // What is being typed belongs to the document.
        stage.focusCanvas()
        close.accepted = window.controller.closing.requestClose()
    }
    function askBeforeClosing() {
        for (const sheet of [redaction, enhancement, exporting, resetting, naming])
            if (sheet.isShown) sheet.item.close()
        closing.open()
        if (visibility === Window.Minimized) showNormal()
        raise()
        requestActivate()
    }
    Connections {
        target: window.controller.closing
        function onMayCloseNow() { window.close() }
        function onStateChanged() {
            const state = window.controller.closing.state
            if (state === "asking") window.askBeforeClosing()
            if (state === "waiting") toast.show(qsTranslate("Kestrio", "The window closes as soon as the picture is written"), false)
        }
    }
}
