import Kestrio.Editor
import Kestrio.Ui

// A slider of one field of the style.
SliderRow {
    id: slider
    required property StyleNumber field
    from: field.least
    to: field.greatest
    usual: field.standard
    value: field.value
    onMoved: value => slider.field.value = value
    onSettled: slider.field.commit()
}
