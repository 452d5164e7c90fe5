#pragma once

#include "app/CaptureFixture.h"

#include "app/shell/DraftRestoring.h"
#include "app/shell/Quitting.h"
#include "editor/views/EditorController.h"
#include "support/MemoryPasteboard.h"
#include "support/RecordingFileReveal.h"
#include "support/ScriptedAppearance.h"
#include "support/ScriptedFileDialogs.h"
#include "support/ScriptedRenderer.h"
#include "support/ScriptedTextRecognizer.h"
#include "text/recognition/OCRService.h"

#include <QDir>
#include <QGuiApplication>
#include <QWindow>

namespace kestrio {

/// Its files take as long as the test wants.
struct SlowSaver : ScriptedExporter {
    std::optional<Completion<>> saveGate;

    Task<SavedFile> saveImage(Image image, SaveTarget target, ExportFormat format,
                              EncodeHooks hooks) override {
        if (saveGate) {
            const Completion<> opened = *saveGate;
            co_await opened;
        }
        auto saving =
            ScriptedExporter::saveImage(std::move(image), std::move(target), format, hooks);
        co_return co_await saving;
    }
};

/// A program whose editors are real, and whose files and alerts are the test's.
struct EditorsFixture : testing::Test {
    std::shared_ptr<MemoryUserDefaults> defaults = std::make_shared<MemoryUserDefaults>();
    std::shared_ptr<ScriptedRenderer> renderer = std::make_shared<ScriptedRenderer>();
    std::shared_ptr<SlowSaver> exporter = std::make_shared<SlowSaver>();
    std::shared_ptr<AppSettingsService> settings = std::make_shared<AppSettingsService>(defaults);
    std::shared_ptr<ActivationState> activation = std::make_shared<ActivationState>();
    std::shared_ptr<ScriptedAlerts> alerts = std::make_shared<ScriptedAlerts>();
    std::shared_ptr<RecordingToasts> toasts = std::make_shared<RecordingToasts>();
    QTemporaryDir folder;
    QString draftsPath = folder.filePath(QStringLiteral("drafts"));
    std::shared_ptr<DraftService> drafts = std::make_shared<DraftService>(draftsPath);
    std::shared_ptr<ScriptedTextRecognizer> recognizer = std::make_shared<ScriptedTextRecognizer>();
    std::shared_ptr<EditorWindowCoordinator> editors = makeEditors();
    int endings = 0;
    std::optional<Quitting> quitting;

    EditorsFixture() {
        AppSettings chosen = settings->load();
        chosen.defaultSavePath = folder.path();
        settings->save(chosen);
        restart();
    }

    EditorServices services() {
        EditorServices all;
        all.imageRenderer = renderer;
        all.exporter = exporter;
        all.stylePersistence = std::make_shared<EditorStylePersistenceService>(defaults);
        all.themes = std::make_shared<ThemeStorageService>(defaults);
        all.watermark = std::make_shared<WatermarkService>(defaults);
        all.enhancement = std::make_shared<AIEnhancementService>();
        all.userDefaults = defaults;
        all.pasteboard = std::make_shared<MemoryPasteboard>();
        all.settings = settings;
        all.fileDialogs = std::make_shared<ScriptedFileDialogs>();
        all.fileReveal = std::make_shared<RecordingFileReveal>();
        all.appearance = std::make_shared<ScriptedAppearance>();
        all.drafts = drafts;
        all.ocr = std::make_shared<OCRService>(recognizer);
        return all;
    }

    int draftCount() const {
        drafts->settle();
        return static_cast<int>(
            QDir(draftsPath).entryList(QDir::Dirs | QDir::NoDot | QDir::NoDotDot).size());
    }

    std::shared_ptr<EditorWindowCoordinator> makeEditors() {
        return std::make_shared<EditorWindowCoordinator>([this] { return services(); }, activation);
    }

    /// As a signal ends the program and the user starts it again.
    void restart() {
        editors->writeDrafts();
        quitting.reset();
        editors = makeEditors();
        quitting.emplace(Quitting::Collaborators{editors, settings, alerts, toasts},
                         [this] { ++endings; });
        drafts->settle();
    }

    EditorViewModel& open(const char* name) {
        QImage bitmap(64, 48, QImage::Format_RGB32);
        bitmap.fill(Qt::darkCyan);
        CapturedImage captured;
        captured.image = Image(bitmap);
        editors->open(captured, QString::fromLatin1(name));
        return *editors->currentEditorViewModel();
    }

    static std::vector<QWindow*> windows() {
        std::vector<QWindow*> shown;
        for (QWindow* each : QGuiApplication::topLevelWindows())
            if (each->isVisible()) shown.push_back(each);
        return shown;
    }

    /// Answers the question of the only window by one of its operations.
    static void answerClosing(const char* operation) {
        auto* const controller =
            windows().front()->property("controller").value<EditorController*>();
        QMetaObject::invokeMethod(controller->closing(), operation);
    }

    static void runEvents() {
        for (int turn = 0; turn < 50; ++turn)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 2);
    }
};

}  // namespace kestrio
