#include "EditorFixture.h"
#include "editor/output/ExportOptions.h"

#include <QDeadlineTimer>
#include <QTemporaryDir>

namespace kestrio {
namespace {

struct ExportSheet : EditorFixture {
    QTemporaryDir folder;
    std::unique_ptr<ExportOptions> options;

    void SetUp() override {
        AppSettings settings;
        settings.defaultSavePath = folder.path();
        settings.defaultExportFormat = ExportFormat::jpeg;
        settings.fileNamingPattern = QStringLiteral("shot_{sequence}");
        AppSettingsService(defaults).save(settings);
        editor->loadCapture({picture()});
        options = std::make_unique<ExportOptions>(*editor, services());
    }

    /// Until the question is there: the folder is looked at in the background.
    void ask() {
        const auto asked = dialogs->saveRequests.size();
        options->exportPicture();
        QDeadlineTimer limit(2000);
        while (dialogs->saveRequests.size() == asked && !limit.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }

    void exportTo(const QString& name) {
        ask();
        dialogs->answer(folder.filePath(name));
        settle();
    }

    static void settle() {
        for (int i = 0; i < 20; ++i)
            QCoreApplication::processEvents();
    }
};

TEST_F(ExportSheet, AsksInTheUsersWayAndTellsWhereThePictureWent) {
    EXPECT_EQ(options->selectedFormat(), ExportFormat::jpeg);
    options->set_selectedFormat(ExportFormat::webp);
    options->exportPicture();
    ask();
    settle();
    ASSERT_EQ(dialogs->saveRequests.size(), 1u) << "one question at a time";
    EXPECT_EQ(dialogs->saveRequests[0].folder, folder.path());
    EXPECT_EQ(dialogs->saveRequests[0].suggestedName, QStringLiteral("shot_001.webp"));
    EXPECT_EQ(options->state(), ExportState::idle);
    const QString path = folder.filePath(QStringLiteral("mine.webp"));
    dialogs->answer(path);
    settle();
    EXPECT_EQ(options->state(), ExportState::success);
    EXPECT_EQ(exporter->savedPaths, QStringList{path});
    options->reveal();
    EXPECT_EQ(reveal->revealed, QStringList{path});
    options->restart();
    EXPECT_EQ(options->state(), ExportState::idle);
}

TEST_F(ExportSheet, ADismissedQuestionAndACancelledExportEndIdle) {
    ask();
    dialogs->dismiss();
    settle();
    EXPECT_EQ(options->state(), ExportState::idle);

    exporter->saveFailure = ExportError::userCancelled();
    exportTo(QStringLiteral("a.jpeg"));
    EXPECT_EQ(options->state(), ExportState::idle);
    EXPECT_EQ(options->errorMessage(), QString());
    EXPECT_FALSE(editor->outputModel().isExporting());
}

TEST_F(ExportSheet, AFailureIsToldAndTheNextTrySucceeds) {
    const QString path = folder.filePath(QStringLiteral("a.jpeg"));
    exporter->saveFailure = ExportError::fileWriteFailed(path, QStringLiteral("No space left"));
    exportTo(QStringLiteral("a.jpeg"));
    EXPECT_EQ(options->state(), ExportState::failure);
    EXPECT_EQ(options->errorMessage(),
              QStringLiteral("Failed to write file: %1 (No space left)").arg(path));
    exporter->saveFailure.reset();
    exportTo(QStringLiteral("a.jpeg"));
    EXPECT_EQ(options->state(), ExportState::success);
    EXPECT_EQ(options->errorMessage(), QString());
}

TEST_F(ExportSheet, ABusySheetTakesNoOtherExportAndMayGoMeanwhile) {
    renderer->gate.emplace();
    exportTo(QStringLiteral("a.jpeg"));
    EXPECT_EQ(options->state(), ExportState::exporting);
    options->exportPicture();
    options->restart();
    EXPECT_EQ(options->state(), ExportState::exporting);
    EXPECT_EQ(dialogs->saveRequests.size(), 1u);
    options.reset();
    renderer->gate->succeed();
    settle();
    EXPECT_FALSE(editor->outputModel().isExporting());
}

TEST_F(ExportSheet, AFolderThatIsGoneIsReplacedByHome) {
    ASSERT_TRUE(folder.remove());
    ask();
    ASSERT_EQ(dialogs->saveRequests.size(), 1u);
    EXPECT_EQ(dialogs->saveRequests.at(0).folder, QDir::homePath());
    dialogs->dismiss();
    settle();
}

}  // namespace
}  // namespace kestrio
