import Kestrio.Editor
import Kestrio.Ui

// A slider of one field of the style.
SliderRow {
    id: slider
    required property EditorController controller
    required property string field
    readonly property var range: controller.styleRange(field)
    from: range.least
    to: range.greatest
    usual: range.standard
    value: controller.style[field]
    onMoved: value => slider.controller.set(slider.field, value)
    onSettled: slider.controller.commit()
}
