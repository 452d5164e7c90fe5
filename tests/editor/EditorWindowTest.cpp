#include "editor/EditorFixture.h"
#include "editor/canvas/PreviewRenderer.h"
#include "editor/views/EditorWindow.h"
#include "render/ImageRendererService.h"
#include "support/MemoryPasteboard.h"

#include <QElapsedTimer>
#include <QQuickItem>
#include <QQuickWindow>

namespace kestrio {
namespace {

QStringList* heardWarnings = nullptr;

void hear(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (heardWarnings && type != QtDebugMsg && type != QtInfoMsg) *heardWarnings << text;
}

/// Everything that Qt Quick complains of while this lives.
class Warnings {
  public:
    Warnings() : before_(qInstallMessageHandler(hear)) { heardWarnings = &list; }
    ~Warnings() {
        qInstallMessageHandler(before_);
        heardWarnings = nullptr;
    }
    QStringList list;

  private:
    QtMessageHandler before_;
};

void runEventsFor(int milliseconds) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

// On the real renderer, since the window shows what it makes.
struct EditorWindowTest : EditorFixture {
    EditorServices services() {
        EditorServices real = EditorFixture::services();
        real.imageRenderer = std::make_shared<ImageRendererService>(real.watermark, pasteboard);
        return real;
    }

    static QQuickWindow* quickWindow(const EditorWindow& window) {
        return qobject_cast<QQuickWindow*>(window.root());
    }
};

/// Counts what a controller refuses.
struct Refusals {
    explicit Refusals(EditorController& controller) {
        QObject::connect(&controller, &EditorController::failed, &controller,
                         [this](const QString& text) { texts << text; });
    }
    QStringList texts;
};

int differentColours(const QImage& picture) {
    std::set<QRgb> colours;
    for (int y = 0; y < picture.height(); y += 3)
        for (int x = 0; x < picture.width(); x += 3)
            colours.insert(picture.pixel(x, y));
    return static_cast<int>(colours.size());
}

TEST_F(EditorWindowTest, EveryStateShowsWithoutComplaint) {
    Warnings warnings;
    EditorWindow window(services(), QStringLiteral("shot"));
    window.open(picture({640, 400}));
    QQuickWindow* const view = quickWindow(window);
    ASSERT_NE(view, nullptr);
    runEventsFor(300);
    EXPECT_GT(differentColours(view->grabWindow()), 20);

    EditorController& controller = window.controller();
    for (const char* type : {"none", "gradient", "image", "solid"}) {
        controller.choose(QStringLiteral("backdropType"), QString::fromLatin1(type));
        runEventsFor(60);
    }
    controller.choose(QStringLiteral("customGradient"),
                      QVariantList{QColor(Qt::red), QColor(Qt::blue), QColor(Qt::green)});
    controller.choose(QStringLiteral("pattern"), QStringLiteral("dots"));
    controller.choose(QStringLiteral("overlay"), QStringLiteral("vignette"));
    runEventsFor(60);
    for (const QString type : {QStringLiteral("image"), QStringLiteral("text")}) {
        controller.set(QStringLiteral("watermark"), true);
        controller.set(QStringLiteral("watermarkType"), type);
        for (const auto& section : rightPanelSections) {
            controller.togglePanel(QString::fromLatin1(section.raw));
            runEventsFor(60);
        }
    }
    controller.set(QStringLiteral("watermark"), false);
    for (const PresetTheme& preset : PresetTheme::all()) {
        controller.themes()->applyPreset(preset.id);
        EXPECT_EQ(controller.themes()->currentPreset(), preset.id);
        runEventsFor(20);
    }
    controller.set(QStringLiteral("padding"), 11);
    EXPECT_EQ(controller.themes()->currentPreset(), QString()) << "changed by hand";
    appearance->set_isDark(true);
    runEventsFor(60);
    controller.toggleAnnotations();
    for (const QVariant& tool : controller.annotation()->tools())
        controller.annotation()->setTool(tool.toMap().value(QStringLiteral("id")).toString());
    runEventsFor(60);
    controller.enterCrop();
    runEventsFor(60);
    CropPanel& crop = *controller.crop();
    const double scale = crop.frame().width() / 640;
    crop.beginDrag();
    crop.dragHandle(7, QPointF(-100, -50) * scale);
    runEventsFor(60);
    crop.apply();
    EXPECT_EQ(controller.pictureSize(), QStringLiteral("540 × 350"));
    controller.pickColorByButton(false);
    runEventsFor(60);
    controller.colors()->movePointer({20, 20});
    runEventsFor(60);
    controller.colors()->pick({20, 20}, false);
    EXPECT_EQ(controller.annotation()->tool().value(QStringLiteral("color")).value<QColor>(), QColor(Qt::white));
    controller.setShortcutOverlayVisible(true);
    runEventsFor(200);
    controller.setShortcutOverlayVisible(false);
    view->resize(900, 600);
    runEventsFor(60);
    EXPECT_EQ(warnings.list.join(u'\n').toStdString(), std::string());
}

// The pointer goes the whole way: through the window's events to a record and onto the screen.
TEST_F(EditorWindowTest, DrawsWhatThePointerDraws) {
    EditorWindow window(services(), QStringLiteral("shot"));
    window.open(picture({640, 400}));
    QQuickWindow* const view = quickWindow(window);
    runEventsFor(200);
    window.controller().toggleAnnotations();
    window.controller().annotation()->setTool(QStringLiteral("rectangle"));
    auto* canvas = view->findChild<QQuickItem*>(QStringLiteral("canvas"));
    ASSERT_NE(canvas, nullptr);
    const QPointF from = canvas->mapToScene(QPointF(300, 250)), to = from + QPointF(160, 90);
    const auto send = [&](QEvent::Type type, const QPointF& place, Qt::MouseButton button,
                          Qt::MouseButtons held) {
        QMouseEvent event(type, place, view->mapToGlobal(place), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(view, &event);
    };
    send(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, (from + to) / 2, Qt::NoButton, Qt::LeftButton);
    send(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
    const auto& drawn = window.controller().editor().liveAnnotations();
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_EQ(drawn.front().type(), AnnotationType::rectangle);
    EXPECT_TRUE(window.controller().canUndo());
    window.controller().annotation()->setTool(QStringLiteral("select"));  // without handles over it
    runEventsFor(100);
    const QImage shown = view->grabWindow();
    const double ratio = view->effectiveDevicePixelRatio();
    const QColor edge =
        shown.pixelColor(((from + to) / 2 * ratio - QPointF(0, 45 * ratio)).toPoint());
    EXPECT_GT(edge.red(), edge.green() + 100) << "the middle of the upper edge";
    window.controller().undoByKey();
    EXPECT_TRUE(window.controller().editor().liveAnnotations().empty());
}

// What is seen is what is exported: at the same number of pixels the canvas and the file agree.
TEST_F(EditorWindowTest, ThePreviewIsTheExport) {
    const EditorServices real = services();
    EditorViewModel document(real);
    document.loadCapture(picture({480, 300}));
    PreviewRenderer preview(document, real.imageRenderer, real.watermark);
    preview.setScale(1);
    for (const PresetTheme& preset : PresetTheme::all()) {
        document.applyPresetTheme(preset);
        const auto exported = runUntilDone(document.prepareRenderedImage());
        QElapsedTimer timer;
        timer.start();
        double difference = 255;
        while (difference > 1 && timer.elapsed() < 5000) {
            runEventsFor(20);
            const QImage a = preview.preview().convertToFormat(QImage::Format_ARGB32);
            const QImage b = exported.bitmap().convertToFormat(QImage::Format_ARGB32);
            if (a.size() != b.size()) continue;
            double sum = 0;
            for (int y = 0; y < a.height(); ++y)
                for (int x = 0; x < a.width() * 4; ++x)
                    sum += std::abs(a.constScanLine(y)[x] - b.constScanLine(y)[x]);
            difference = sum / (4.0 * a.width() * a.height());
        }
        EXPECT_LE(difference, 1.0) << preset.id.toStdString();
    }
}

}  // namespace
}  // namespace kestrio
