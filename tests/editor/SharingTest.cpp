#include "editor/EditorFixture.h"

#include "editor/output/DocumentSharing.h"
#include "editor/output/SharedFiles.h"
#include "support/ScriptedSharing.h"

#include <QDir>
#include <QTemporaryDir>

namespace kestrio {
namespace {

struct SharingTest : EditorFixture {
    QTemporaryDir cache;
    const QByteArray cacheBefore = qgetenv("XDG_CACHE_HOME");
    std::shared_ptr<ScriptedSharing> programs = std::make_shared<ScriptedSharing>();
    std::unique_ptr<DocumentSharing> sharing;

    SharingTest() {
        qputenv("XDG_CACHE_HOME", cache.path().toLocal8Bit());
        EditorServices all = services();
        all.sharing = programs;
        programs->installed = {{{QStringLiteral("viewer"), QStringLiteral("Viewer"), {}},
                                {QStringLiteral("image/png")}}};
        sharing = std::make_unique<DocumentSharing>(*editor, all, QStringLiteral("my / shot"));
        editor->loadCapture({picture()});
        editor->rotateClockwise();
    }
    ~SharingTest() override { qputenv("XDG_CACHE_HOME", cacheBefore); }

    static void runEvents() {
        for (int turn = 0; turn < 20; ++turn)
            QCoreApplication::processEvents();
    }
};

TEST_F(SharingTest, EachWayGetsAFileOfTheDocumentsName) {
    ASSERT_EQ(sharing->programs().size(), 1U);
    sharing->openWith(QStringLiteral("viewer"));
    runEvents();
    const QString path = exporter->savedPaths.value(0);
    EXPECT_EQ(QFileInfo(path).fileName(), u"my - shot.png");
    EXPECT_TRUE(path.startsWith(cache.path()));
    EXPECT_EQ(programs->opened, QStringList(QStringLiteral("viewer ") + path));
    EXPECT_FALSE(editor->outputModel().hasUnexportedChanges()) << "the picture is elsewhere now";
    sharing->email();
    runEvents();
    EXPECT_EQ(programs->mailed,
              QStringList(QStringLiteral("my / shot ") + exporter->savedPaths.value(1)));
    sharing->copyFile();
    runEvents();
    EXPECT_EQ(pasteboard->contents().files, QStringList(exporter->savedPaths.value(2)));
}

TEST_F(SharingTest, OneAtATimeAndFailuresAreTold) {
    renderer->gate.emplace();
    sharing->copyFile();
    EXPECT_TRUE(sharing->isSharing());
    sharing->copyFile();
    EXPECT_EQ(editor->toastMessage(), QStringLiteral("The picture is still being made"));
    renderer->gate->succeed();
    runEvents();
    EXPECT_FALSE(sharing->isSharing());
    EXPECT_EQ(renderer->requests.size(), 1U);
    renderer->gate.reset();
    programs->installed.clear();
    sharing->openWith(QStringLiteral("viewer"));
    runEvents();
    EXPECT_TRUE(editor->errorMessage()->startsWith(QStringLiteral("Share failed: ")));
    EXPECT_FALSE(sharing->isSharing());
    editor->set_errorMessage(std::nullopt);
    const auto saved = exporter->savedPaths;
    programs->hasMail = false;
    sharing->email();
    EXPECT_TRUE(editor->errorMessage()->contains(QStringLiteral("mail program")));
    EXPECT_EQ(exporter->savedPaths, saved) << "nothing is made in vain";
}

TEST_F(SharingTest, NothingIsSharedWhileBlursAreHidden) {
    draw(AnnotationTool::blur, {10, 10}, {80, 60});
    editor->annotationVM().toggleVisibility();
    sharing->copyFile();
    runEvents();
    EXPECT_TRUE(editor->errorMessage());
    EXPECT_TRUE(exporter->savedPaths.isEmpty());
}

TEST_F(SharingTest, FilesAreNeverReplacedAndGoAfterAWeek) {
    const auto write = [](const QString& path, int daysAgo) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("x");
        file.flush();
        file.setFileTime(QDateTime::currentDateTime().addDays(-daysAgo),
                         QFileDevice::FileModificationTime);
    };
    const QString first = newSharedFile(QStringLiteral("../shot"), QStringLiteral("png"));
    EXPECT_EQ(QFileInfo(first).fileName(), u"-shot.png");
    write(first, 1);
    const QString second = newSharedFile(QStringLiteral("../shot"), QStringLiteral("png"));
    EXPECT_NE(second, first);
    write(second, 8);
    EXPECT_EQ(newSharedFile(QStringLiteral("../shot"), QStringLiteral("png")), second);
    EXPECT_TRUE(QFileInfo::exists(first));
    EXPECT_FALSE(newSharedFile(QStringLiteral("..."), QStringLiteral("png")).isEmpty());
}

}  // namespace
}  // namespace kestrio
