#pragma once

#include "editor/document/EditorViewModel.h"

#include "support/Gestures.h"
#include "support/MemoryPasteboard.h"
#include "support/RecordingFileReveal.h"
#include "support/ScriptedAppearance.h"
#include "support/ScriptedExporter.h"
#include "support/ScriptedFileDialogs.h"
#include "support/ScriptedRenderer.h"

#include <gtest/gtest.h>

namespace kestrio {

/// An editor on doubles.
struct EditorFixture : testing::Test {
    std::shared_ptr<ScriptedRenderer> renderer = std::make_shared<ScriptedRenderer>();
    std::shared_ptr<ScriptedExporter> exporter = std::make_shared<ScriptedExporter>();
    std::shared_ptr<MemoryUserDefaults> defaults = std::make_shared<MemoryUserDefaults>();
    std::shared_ptr<EditorStylePersistenceService> styles =
        std::make_shared<EditorStylePersistenceService>(defaults);
    std::shared_ptr<ThemeStorageService> themes = std::make_shared<ThemeStorageService>(defaults);
    std::shared_ptr<MemoryPasteboard> pasteboard = std::make_shared<MemoryPasteboard>();
    std::shared_ptr<ScriptedFileDialogs> dialogs = std::make_shared<ScriptedFileDialogs>();
    std::shared_ptr<RecordingFileReveal> reveal = std::make_shared<RecordingFileReveal>();
    std::shared_ptr<ScriptedAppearance> appearance = std::make_shared<ScriptedAppearance>();
    std::shared_ptr<EditorViewModel> editor = makeEditor();

    virtual EditorServices services() {
        EditorServices all;
        all.imageRenderer = renderer;
        all.exporter = exporter;
        all.stylePersistence = styles;
        all.themes = themes;
        all.watermark = std::make_shared<WatermarkService>(defaults);
        all.enhancement = std::make_shared<AIEnhancementService>();
        all.userDefaults = defaults;
        all.pasteboard = pasteboard;
        all.settings = std::make_shared<AppSettingsService>(defaults);
        all.fileDialogs = dialogs;
        all.fileReveal = reveal;
        all.appearance = appearance;
        return all;
    }

    std::shared_ptr<EditorViewModel> makeEditor() {
        return std::make_shared<EditorViewModel>(services());
    }

    std::shared_ptr<EditorViewModel> documentOn(const Image& image) {
        auto document = makeEditor();
        document->loadCapture({image, {}, {}});
        return document;
    }

    static Image picture(QSize pixels = {200, 100}) {
        QImage bitmap(pixels, QImage::Format_RGB32);
        bitmap.fill(Qt::white);
        return Image(bitmap);
    }

    /// Draws with a tool in annotation mode, which it enters where need be.
    void draw(AnnotationTool tool, QPointF from, QPointF to) {
        if (!editor->isAnnotationMode()) editor->toggleAnnotationMode();
        AnnotationViewModel& model = editor->annotationVM();
        model.set_currentTool(tool);
        drawLine(model, from, to);
        editor->synchroniseAnnotations();
    }
};

}  // namespace kestrio
