#include "editor/EditorFixture.h"

#include "support/ScriptedDetector.h"
#include "support/Waiting.h"

namespace kestrio {
namespace {

struct AutoRedactionTest : EditorFixture {
    AutoRedactionTest() {
        detector->results = {found({20, 30, 60, 10}), found({20, 90, 60, 10})};
        // The fixture's own was made before there was a detector.
        editor = makeEditor();
        editor->loadCapture({picture(), {}, {}});
    }

    EditorServices services() override {
        EditorServices all = EditorFixture::services();
        all.detector = detector;
        all.redaction = std::make_shared<RedactionService>();
        return all;
    }

    static DetectionResult found(QRectF box) {
        return {SensitiveInfoType::email, QStringLiteral("ann@example.org"), box, 1};
    }
    void redact() { runUntilDone(editor->autoRedaction().autoRedact()); }
    std::vector<QRectF> marks() const {
        std::vector<QRectF> rects;
        for (const AnyAnnotation& annotation : editor->liveAnnotations())
            rects.push_back(annotation.bounds());
        return rects;
    }
    BlurType markType() const {
        return editor->liveAnnotations().front().as<BlurAnnotation>()->blurType;
    }

    std::shared_ptr<ScriptedDetector> detector = std::make_shared<ScriptedDetector>();
};

TEST_F(AutoRedactionTest, CoversInPointsAndIsOneStepOfUndo) {
    QImage dense(400, 200, QImage::Format_RGB32);
    dense.fill(Qt::white);
    editor->loadCapture({Image(dense, 2.0), {}, {}});
    redact();
    EXPECT_EQ(marks(), (std::vector<QRectF>{{2, 7, 46, 21}, {2, 37, 46, 21}}));
    EXPECT_EQ(editor->toastMessage(), QStringLiteral("Redacted 2 sensitive items"));
    EXPECT_FALSE(editor->autoRedaction().isScanning());
    EXPECT_FALSE(editor->isAnnotationMode());
    editor->undo();
    EXPECT_TRUE(marks().empty());
    editor->redo();
    EXPECT_EQ(marks().size(), 2u);
}

TEST_F(AutoRedactionTest, JoinsWhatIsBeingDrawn) {
    draw(AnnotationTool::rectangle, {100, 10}, {150, 40});
    editor->annotationVM().toggleVisibility();
    redact();
    EXPECT_EQ(marks().size(), 3u);
    EXPECT_TRUE(editor->isAnnotationMode());
    EXPECT_TRUE(editor->annotationVM().annotationsVisible());
    editor->undo();
    EXPECT_EQ(marks().size(), 1u);
    editor->leaveAnnotationMode();
    EXPECT_EQ(editor->annotations().size(), 1u);
}

TEST_F(AutoRedactionTest, SaysWhatCameOfIt) {
    detector->results = {found({20, 30, 60, 10})};
    redact();
    EXPECT_EQ(editor->toastMessage(), QStringLiteral("Redacted 1 sensitive item"));
    editor->undo();
    detector->results.clear();
    redact();
    EXPECT_EQ(editor->toastMessage(), QStringLiteral("No sensitive information detected"));
    EXPECT_FALSE(editor->canUndo());
    detector->fail = [] { throw SensitiveInfoDetectionError::ocrFailed(QStringLiteral("ink")); };
    redact();
    EXPECT_EQ(editor->errorMessage(), QStringLiteral("OCR failed: ink"));
    detector->fail = [] { throw std::runtime_error("x"); };
    redact();
    EXPECT_TRUE(editor->errorMessage()->startsWith(u"Auto-redact failed: "));
    detector->missing = QStringLiteral("No models.");
    redact();
    EXPECT_EQ(editor->errorMessage(), QStringLiteral("No models."));
    const auto empty = makeEditor();
    runUntilDone(empty->autoRedaction().autoRedact());
    EXPECT_EQ(empty->errorMessage(), QStringLiteral("No screenshot loaded"));
}

TEST_F(AutoRedactionTest, RemembersTheKindForTheNextDocument) {
    EXPECT_EQ(editor->autoRedaction().kind(), RedactionKind::blur);
    editor->autoRedaction().setKind(RedactionKind::solid);
    redact();
    EXPECT_EQ(markType(), BlurType::solid);
    EXPECT_EQ(makeEditor()->autoRedaction().kind(), RedactionKind::solid);
}

TEST_F(AutoRedactionTest, IsCancelledAndBeginsAgain) {
    detector->duration = std::chrono::seconds(20);
    editor->autoRedaction().toggle();
    EXPECT_TRUE(editor->autoRedaction().isScanning());
    redact();  // goes on already
    EXPECT_EQ(detector->searched.size(), 1u);
    editor->autoRedaction().toggle();
    ASSERT_TRUE(waitUntil([this] { return !editor->autoRedaction().isScanning(); }));
    EXPECT_EQ(detector->stoppedCount, 1);
    EXPECT_TRUE(marks().empty());
    EXPECT_FALSE(editor->errorMessage());
    detector->duration = {};
    redact();
    EXPECT_EQ(marks().size(), 2u);
}

TEST_F(AutoRedactionTest, SearchesAnewWhatWasCutMeanwhile) {
    detector->duration = std::chrono::milliseconds(50);
    editor->autoRedaction().toggle();
    editor->enterCropMode();
    editor->cropSession().set_cropRect(QRectF(0, 0, 100, 50));
    editor->applyCrop();
    ASSERT_EQ(editor->screenshot().pixelSize(), QSize(100, 50));
    ASSERT_TRUE(waitUntil([this] { return !editor->autoRedaction().isScanning(); }));
    ASSERT_EQ(detector->searched.size(), 2u);
    EXPECT_EQ(detector->searched[1].pixelSize(), QSize(100, 50));
    EXPECT_EQ(marks(), (std::vector<QRectF>{{12, 22, 76, 26}}));
}

TEST_F(AutoRedactionTest, EndsWithItsDocument) {
    detector->duration = std::chrono::seconds(20);
    editor->autoRedaction().toggle();
    editor.reset();
    EXPECT_TRUE(waitUntil([this] { return detector->stoppedCount == 1; }));
}

}  // namespace
}  // namespace kestrio
