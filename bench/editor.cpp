// The editor's window on a 4K picture with a hundred annotations, driven by a pointer at 125 events
// a second. Bounds: 95 of 100 frames in 16 ms, no stall of the main loop above 30 ms during an
// export, the first frame of a process after 400 ms and of a second editor after 150, resident
// memory of six bitmaps and 120 MB.
//
// A frame is all work of the main thread, which renders too, from the end of the frame before to
// its own presentation, while the pointer moves: delivery of events, bindings, what arrives from
// the background, synchronising, painting and handing over to the window system. Waiting is not
// counted; "shown after" is the time from an input event to the frame that shows it.
//
// usage: bench_editor [--quick] [--only drag|draw|padding|corner|zoom|export] [PICTURE]
// (on an X server: QT_QPA_PLATFORM=xcb)

#include "EditorDriver.h"

#include "app/cli/CommandLine.h"
#include "core/UserDefaults.h"
#include "editor/views/EditorWindow.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/PngEncoder.h"
#include "library/FileNaming.h"
#include "platform/PlatformServices.h"

#include <QFile>
#include <QPainter>
#include <QProcess>
#include <QQuickItem>
#include <QTemporaryDir>
#include <random>

namespace kestrio {
namespace {

// The document.

QImage drawnPicture() {
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
std::vector<AnyAnnotation> mixedAnnotations(int count) {
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
            BrushAnnotation{id, points, color.withAlphaTimes(i % 2 ? 0.4 : 1), 2 * width, i % 2 == 1},
            BlurAnnotation{id, box, 10, color, 0, blurTypes[static_cast<std::size_t>(i) / 9 % 3].value, 0.5},
            EmojiAnnotation{id, at, QStringLiteral("🎯"), 120, color, 0, 15},
            MeasurementAnnotation{id, at, to, color, width},
        };
        annotations.push_back(kinds[i % std::size(kinds)]);
    }
    return annotations;
}

EditorServices services(const std::shared_ptr<UserDefaults>& defaults) {
    const PlatformServices platform = makePlatformServices();
    const auto mark = std::make_shared<WatermarkService>(defaults);
    EditorServices all;
    all.imageRenderer = std::make_shared<ImageRendererService>(mark, platform.pasteboard);
    all.stylePersistence = std::make_shared<EditorStylePersistenceService>(defaults);
    all.watermark = mark;
    all.enhancement = std::make_shared<AIEnhancementService>();
    all.userDefaults = defaults;
    all.pasteboard = platform.pasteboard;
    all.memoryPressure = platform.memoryPressure;
    all.settings = std::make_shared<AppSettingsService>(defaults);
    all.fileDialogs = platform.fileDialogs;
    all.fileReveal = platform.fileReveal;
    all.appearance = platform.appearance;
    return all;
}

class Session {
  public:
    explicit Session(bool isQuick) : steps_(isQuick ? 3 : 125) {}

    bool open(const Image& image) {
        window_ = std::make_unique<EditorWindow>(services(defaults_), QStringLiteral("bench"));
        window_->open(image);
        view_ = qobject_cast<QQuickWindow*>(window_->root());
        application().watch(view_);
        view_->resize(1920, 1080);
        runEventsFor(50);
        canvas_ = view_->findChild<QQuickItem*>(QStringLiteral("canvas"));
        EditorController& controller = window_->controller();
        controller.toggleAnnotations();
        controller.editor().annotationVM().setAnnotations(mixedAnnotations(100));
        controller.editor().synchroniseAnnotations();
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
        if (controller.openPanel() != QLatin1String(section)) controller.togglePanel(QString::fromLatin1(section));
        settle();
        QQuickItem* const slider = sliderNamed(panel, label);
        if (!slider) {
            std::printf("%s: there is no such slider\n", what);
            isComplete_ = false;
            return;
        }
        const QPointF left = slider->mapToScene({12, slider->height() / 2});
        const QVariantMap before = window_->controller().style();
        startLog();
        Pointer pointer(view_);
        pointer.press(left);
        paced(steps_, [&](double t) {
            pointer.move(left + QPointF((slider->width() - 24) * (0.5 - 0.5 * std::cos(6 * t)), 0));
        });
        pointer.release(left);
        application().log.isRecording = false;
        isComplete_ &= before != window_->controller().style();
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
        runUntilDone(editor.exportImage(path, *formatNamed(format)));
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

    QPointF toScene(const QPointF& canvasPoint) const {
        CompositeLayout layout = window_->controller().editor().layout();
        layout.outputSize = layout.canvasSize;
        const QRectF content = contentRect(layout);
        const QRectF shown = canvas_->property("imageRect").toRectF();
        return canvas_->mapToScene(shown.topLeft() + (canvasPoint - content.topLeft()) *
                                                         (shown.width() / content.width()));
    }

    /// From the points that a record counts in, a blur's of the screenshot, to the canvas' points.
    QPointF toCanvas(const AnyAnnotation& record, const QPointF& point) const {
        if (!record.as<BlurAnnotation>()) return point;
        const EditorViewModel& editor = window_->controller().editor();
        CompositeLayout layout = editor.layout();
        layout.outputSize = layout.canvasSize;
        const QRectF content = contentRect(layout);
        return content.topLeft() +
               point * (content.width() / editor.screenshot().pointSize().width());
    }

    /// A place that a press selects a record at, in canvas points; nothing where others lie over it.
    std::optional<QPointF> gripOf(const AnyAnnotation& record) const {
        QPointF grip = record.bounds().center();
        if (const auto* stroke = record.as<BrushAnnotation>()) {
            grip = stroke->points[stroke->points.size() / 2];
        }
        if (record.as<RectangleAnnotation>()) grip = record.bounds().topLeft() + QPointF(60, 0);
        const QPointF place = toCanvas(record, grip);
        const AnnotationViewModel& model = window_->controller().editor().annotationVM();
        const bool isBlur = record.as<BlurAnnotation>() != nullptr;
        std::vector<AnyAnnotation> hits = model.annotationsAt(place);
        if (isBlur) {
            std::erase_if(hits, [](const auto& hit) { return hit.template as<BlurAnnotation>(); });
            const bool isCovered = !hits.empty();
            hits = model.annotationsAt(grip);
            std::erase_if(hits, [](const auto& hit) { return !hit.template as<BlurAnnotation>(); });
            if (isCovered) return std::nullopt;
        }
        const bool isTopmost = !hits.empty() && hits.front().id() == record.id();
        return isTopmost ? std::optional(place) : std::nullopt;
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
    QQuickWindow* view_ = nullptr;
    QQuickItem* canvas_ = nullptr;
    bool isComplete_ = true;
};

// Starting.

/// Ends the event loop with the first frame of any window and tells the time since `start`.
class FirstFrame : public QObject {
  public:
    explicit FirstFrame(double start) : start_(start) {}

    bool eventFilter(QObject* object, QEvent* event) override {
        auto* window = qobject_cast<QQuickWindow*>(object);
        if (window && event->type() == QEvent::Expose && !std::exchange(isWatching_, true)) {
            connect(window, &QQuickWindow::frameSwapped, this, [this] {
                if (!std::exchange(isTold_, true))
                    std::printf("%f\n", milliseconds(CLOCK_MONOTONIC) - start_);
                std::fflush(stdout);
                QCoreApplication::quit();
            });
        }
        return false;
    }

  private:
    double start_;
    bool isWatching_ = false, isTold_ = false;
};

/// This program again, as "kestrio edit" would start, from before the process is made.
double firstFrameOfProcess(const QString& picture) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--first-frame"),
                   QString::number(milliseconds(CLOCK_MONOTONIC), 'f', 3), picture});
    process.waitForFinished();
    return process.readAllStandardOutput().trimmed().toDouble();
}

double firstFrameOfEditor(const Image& image) {
    const double start = milliseconds(CLOCK_MONOTONIC);
    const double processorStart = milliseconds(CLOCK_THREAD_CPUTIME_ID);
    double processor = NAN;
    EditorWindow window(services(std::make_shared<MemoryUserDefaults>()), QStringLiteral("second"));
    window.open(image);
    double shown = NAN;
    QEventLoop loop;
    QObject::connect(qobject_cast<QQuickWindow*>(window.root()), &QQuickWindow::frameSwapped, &loop,
                     [&] {
                         if (!std::isnan(shown)) return;
                         shown = milliseconds(CLOCK_MONOTONIC) - start;
                         processor = milliseconds(CLOCK_THREAD_CPUTIME_ID) - processorStart;
                         loop.quit();
                     });
    QTimer::singleShot(5000, &loop, &QEventLoop::quit);
    loop.exec();
    std::printf("    second editor: %.0f ms of processor time of the main thread\n", processor);
    return shown;
}

double residentMegabytes(const char* row) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return NAN;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith(row)) return line.simplified().split(' ').value(1).toDouble() / 1024;
    return NAN;
}

struct Options {
    QString picture;
    bool isQuick = false;
    QString only;  ///< a part to measure alone, for a profiler
};

void measureFrames(Session& session, const QString& only) {
    const auto isWanted = [&](const char* part) {
        return only.isEmpty() || only == QLatin1String(part);
    };
    if (isWanted("drag")) session.dragMarks();
    if (isWanted("draw")) session.draw();
    if (isWanted("padding")) {
        session.slide("backdrop", QStringLiteral("Padding"), "dragging the padding slider, p95");
    }
    if (isWanted("corner")) {
        session.slide("mockup", QStringLiteral("Corner radius"), "dragging the corner slider, p95");
    }
    if (isWanted("zoom")) session.zoom();
    if (isWanted("export")) {
        session.exportAs(QStringLiteral("png"), "longest stall in a PNG export");
        session.exportAs(QStringLiteral("webp"), "longest stall in a WebP export");
    }
}

void measureStart(const QString& path, bool isQuick) {
    std::vector<double> starts;
    for (int i = 0; i < (isQuick ? 1 : 7); ++i)
        starts.push_back(firstFrameOfProcess(path));
    report("first frame of a process, median", percentile(starts, 0.5), 400, "ms");
    std::printf("    quickest %.0f, slowest %.0f\n", percentile(starts, 0), percentile(starts, 1));
}

bool measure(const Options& options) {
    QTemporaryDir folder;
    QString path = options.picture;
    if (path.isEmpty()) {
        path = folder.filePath(QStringLiteral("picture.png"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)) return false;
        file.write(encodePng(drawnPicture()));
    }
    if (options.only.isEmpty()) measureStart(path, options.isQuick);
    Session session(options.isQuick);
    const Image image(loadImageFile(path));
    if (!session.open(image)) return false;
    const double bitmap = double(image.bitmap().sizeInBytes()) / (1 << 20);
    report("resident memory, document open", residentMegabytes("VmRSS"), 6 * bitmap + 120, "MB");
    measureFrames(session, options.only);
    report("resident memory after all that", residentMegabytes("VmRSS"), 6 * bitmap + 120, "MB");
    std::printf("    at its greatest, exports included: %.0f MB\n", residentMegabytes("VmHWM"));
    report("first frame of a second editor", firstFrameOfEditor(image), 150, "ms");
    return session.isComplete();
}

}  // namespace
}  // namespace kestrio

int main(int argc, char** argv) {
    using namespace kestrio;
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    QTemporaryDir settings;  // neither reads nor changes the user's
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(settings.path()));
    int ownCount = 1;
    if (arguments.value(0) == u"--first-frame") {
        QApplication application(ownCount, argv);
        FirstFrame firstFrame(arguments.value(1).toDouble());
        application.installEventFilter(&firstFrame);
        return static_cast<int>(runCommandLine({QStringLiteral("edit"), arguments.value(2)}));
    }
    TimedApplication application(ownCount, argv);
    Options options;
    options.isQuick = arguments.removeAll(QStringLiteral("--quick")) > 0;
    if (arguments.value(0) == u"--only") {
        options.only = arguments.value(1);
        arguments = arguments.mid(2);
    }
    options.picture = arguments.value(0);
    return measure(options) ? 0 : 1;
}
