// Any bytes either decode to a list of annotations or throw JsonError. What decodes is encoded and
// decoded to the same JSON again; whatever numbers it holds, it can be edited and drawn.

#include <cstddef>
#include <cstdint>

#include "annotation/editing/AnnotationViewModel.h"
#include "annotation/editing/HitTest.h"
#include "annotation/gestures/DragGesture.h"
#include "core/Json.h"
#include "imaging/ExportError.h"
#include "render/ImageComposer.h"

namespace {

using namespace kestrio;

using Annotations = std::vector<AnyAnnotation>;

// Editing compares each record with each other.
constexpr std::size_t mostRecords = 40;

void findAll(const AnnotationViewModel& model) {
    for (const AnyAnnotation& annotation : model.annotations()) {
        const QPointF point = annotation.bounds().center();
        const auto& list = model.annotations();
        const auto topmost = std::find_if(list.rbegin(), list.rend(),
                                          [&](const auto& each) { return isHit(each, point); });
        const auto found = model.annotationAt(point);
        const bool isRight =
            found ? topmost != list.rend() && found->id() == topmost->id() : topmost == list.rend();
        if (!isRight) __builtin_trap();
    }
}

void edit(const Annotations& annotations) {
    AnnotationViewModel model(annotations);
    findAll(model);
    model.selectInRect({0, 0, 30, 20});
    model.recomputeNextNumber();
    model.renumber(std::nullopt, 1);
    for (const AnyAnnotation& annotation : annotations) {
        model.selectAnnotation(annotation);
        model.begin(std::make_unique<DragGesture>(model, QPointF()));
        model.moveGesture({{3, -4}});
        model.finishGesture();
        AnyAnnotation stretched = annotation;
        stretched.setBounds({5, 5, 20, 10});
        model.updateAnnotation(stretched);
    }
    findAll(model);
    model.selectAll();
    for (const AlignmentType type : {AlignmentType::left, AlignmentType::centerV})
        model.align(type);
    model.distribute(DistributionAxis::horizontal);
    model.eraseAt({10, 10}, 6);
    for (int step = 0; step < 4; ++step)
        model.undo();
    model.redo();
}

ImageComposer& composer() {
    static ImageComposer instance(
        std::make_shared<WatermarkService>(std::make_shared<MemoryUserDefaults>()));
    return instance;
}

void draw(const Annotations& annotations) {
    static const QImage bitmap = [] {
        QImage picture(48, 32, QImage::Format_ARGB32_Premultiplied);
        picture.fill(qRgba(80, 40, 20, 128));
        return picture;
    }();
    CompositeRequest request;
    request.screenshot = Image(bitmap, 1);
    request.canvasState.canvasSize = {64, 48};
    request.annotations = annotations;
    if (composer().compose(request).isNull()) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    Annotations annotations;
    try {
        annotations = decodeJsonText<Annotations>(bytes);
    } catch (const JsonError& error) {
        if (error.errorDescription().isEmpty()) __builtin_trap();
        return 0;
    }
    const QByteArray text = encodeJsonText(annotations);
    if (encodeJsonText(decodeJsonText<Annotations>(text)) != text) __builtin_trap();
    if (annotations.size() > mostRecords) return 0;
    edit(annotations);
    draw(annotations);
    return 0;
}
