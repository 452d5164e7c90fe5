#pragma once

#include "EditorDriver.h"

#include "core/UserDefaults.h"
#include "editor/document/DocumentDraft.h"
#include "editor/views/EditorWindow.h"
#include "library/export/FileNaming.h"
#include "platform/PlatformServices.h"

#include <QFile>
#include <QPainter>
#include <QQuickItem>
#include <QTemporaryDir>
#include <random>

namespace kestrio {

inline QImage drawnPicture() {
    QImage picture(3840, 2160, QImage::Format_RGB32);
    picture.fill(QColor(246, 247, 249));
    QPainter painter(&picture);
    for (int row = 0; row < 40; ++row) {
        for (int column = 0; column < 12; ++column) {
            const QRect cell(40 + column * 315, 40 + row * 53, 300, 44);
            painter.fillRect(cell, QColor::fromHsv((row * 31 + column * 47) % 360, 40, 250));
            painter.drawText(cell, Qt::AlignCenter, QStringLiteral("Cell %1").arg(row * column));
        }
    }
    return picture;
}

/// Every kind in turn, all over a canvas of 3840 x 2160 points.
inline std::vector<AnyAnnotation> mixedAnnotations(int count) {
    std::mt19937 random(7);
    const auto between = [&](double low, double high) {
        return std::uniform_real_distribution(low, high)(random);
    };
    std::vector<AnyAnnotation> annotations;
    for (int i = 0; i < count; ++i) {
        const QUuid id = QUuid::createUuid();
        const QPointF at(between(100, 3400), between(100, 1900));
        const QPointF to = at + QPointF(between(-400, 400), between(-250, 250));
        const QRectF box(at, QSizeF(between(150, 500), between(100, 300)));
        const CodableColor color{between(0, 1), between(0, 1), between(0, 1), 1};
        const double width = 4 + 4 * (i % 3);
        std::vector<QPointF> points{at};
        while (points.size() < 120)
            points.push_back(points.back() + QPointF(between(-8, 14), between(-12, 12)));
        const AnyAnnotation kinds[] = {
            ArrowAnnotation{id, at, to, {}, color, width},
            RectangleAnnotation{id, box, color, width, FillMode::stroke, 12, 0},
            CircleAnnotation{id, at, box.height() / 2, color, width, FillMode::both},
            TextAnnotation{id, box, QStringLiteral("A note of some words about this"), color, 40},
            NumberAnnotation{id, at, i, color, 64, 0},
            BrushAnnotation{id, points, color.withAlphaTimes(i % 2 ? 0.4 : 1), 2 * width,
                            i % 2 == 1},
            BlurAnnotation{id, box, 10, color, 0,
                           blurTypes[static_cast<std::size_t>(i) / 9 % 3].value, 0.5},
            EmojiAnnotation{id, at, QStringLiteral("🎯"), 120, color, 0, 15},
            MeasurementAnnotation{id, at, to, color, width},
        };
        annotations.push_back(kinds[i % std::size(kinds)]);
    }
    return annotations;
}

inline EditorServices services(const std::shared_ptr<UserDefaults>& defaults) {
    return makeEditorServices(makePlatformServices(), defaults);
}

/// One editor on the document and what a user does with it. Each step prints its figures.
class Session {
  public:
    explicit Session(bool isQuick) : steps_(isQuick ? 3 : 125) {}

    bool open(const Image& image) {
        const EditorServices all = services(defaults_);
        auto document = std::make_shared<EditorViewModel>(all);
        document->loadCapture({image, {}, {}});
        window_ = std::make_unique<EditorWindow>(std::move(document), all, QStringLiteral("bench"));
        window_->show();
        view_ = window_->window();
        application().watch(view_);
        view_->resize(1920, 1080);
        runEventsFor(50);
        canvas_ = view_->findChild<QQuickItem*>(QStringLiteral("canvas"));
        EditorController& controller = window_->controller();
        controller.editor().toggleAnnotationMode();
        controller.editor().annotationVM().setAnnotations(mixedAnnotations(100));
        controller.editor().synchroniseAnnotations();
        draft_ = std::make_unique<DocumentDraft>(controller.editor(), controller.name(),
                                                 std::make_shared<DraftService>());
        settle();
        return canvas_ != nullptr;
    }

    void dragMarks() {
        window_->controller().annotation()->setTool(QStringLiteral("select"));
        for (const TypeKey kind : {TypeKey::circle, TypeKey::text, TypeKey::brush, TypeKey::arrow,
                                   TypeKey::emoji, TypeKey::rectangle}) {
            dragMark(kind);
        }
        reportFrames("dragging a mark, p95");
        startLog();
        dragMark(TypeKey::blur);
        reportFrames("dragging a blur, p95");
    }

    void draw() {
        window_->controller().annotation()->setTool(QStringLiteral("brush"));
        const QPointF middle = canvas_->mapToScene(canvas_->boundingRect().center());
        const auto place = [&](double t) {
            return middle + QPointF(500 * std::sin(9 * t), 300 * std::sin(14 * t)) * t;
        };
        startLog();
        Pointer pointer(view_);
        pointer.press(middle);
        paced(steps_, [&](double t) { pointer.move(place(t)); });
        pointer.release(place(1));
        settle();
        reportFrames("drawing a stroke, p95");
        window_->controller().annotation()->setTool(QStringLiteral("select"));
    }

    void slide(const char* section, const QString& label, const char* what) {
        auto* panel = view_->findChild<QQuickItem*>(QStringLiteral("rightPanel"));
        EditorController& controller = window_->controller();
        const QString name = QString::fromLatin1(section);
        if (controller.openPanel() != name) controller.togglePanel(name);
        settle();
        QQuickItem* const slider = sliderNamed(panel, label);
        if (!slider) {
            std::printf("%s: there is no such slider\n", what);
            isComplete_ = false;
            return;
        }
        const QPointF left = slider->mapToScene({12, slider->height() / 2});
        const auto style = [&] {
            return std::pair(controller.editor().style(),
                             controller.editor().watermarkVM().settings());
        };
        const auto before = style();
        startLog();
        Pointer pointer(view_);
        pointer.press(left);
        paced(steps_, [&](double t) {
            pointer.move(left + QPointF((slider->width() - 24) * (0.5 - 0.5 * std::cos(6 * t)), 0));
        });
        pointer.release(left);
        application().log.isRecording = false;
        isComplete_ &= before != style();
        reportFrames(what);
        settle();
    }

    void zoom() {
        const QPointF middle = canvas_->mapToScene(canvas_->boundingRect().center());
        startLog();
        Pointer pointer(view_);
        paced(steps_, [&](double t) { pointer.zoom(middle, t < 0.5 ? 24 : -24); });
        runEventsFor(200);
        reportFrames("zooming, p95");
        settle();
    }

    /// The longest time for which a timer of 1 ms waits.
    void exportAs(const QString& format, const char* what) {
        if (!folder_.isValid()) return;
        EditorViewModel& editor = window_->controller().editor();
        const QString path = folder_.filePath(QStringLiteral("out.") + format);
        double last = milliseconds(CLOCK_MONOTONIC), longest = 0;
        const double start = last;
        QTimer beat;
        beat.setTimerType(Qt::PreciseTimer);
        QObject::connect(&beat, &QTimer::timeout, &beat, [&] {
            const double now = milliseconds(CLOCK_MONOTONIC);
            longest = std::max(longest, now - std::exchange(last, now));
        });
        beat.start(1);
        runUntilDone(editor.outputModel().exportImage(path, *formatNamed(format)));
        const double end = milliseconds(CLOCK_MONOTONIC);
        runEventsFor(50);
        beat.stop();
        report(what, longest, 30, "ms");
        std::printf("    %.0f ms for the whole export\n", end - start);
        isComplete_ &= QFile::exists(path);
    }

    bool isComplete() const { return isComplete_; }

  private:
    void settle() { runEventsFor(steps_ < 10 ? 100 : 700); }

    static void startLog() { application().log.start(); }

    QPointF toScene(const QPointF& imagePoint) const {
        const QRectF shown = canvas_->property("imageRect").toRectF();
        const QSizeF image = window_->controller().editor().screenshot().pointSize();
        return canvas_->mapToScene(shown.topLeft() + imagePoint * (shown.width() / image.width()));
    }

    /// A place that a press selects a record at, in points of the screenshot; nothing where others
    /// lie over it.
    std::optional<QPointF> gripOf(const AnyAnnotation& record) const {
        QPointF grip = record.bounds().center();
        if (const auto* stroke = record.as<BrushAnnotation>()) {
            grip = stroke->points[stroke->points.size() / 2];
        }
        if (record.as<RectangleAnnotation>()) grip = record.bounds().topLeft() + QPointF(60, 0);
        const auto hit = window_->controller().editor().annotationVM().annotationAt(grip);
        return hit && hit->id() == record.id() ? std::optional(grip) : std::nullopt;
    }

    void dragMark(TypeKey kind) {
        AnnotationViewModel& model = window_->controller().editor().annotationVM();
        std::optional<AnyAnnotation> record;
        QPointF from;
        for (const AnyAnnotation& each : model.annotations()) {
            const auto grip = each.typeKey() == kind ? gripOf(each) : std::nullopt;
            if (!grip) continue;
            record = each;
            from = toScene(*grip);
            break;
        }
        if (!record) {
            std::printf("nothing to drag (%s)\n", enumRow(kind).raw);
            isComplete_ = false;
            return;
        }
        const QPointF middle = canvas_->mapToScene(canvas_->boundingRect().center());
        const auto place = [&](double t) {
            return from + (middle - from) * t + QPointF(0, 60 * std::sin(12 * t));
        };
        Pointer pointer(view_);
        model.selectAnnotation(std::nullopt);
        if (!application().log.isRecording) startLog();
        pointer.press(from);
        paced(steps_, [&](double t) { pointer.move(place(t)); });
        pointer.release(place(1));
        runEventsFor(100);
        const AnyAnnotation* moved = model.annotation(record->id());
        const bool isMoved = moved && moved->bounds() != record->bounds();
        if (!isMoved) std::printf("nothing moved (%s)\n", enumRow(kind).raw);
        isComplete_ &= isMoved;
    }

    static QQuickItem* sliderNamed(QQuickItem* root, const QString& label) {
        if (root->property("label").toString() == label && root->isVisible()) {
            for (QQuickItem* child : root->childItems())
                if (child->property("visualPosition").isValid()) return child;
        }
        for (QQuickItem* child : root->childItems())
            if (QQuickItem* found = sliderNamed(child, label)) return found;
        return nullptr;
    }

    const int steps_;
    std::shared_ptr<UserDefaults> defaults_ = std::make_shared<MemoryUserDefaults>();
    QTemporaryDir folder_;
    std::unique_ptr<EditorWindow> window_;
    std::unique_ptr<DocumentDraft> draft_;
    QQuickWindow* view_ = nullptr;
    QQuickItem* canvas_ = nullptr;
    bool isComplete_ = true;
};

}  // namespace kestrio
