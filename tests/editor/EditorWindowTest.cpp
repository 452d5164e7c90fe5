#include "editor/WindowFixture.h"
#include "editor/views/CanvasItem.h"
#include "editor/views/HighlightsItem.h"
#include "support/ScriptedLanguageIdentifier.h"
#include "support/ScriptedSharing.h"
#include "support/ScriptedTextRecognizer.h"
#include "support/ScriptedTranslator.h"
#include "support/Waiting.h"
#include "text/recognition/OCRService.h"

#include <QDir>
#include <QQmlContext>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>

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

/// The QML files of which something lives.
void noteFiles(const QObject* root, std::set<QString>& files) {
    if (const QQmlContext* context = qmlContext(root)) files.insert(context->baseUrl().fileName());
    for (const QObject* child : root->children())
        noteFiles(child, files);
    const auto* item = qobject_cast<const QQuickItem*>(root);
    if (!item) return;
    for (const QQuickItem* child : item->childItems())
        if (child->parent() != item) noteFiles(child, files);
}

/// The tile of a theme of the user's own; what a repeater makes has no parent but its item.
QQuickItem* ownTheme(QQuickItem* root) {
    if (root->property("canDelete").toBool()) return root;
    for (QQuickItem* child : root->childItems())
        if (QQuickItem* found = ownTheme(child)) return found;
    return nullptr;
}

/// The window brought into one state after the other.
struct Tour {
    EditorWindow& window;
    QQuickWindow* view = window.window();
    std::set<QString> files = {};

    void look(int milliseconds = 60) {
        runEventsFor(milliseconds);
        noteFiles(view, files);
    }

    void openSheets() {
        for (const char* name :
             {"enhancement", "exporting", "resetting", "naming", "redaction", "closing"}) {
            auto* lazy = view->findChild<QQuickItem*>(QString::fromLatin1(name));
            ASSERT_NE(lazy, nullptr) << name;
            QMetaObject::invokeMethod(lazy, "open");
            look();
            QMetaObject::invokeMethod(lazy->property("item").value<QObject*>(), "close");
            EXPECT_FALSE(lazy->property("isShown").toBool()) << name;
        }
    }

    void openShareMenu() {
        auto* const button = view->findChild<QObject*>(QStringLiteral("editor.share"));
        ASSERT_NE(button, nullptr);
        QMetaObject::invokeMethod(button, "clicked");
        look();
        for (QObject* each : view->findChildren<QObject*>())
            if (QByteArrayView(each->metaObject()->className()).startsWith("ShareMenu_")) {
                QMetaObject::invokeMethod(each, "close");
            }
        look();
    }

    void openColourPopovers() {
        for (QObject* each : view->findChildren<QObject*>()) {
            if (!QByteArrayView(each->metaObject()->className()).startsWith("ColorWell_")) continue;
            QMetaObject::invokeMethod(each, "clicked");
            look(30);
            for (QObject* popover : each->findChildren<QObject*>())
                if (popover->setProperty("showsCustom", true)) look(30);
        }
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(view, &escape);
        look(30);
    }

    void walkBackdrops() {
        EditorController& controller = window.controller();
        for (const char* type : {"none", "gradient", "image", "solid"}) {
            controller.style()->backdropType()->choose(QString::fromLatin1(type));
            look();
        }
        EXPECT_FALSE(controller.style()->gradient()->value().isEmpty())
            << "a gradient is chosen with the kind";
        controller.style()->customGradient()->choose(
            {QColor(Qt::red), QColor(Qt::blue), QColor(Qt::green)});
        controller.style()->pattern()->choose(QStringLiteral("dots"));
        controller.style()->overlay()->choose(QStringLiteral("vignette"));
        look();
        openColourPopovers();
    }

    void walkPanels() {
        EditorController& controller = window.controller();
        controller.watermark()->savePreset(QStringLiteral("Mine"));
        for (const QString& type : {QStringLiteral("image"), QStringLiteral("text")}) {
            controller.style()->watermark()->set(true);
            controller.style()->watermarkType()->set(type);
            for (const auto& section : rightPanelSections) {
                controller.togglePanel(QString::fromLatin1(section.raw));
                look();
            }
        }
        controller.style()->watermark()->set(false);
    }

    void walkThemes() {
        EditorController& controller = window.controller();
        for (const PresetTheme& preset : PresetTheme::all()) {
            controller.themes()->applyPreset(preset.id);
            EXPECT_EQ(controller.themes()->currentPreset(), preset.id);
            look(20);
        }
        controller.style()->padding()->set(11);
        EXPECT_EQ(controller.themes()->currentPreset(), QString()) << "changed by hand";
        controller.themes()->save(QStringLiteral("Mine"));
        look();
        QQuickItem* tile = ownTheme(view->contentItem());
        ASSERT_NE(tile, nullptr);
        QMetaObject::invokeMethod(tile, "menuRequested");
        look();
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(view, &escape);
    }

    void annotate() {
        EditorController& controller = window.controller();
        controller.editor().toggleAnnotationMode();
        for (const QVariant& tool : controller.annotation()->tools())
            controller.annotation()->setTool(tool.toMap()[QStringLiteral("id")].toString());
        AnnotationViewModel& model = controller.editor().annotationVM();
        model.addAnnotation(NumberAnnotation{QUuid::createUuid(), {300, 200}, 1, {}, 60, 0});
        model.addAnnotation(BlurAnnotation{QUuid::createUuid(), {20, 20, 90, 60}});
        look();
        model.selectAll();
        look();
        auto* canvas = view->findChild<QQuickItem*>(QStringLiteral("canvas"));
        Q_EMIT qobject_cast<CanvasItem*>(canvas)->contextMenuRequested({30, 30});
        look();
        model.selectAnnotation(model.annotations().front());
        model.numberEditing().start(model.annotations().front());
        look();
        controller.annotation()->setNumberText(QStringLiteral("-3"));
        controller.annotation()->commitNumber();
        EXPECT_FALSE(controller.annotation()->numberEditing().error.isEmpty());
        controller.annotation()->cancelNumber();
        look();
    }

    void crop() {
        EditorController& controller = window.controller();
        controller.editor().enterCropMode();
        look();
        CropPanel& crop = *controller.crop();
        const double scale = crop.frame().width() / 640;
        crop.beginDrag();
        crop.dragHandle(7, QPointF(-100, -50) * scale);
        look();
        crop.apply();
        EXPECT_EQ(controller.pictureSize(), QStringLiteral("540 × 350"));
    }

    void pickColour() {
        EditorController& controller = window.controller();
        const auto toolColor = [&] { return controller.annotation()->tool().color; };
        const QColor before = toolColor();
        for (const bool isAnnotating : {false, true}) {
            if (isAnnotating) controller.editor().toggleAnnotationMode();
            controller.commands()->run(QStringLiteral("eyedropper"));
            look();
            controller.colors()->movePointer({20, 20});
            look();
            controller.colors()->pick({20, 20}, false);
            EXPECT_EQ(toolColor(), isAnnotating ? QColor(Qt::white) : before);
            EXPECT_EQ(controller.isAnnotationMode(), isAnnotating);
        }
        controller.editor().toggleAnnotationMode();
    }

    void openRedactionKinds() {
        auto* button = view->findChild<QQuickItem*>(QStringLiteral("editor.redact.kinds"));
        ASSERT_NE(button, nullptr);
        QMetaObject::invokeMethod(button, "clicked");
        look();
        window.controller().redaction()->setKind(QStringLiteral("solid"));
        EXPECT_FALSE(window.controller().redaction()->isReversible());
        look();
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(view, &escape);
    }

    void click(QPoint place, Qt::MouseButton button) {
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            const bool isDown = type == QEvent::MouseButtonPress;
            QMouseEvent event(type, place, view->mapToGlobal(place), button,
                              isDown ? button : Qt::NoButton, Qt::NoModifier);
            QCoreApplication::sendEvent(view, &event);
        }
    }

    void drag(QPoint from, QPoint to) {
        const std::pair<QEvent::Type, QPoint> events[] = {{QEvent::MouseButtonPress, from},
                                                          {QEvent::MouseMove, to},
                                                          {QEvent::MouseButtonRelease, to}};
        for (const auto& [type, place] : events) {
            const bool isUp = type == QEvent::MouseButtonRelease;
            QMouseEvent event(type, place, view->mapToGlobal(place),
                              type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                              isUp ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(view, &event);
        }
    }

    /// Of which `pasteboard` takes what is copied.
    void readText(const MemoryPasteboard& pasteboard) {
        TextPanel& text = *window.controller().text();
        window.controller().commands()->run(QStringLiteral("readText"));
        look();
        EXPECT_TRUE(waitUntil([&] { return text.isShown(); }));
        look();
        EXPECT_TRUE(waitUntil([&] { return text.canTranslate(); }));
        text.chooseLanguage(text.languages().front());
        text.translateAll();
        EXPECT_TRUE(waitUntil([&] { return !text.isTranslating(); }));
        look();
        text.setDisplayMode(QStringLiteral("fullText"));
        look();
        // A right click on a block and a left one.
        const auto* frames = view->findChild<HighlightsItem*>(QStringLiteral("textHighlights"));
        ASSERT_NE(frames, nullptr);
        const QPoint place = frames->mapToScene(frames->blockRect(0).center()).toPoint();
        click(place, Qt::RightButton);
        look();
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(view, &escape);
        look(250);
        click(place, Qt::LeftButton);
        look();
        EXPECT_EQ(pasteboard.contents().text, QStringLiteral("house"));
        EXPECT_NE(view->grabWindow().pixelColor(place), QColor(Qt::white)) << "no frame there";
        window.controller().commands()->run(QStringLiteral("readRegion"));
        look();
        drag(frames->mapToScene(QPointF(0, 0)).toPoint(), place);
        EXPECT_TRUE(waitUntil([&] { return !text.isScanning(); }));
        EXPECT_TRUE(text.text().selectedRegion().has_value());
        text.clear();
        EXPECT_FALSE(text.isShown());
        look();
    }

    /// Those of which nothing was seen; files of a single object leave no trace of their own.
    QStringList unseenFiles() const {
        QStringList unseen;
        for (const char* const room : {"editor", "ui"}) {
            QDir folder(
                QStringLiteral(KESTRIO_SOURCE_DIR "/src/%1/views/qml").arg(QLatin1String(room)));
            for (const QString& file : folder.entryList({QStringLiteral("*.qml")}))
                if (!files.contains(file)) unseen << file;
        }
        return unseen;
    }
};

/// Two lines of text in every picture, and a translation of the first.
void giveText(EditorServices& all) {
    const auto recognizer = std::make_shared<ScriptedTextRecognizer>();
    recognizer->duration = std::chrono::milliseconds(150);
    recognizer->lines = {evenLine(QStringLiteral("house"), QRectF(20, 10, 300, 40)),
                         evenLine(QStringLiteral("return 1"), QRectF(20, 70, 300, 40))};
    const auto translator = std::make_shared<ScriptedTranslator>();
    translator->translations = {{QStringLiteral("house"), QStringLiteral("casa")}};
    const auto identifier = std::make_shared<ScriptedLanguageIdentifier>();
    identifier->hypotheses[QStringLiteral("house")] = {QStringLiteral("en"), 0.9};
    all.ocr = std::make_shared<OCRService>(recognizer);
    all.translation = std::make_shared<OCRTranslationService>(translator, identifier);
}

TEST_F(EditorWindowTest, EveryStateShowsWithoutComplaint) {
    Warnings warnings;
    const auto programs = std::make_shared<ScriptedSharing>();
    QPixmap blue(16, 16);
    blue.fill(Qt::blue);
    programs->installed = {{{QStringLiteral("viewer"), QStringLiteral("Viewer"), QIcon(blue)},
                            {QStringLiteral("image/png")}}};
    EditorServices all = services();
    all.sharing = programs;
    giveText(all);
    const auto document = std::make_shared<EditorViewModel>(all);
    document->loadCapture({picture({640, 400}), {}, {}});
    EditorWindow window(document, all, QStringLiteral("shot"));
    window.show();
    ASSERT_NE(window.window(), nullptr);
    Tour tour{window};
    tour.look(300);
    EXPECT_GT(differentColours(tour.view->grabWindow()), 20);
    tour.walkBackdrops();
    tour.walkPanels();
    tour.walkThemes();
    tour.readText(*pasteboard);
    appearance->set_isDark(true);
    tour.openSheets();
    tour.openShareMenu();
    tour.openRedactionKinds();
    tour.annotate();
    tour.crop();
    tour.pickColour();
    window.controller().editor().awaitCapture();
    tour.look();
    window.controller().editor().loadCapture({picture({640, 400}), {}, {}});
    window.controller().setShortcutOverlayVisible(true);
    tour.look(200);
    window.controller().setShortcutOverlayVisible(false);
    tour.view->resize(900, 600);
    tour.look();
    EXPECT_EQ(warnings.list.join(u'\n').toStdString(), std::string());
    EXPECT_EQ(tour.unseenFiles().join(u' ').toStdString(),
              "CommandButton.qml StyleSlider.qml Caption.qml Lazy.qml Separator.qml Theme.qml");
}

TEST_F(EditorWindowTest, RefusesWhatCannotBeAndKeepsTheDocument) {
    EditorWindow window(documentOn(picture({640, 400})), services(), QStringLiteral("shot"));
    window.show();
    EditorController& controller = window.controller();
    Refusals refusals(controller);
    const QTemporaryDir folder;
    QFile rubbish(folder.filePath(QStringLiteral("rubbish.png")));
    ASSERT_TRUE(rubbish.open(QIODevice::WriteOnly));
    rubbish.write("no picture");
    rubbish.close();
    const QUrl file = QUrl::fromLocalFile(rubbish.fileName());
    const EditorStyleSettings style = controller.editor().style();
    const WatermarkSettings mark = controller.editor().watermarkVM().settings();
    const qint64 picture = controller.editor().screenshot().bitmap().cacheKey();
    controller.openFile(file);
    controller.openFile(QUrl::fromLocalFile(folder.filePath(QStringLiteral("none.png"))));
    controller.openData("no picture either");
    controller.refuseDrop();
    controller.setBackdropImage(file);
    controller.watermark()->setPicture(file);
    controller.watermark()->savePreset(QStringLiteral(" "));
    controller.themes()->save(QStringLiteral("  "));
    runEventsFor(200);
    EXPECT_EQ(refusals.texts.size(), 8) << refusals.texts.join(u'\n').toStdString();
    EXPECT_EQ(refusals.texts.count(QString()), 0);
    EXPECT_EQ(controller.editor().style(), style);
    EXPECT_EQ(controller.editor().watermarkVM().settings(), mark);
    EXPECT_EQ(controller.editor().screenshot().bitmap().cacheKey(), picture);
    const std::pair<const char*, const char*> ratios[] = {
        {"0", "1"}, {"1", "0"}, {"-3", "2"}, {"", "2"}, {"x", "2"}, {"1e9", "1"}, {"nan", "1"}};
    for (const auto& [width, height] : ratios) {
        EXPECT_FALSE(
            controller.setCustomAspect(QString::fromLatin1(width), QString::fromLatin1(height))
                .isEmpty())
            << width << ':' << height;
    }
    EXPECT_EQ(controller.aspectName(), QStringLiteral("Auto"));
    EXPECT_EQ(controller.setCustomAspect(QStringLiteral("16"), QStringLiteral("9")), QString());
    EXPECT_EQ(controller.aspectName(), QStringLiteral("1.78:1 (Landscape)"));
}

// The pointer goes the whole way: through the window's events to a record and onto the screen.
TEST_F(EditorWindowTest, DrawsWhatThePointerDraws) {
    EditorWindow window(documentOn(picture({640, 400})), services(), QStringLiteral("shot"));
    window.show();
    QQuickWindow* const view = window.window();
    runEventsFor(200);
    window.controller().editor().toggleAnnotationMode();
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
    EXPECT_TRUE(window.controller().editor().canUndo());
    window.controller().annotation()->setTool(QStringLiteral("select"));  // without handles over it
    runEventsFor(100);
    const QImage shown = view->grabWindow();
    const double ratio = view->effectiveDevicePixelRatio();
    const QColor edge =
        shown.pixelColor(((from + to) / 2 * ratio - QPointF(0, 45 * ratio)).toPoint());
    EXPECT_GT(edge.red(), edge.green() + 100) << "the middle of the upper edge";
    window.controller().commands()->runByKey(QStringLiteral("undo"));
    EXPECT_TRUE(window.controller().editor().liveAnnotations().empty());
}

// One list for all windows; a name that is taken means that theme.
TEST_F(EditorWindowTest, ThemesAreReplacedRenamedAndSharedByAllWindows) {
    const EditorServices shared = services();
    EditorController first(documentOn(picture()), shared, QStringLiteral("a"));
    EditorController second(documentOn(picture()), shared, QStringLiteral("b"));
    first.style()->padding()->set(11);
    first.themes()->save(QStringLiteral("Mine"));
    ASSERT_EQ(second.themes()->userThemes().size(), 1u);
    EXPECT_TRUE(second.themes()->isNameTaken(QStringLiteral(" Mine "), {}));
    const QString id = second.themes()->userThemes().front().id.toString();
    EXPECT_FALSE(second.themes()->isNameTaken(QStringLiteral("Mine"), id));

    second.style()->padding()->set(77);
    second.themes()->save(QStringLiteral("Mine"));
    ASSERT_EQ(first.themes()->userThemes().size(), 1u);
    EXPECT_EQ(first.themes()->userThemes().front().backdrop.padding, 77);
    first.themes()->rename(id, QStringLiteral("Ours"));
    EXPECT_EQ(second.themes()->userThemes().front().name, QStringLiteral("Ours"));
    second.themes()->remove(id);
    EXPECT_TRUE(first.themes()->userThemes().empty());
}

// What the user saved and cannot be read is reported, once the window can show it.
TEST_F(EditorWindowTest, UnreadableThemesAreTold) {
    defaults->setData(QStringLiteral("com.kestrio.savedThemes"), "rubbish");
    EditorController controller(makeEditor(), services(), QStringLiteral("shot"));
    Refusals refusals(controller);
    controller.reportLoadProblems();
    EXPECT_EQ(refusals.texts, QStringList{QStringLiteral("Theme decoding failed")});
}

TEST_F(EditorWindowTest, AnEyedropperOfOneViewServesThatViewAlone) {
    EditorController controller(documentOn(picture()), services(), QStringLiteral("shot"));
    controller.editor().toggleAnnotationMode();
    AnnotationViewModel& model = controller.editor().annotationVM();
    model.addAnnotation(NumberAnnotation{QUuid::createUuid(), {30, 20}, 1, {1, 0, 0, 1}, 30, 0});
    model.selectAll();
    const ToolSettings before = model.toolSettings();
    QObject well;
    QColor picked;
    QObject::connect(controller.colors(), &ColorPanel::pickedFor, &well,
                     [&](QObject* receiver, const QColor& color) {
                         if (receiver == &well) picked = color;
                     });
    controller.colors()->pickFor(&well);
    EXPECT_FALSE(controller.isAnnotationMode());
    controller.colors()->pick({50, 50}, false);
    EXPECT_EQ(picked, QColor(Qt::white));
    EXPECT_EQ(model.toolSettings(), before);
    EXPECT_TRUE(controller.isAnnotationMode());
    EXPECT_EQ(model.selectedAnnotations().size(), 1u) << "what was to be recoloured";
}

TEST_F(EditorWindowTest, HiddenRedactionsAreAskedAboutBeforeAPictureLeaves) {
    EditorController controller(documentOn(picture()), services(), QStringLiteral("shot"));
    controller.editor().toggleAnnotationMode();
    controller.editor().annotationVM().addAnnotation(
        BlurAnnotation{QUuid::createUuid(), {10, 10, 60, 40}});
    controller.annotation()->toggleVisibility();
    int asked = 0;
    QObject::connect(controller.output(), &OutputPanel::redactionsHidden, [&] { ++asked; });
    controller.output()->copy();
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(controller.output()->isBusy());
    controller.output()->dropPending();
    controller.output()->goOn(true);
    EXPECT_FALSE(controller.output()->isBusy()) << "nothing is pending any more";
    controller.output()->copy();
    controller.output()->goOn(true);
    EXPECT_TRUE(controller.output()->isBusy());
    EXPECT_TRUE(controller.editor().annotationVM().annotationsVisible());
    runEventsFor(300);
    EXPECT_FALSE(controller.output()->isBusy());
}

}  // namespace
}  // namespace kestrio
