import QtQuick
import QtQuick.Layouts
import QtQuick.Dialogs
import Kestrio.Editor

PanelSection {
    id: section
    required property EditorController controller
    readonly property var style: controller.style
    title: qsTr("Backdrop")

    Segments {
        Layout.fillWidth: true
        rows: section.controller.choices.backdropType
        current: section.style.backdropType
        onChosen: id => {
            if (id === "image" && section.style.backdropType !== "image")
                picker.open()
            else
                section.controller.choose("backdropType", id)
        }
    }
    ColorRow {
        Layout.fillWidth: true
        visible: section.style.backdropType === "solid"
        label: qsTr("Colour")
        color: section.style.solidColor
        onPicked: color => section.controller.choose("solidColor", color)
    }
    ThumbnailGrid {
        Layout.fillWidth: true
        visible: section.style.backdropType === "gradient"
        kind: "gradient"
        columns: 6
        tileHeight: 30
        rows: visible ? section.controller.choices.gradient : []
        current: section.style.gradient
        revision: 0
        onChosen: id => section.controller.choose("gradient", id)
    }
    IconButton {
        visible: section.style.backdropType === "image"
        symbol: "photo"
        text: qsTr("Choose picture…")
        onClicked: picker.open()
    }
    SliderRow {
        Layout.fillWidth: true
        label: qsTr("Padding")
        to: 100
        usual: 32
        unit: " pt"
        value: section.style.padding
        onMoved: value => section.controller.set("padding", value)
        onSettled: section.controller.commit()
    }
    SliderRow {
        Layout.fillWidth: true
        label: qsTr("Opacity")
        to: 1
        usual: 1
        factor: 100
        unit: " %"
        value: section.style.opacity
        onMoved: value => section.controller.set("opacity", value)
        onSettled: section.controller.commit()
    }
    Caption { text: qsTr("Pattern") }
    ThumbnailGrid {
        Layout.fillWidth: true
        kind: "pattern"
        tileHeight: 36
        rows: section.isOpen ? section.controller.choices.pattern : []
        current: section.style.pattern
        revision: section.controller.thumbnailRevision
        onChosen: id => section.controller.choose("pattern", id)
    }
    SliderRow {
        Layout.fillWidth: true
        visible: section.style.pattern !== "none"
        label: qsTr("Strength")
        to: 1
        usual: 0.5
        factor: 100
        unit: " %"
        value: section.style.patternIntensity
        onMoved: value => section.controller.set("patternIntensity", value)
        onSettled: section.controller.commit()
    }
    Caption { text: qsTr("Overlay") }
    ThumbnailGrid {
        Layout.fillWidth: true
        kind: "overlay"
        columns: 5
        tileHeight: 32
        rows: section.isOpen ? section.controller.choices.overlay : []
        current: section.style.overlay
        revision: section.controller.thumbnailRevision
        onChosen: id => section.controller.choose("overlay", id)
    }
    SliderRow {
        Layout.fillWidth: true
        visible: section.style.overlay !== "none"
        label: qsTr("Strength")
        to: 100
        usual: 10
        unit: " %"
        value: section.style.overlayOpacity
        onMoved: value => section.controller.set("overlayOpacity", value)
        onSettled: section.controller.commit()
    }
    Caption { text: qsTr("Effects") }
    ThumbnailGrid {
        Layout.fillWidth: true
        kind: "effect"
        tileHeight: 36
        rows: section.isOpen ? section.controller.choices.effect : []
        current: section.style.effect
        revision: section.controller.thumbnailRevision
        onChosen: id => section.controller.choose("effect", id)
    }
    SliderRow {
        Layout.fillWidth: true
        label: qsTr("Blur")
        to: 10
        decimals: 1
        value: section.style.blur
        onMoved: value => section.controller.set("blur", value)
        onSettled: section.controller.commit()
    }
    SliderRow {
        Layout.fillWidth: true
        label: qsTr("Noise")
        to: 100
        unit: " %"
        value: section.style.noise
        onMoved: value => section.controller.set("noise", value)
        onSettled: section.controller.commit()
    }
    SliderRow {
        Layout.fillWidth: true
        label: qsTr("Saturation")
        to: 200
        usual: 100
        unit: " %"
        value: section.style.saturation
        onMoved: value => section.controller.set("saturation", value)
        onSettled: section.controller.commit()
    }
    Caption { text: qsTr("Canvas shape") }
    Flow {
        Layout.fillWidth: true
        spacing: 6
        Repeater {
            model: section.isOpen ? section.controller.choices.aspect : []
            Chip {
                required property var modelData
                text: modelData.name
                isCurrent: section.controller.aspectName === modelData.id
                onClicked: section.controller.setAspect(modelData.id, modelData.ratio)
            }
        }
    }

    FileDialog {
        id: picker
        title: qsTr("Choose a picture for the backdrop")
        nameFilters: [qsTr("Pictures (*.png *.jpg *.jpeg *.webp *.tiff *.bmp *.gif)")]
        onAccepted: section.controller.setBackdropImage(selectedFile)
    }
}
