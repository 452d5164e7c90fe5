#include "platform/FakeFileManager.h"
#include "platform/PrivateBus.h"
#include "platform/linux/DBusFileReveal.h"
#include "support/Contract.h"
#include "support/RecordingFileReveal.h"
#include "support/Waiting.h"

#include <QDesktopServices>
#include <QDir>
#include <QUrl>

namespace kestrio {
namespace {

const QString managerName = QStringLiteral("org.freedesktop.FileManager1");
const QString managerPath = QStringLiteral("/org/freedesktop/FileManager1");

/// A service beside what it has made the desktop show.
struct Desktop {
    virtual ~Desktop() = default;
    virtual FileReveal& reveal() = 0;
    virtual QStringList shown() const = 0;
};

struct RecordedDesktop : Desktop {
    RecordingFileReveal service;
    FileReveal& reveal() override { return service; }
    QStringList shown() const override { return service.revealed; }
};

struct BusDesktop : Desktop {
    PrivateBus bus;
    FakeFileManager manager;
    DBusFileReveal service{bus.address()};

    BusDesktop() { bus.offer(managerName, managerPath, &manager); }
    FileReveal& reveal() override { return service; }
    QStringList shown() const override {
        QStringList paths;
        for (const QString& uri : manager.shown)
            paths << QUrl(uri).toLocalFile();
        return paths;
    }
};

const Candidate<Desktop> candidates[] = {
    candidate<Desktop, RecordedDesktop>("recording"),
    candidate<Desktop, BusDesktop>("bus"),
};

class FileRevealContract : public testing::TestWithParam<Candidate<Desktop>> {};

TEST_P(FileRevealContract, ShowsFilesByTheirAbsolutePath) {
    const auto desktop = GetParam().make();
    const QStringList paths{QStringLiteral("/tmp/50% of #1 \u00e9\u6f22?.png"),
                            QDir::current().absoluteFilePath(QStringLiteral("near.png"))};
    desktop->reveal().reveal(paths[0]);
    desktop->reveal().reveal(QStringLiteral("near.png"));
    EXPECT_TRUE(waitUntil([&] { return desktop->shown().size() == paths.size(); }));
    EXPECT_EQ(desktop->shown(), paths);
}

INSTANTIATE_TEST_SUITE_P(All, FileRevealContract, testing::ValuesIn(candidates), candidateName);

TEST(FileReveal, OpensTheFolderWhereNoViewerAnswers) {
    FakeFolderOpener opener;
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &opener, "open");
    const PrivateBus bus;
    DBusFileReveal(bus.address()).reveal(QStringLiteral("/tmp/a folder/shot.png"));
    DBusFileReveal(QStringLiteral("unix:path=/nowhere")).reveal(QStringLiteral("/tmp/shot.png"));
    EXPECT_TRUE(waitUntil([&] { return opener.opened.size() == 2; }));
    opener.opened.sort();
    EXPECT_EQ(opener.opened,
              (QStringList{QStringLiteral("/tmp"), QStringLiteral("/tmp/a folder")}));
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    QDBusConnection::disconnectFromBus(QStringLiteral("unix:path=/nowhere"));
}

}  // namespace
}  // namespace kestrio
