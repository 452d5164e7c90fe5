#include "EditorFixture.h"

namespace kestrio {
namespace {

using KeepPixels = EditorFixture;

TEST_F(KeepPixels, GrowsTheCanvasAndIsUndone) {
    editor->loadCapture({picture()});
    const QSize before = editor->outputPixels();
    BackdropSettings backdrop = editor->styleModel().backdrop();
    backdrop.padding = 20;
    backdrop.keepPixels = true;
    editor->styleModel().set_backdrop(backdrop);
    editor->recordSnapshot();
    EXPECT_EQ(editor->outputPixels(), QSize(240, 140));
    EXPECT_EQ(contentRect(editor->layout()), QRectF(20, 20, 200, 100));
    editor->undo();
    EXPECT_EQ(editor->outputPixels(), before);
    editor->redo();
    EXPECT_EQ(editor->outputPixels(), QSize(240, 140));
}

TEST_F(KeepPixels, StaysOnUnderPresetsAndIsRemembered) {
    editor->loadCapture({picture()});
    BackdropSettings backdrop = editor->styleModel().backdrop();
    backdrop.keepPixels = true;
    editor->styleModel().set_backdrop(backdrop);
    editor->applyPresetTheme(*PresetTheme::find(QStringLiteral("ocean")));
    EXPECT_TRUE(editor->styleModel().backdrop().keepPixels);
    editor->autoBeautify();
    EXPECT_TRUE(editor->styleModel().backdrop().keepPixels);
    editor->applyPresetTheme(*PresetTheme::find(QStringLiteral("ocean")));
    editor.reset();
    editor = makeEditor();
    editor->loadCapture({picture()});
    EXPECT_TRUE(editor->styleModel().backdrop().keepPixels);
    EXPECT_EQ(editor->styleModel().currentPresetThemeId(), QStringLiteral("ocean"));
}

}  // namespace
}  // namespace kestrio
