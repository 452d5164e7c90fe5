#include "core/AtomicFile.h"
#include "core/FileSystem.h"
#include "core/NativePath.h"
#include "core/RegularFile.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <array>
#include <csignal>
#include <thread>

namespace kestrio {
namespace {

constexpr qint64 anySize = 1 << 30;

struct AtomicFile : testing::Test {
    QTemporaryDir folder;

    QString path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }

    QStringList entries() const {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    static mode_t modeOf(const QString& path) {
        struct stat status = {};
        EXPECT_EQ(::stat(qPrintable(path), &status), 0);
        return status.st_mode & 07777;
    }

    QString numbered(int number) const {
        return folder.filePath(QStringLiteral("n%1").arg(number));
    }
};

QString reasonOf(const std::function<void()>& write) {
    try {
        write();
    } catch (const FileError& error) {
        return error.reason();
    }
    return {};
}

TEST_F(AtomicFile, ReplacesContentAndKeepsWhatBelongsToTheFile) {
    const QString file = path("a b.png"), link = path("link.png");
    replaceFile(file, "old, and longer than the new one");
    ::chmod(qPrintable(file), 0640);
    ASSERT_EQ(::symlink("a b.png", qPrintable(link)), 0);
    replaceFile(link, "new");
    EXPECT_EQ(readRegularFile(file, anySize), "new");
    EXPECT_EQ(modeOf(file), 0640u);
    EXPECT_TRUE(QFile::symLinkTarget(link).endsWith(QStringLiteral("a b.png")));
    EXPECT_EQ(entries().size(), 2);
}

TEST_F(AtomicFile, PrivateFilesAndFoldersAreTheirOwners) {
    const mode_t before = ::umask(0);
    makeFolders(path("x/y/z"), FileAccess::ownerOnly);
    replaceFile(path("x/y/z/file"), "secret", FileAccess::ownerOnly);
    replaceFile(path("shared"), "");
    ::umask(before);
    EXPECT_EQ(modeOf(path("x/y")), 0700u);
    EXPECT_EQ(modeOf(path("x/y/z/file")), 0600u);
    EXPECT_EQ(modeOf(path("shared")), 0666u);
    makeFolders(path("x/y/z"));
    EXPECT_THROW(makeFolders(path("shared/below")), FileError);
    EXPECT_THROW(makeFolders(path("shared")), FileError);
}

TEST_F(AtomicFile, AFailedWriteLeavesTheOldFileAndNothingElse) {
    replaceFile(path("kept"), "old");
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small = {1000, before.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    const QByteArray bytes(5000, 'x');
    const QString replacing = reasonOf([&] { replaceFile(path("kept"), bytes); });
    const QString creating =
        reasonOf([&] { writeNewFile([this](int n) { return numbered(n); }, bytes); });
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(replacing, QString::fromLocal8Bit(strerror(EFBIG)));
    EXPECT_EQ(creating, replacing);
    EXPECT_EQ(readRegularFile(path("kept"), anySize), "old");
    EXPECT_EQ(entries(), QStringList{QStringLiteral("kept")});
    EXPECT_EQ(reasonOf([&] { replaceFile(path("missing/file"), "x"); }),
              QString::fromLocal8Bit(strerror(ENOENT)));
    EXPECT_EQ(reasonOf([&] { replaceFile(folder.path(), "x"); }),
              QString::fromLocal8Bit(strerror(EISDIR)));
    EXPECT_EQ(reasonOf([] { replaceFile(QStringLiteral("/dev/full"), "x"); }),
              QString::fromLocal8Bit(strerror(ENOSPC)));
}

TEST_F(AtomicFile, PipesAreWrittenToAndNeverWaitedFor) {
    const QString pipe = path("pipe");
    ASSERT_EQ(::mkfifo(qPrintable(pipe), 0600), 0);
    EXPECT_THROW(replaceFile(pipe, "nobody reads this"), FileError);
    EXPECT_THROW(readRegularFile(pipe, anySize), FileError);
    QByteArray received;
    std::thread reader([&] {
        QFile file(pipe);
        if (file.open(QIODevice::ReadOnly)) received = file.readAll();
    });
    const QByteArray bytes(300'000, 'x');
    while (!reasonOf([&] { replaceFile(pipe, bytes); }).isEmpty())
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    reader.join();
    EXPECT_EQ(received, bytes);
}

TEST_F(AtomicFile, NewFilesOfManyWritersNeverMeet) {
    ASSERT_EQ(::symlink("/nonexistent/elsewhere", qPrintable(numbered(3))), 0);
    constexpr int writers = 8, each = 12;
    std::array<std::thread, writers> threads;
    for (int writer = 0; writer < writers; ++writer) {
        threads[writer] = std::thread([this, writer] {
            for (int i = 0; i < each; ++i) {
                writeNewFile([this](int n) { return numbered(n); },
                             QByteArray::number(writer * each + i));
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    QSet<QByteArray> contents;
    for (int number = 1; number <= writers * each + 1; ++number)
        if (number != 3) contents << readRegularFile(numbered(number), anySize);
    EXPECT_EQ(contents.size(), writers * each);
    EXPECT_EQ(entries().size(), writers * each + 1);
}

// A process that dies at any moment leaves the whole old file or the whole new one.
TEST_F(AtomicFile, AKillLeavesOneOfBothFiles) {
    const QByteArray old(200'000, 'o'), fresh(300'000, 'n');
    int replaced = 0;
    for (int round = 0; round < 40; ++round) {
        replaceFile(path("file"), old);
        const pid_t child = ::fork();
        if (child == 0) {
            for (;;)
                replaceFile(path("file"), fresh);
        }
        // From the first system call to some whole replacements, also on a busy machine.
        ::usleep(static_cast<useconds_t>(40 * round * round));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const QByteArray present = readRegularFile(path("file"), anySize);
        ASSERT_TRUE(present == old || present == fresh) << "round " << round;
        replaced += present == fresh;
    }
    EXPECT_GT(replaced, 0);
    // What was killed in the middle of a replacement goes with the next one.
    replaceFile(path("file"), old);
    EXPECT_EQ(entries(), QStringList{QStringLiteral("file")});
}

TEST_F(AtomicFile, NamesThatAreNoTextWorkLikeOthers) {
    const QByteArray native = QFile::encodeName(folder.path()) + "/x\xff\xe9\xf4\x8e\xba\x80.png";
    const QString name = fromNativePath(native);
    EXPECT_EQ(toNativePath(name), native);
    replaceFile(name, "content");
    struct stat status = {};
    EXPECT_EQ(::stat(native.constData(), &status), 0);
    EXPECT_EQ(readRegularFile(name, anySize), "content");
    EXPECT_EQ(fileKind(name), FileKind::regular);
    // As text of JSON and in messages to other processes.
    EXPECT_EQ(toNativePath(QString::fromUtf8(name.toUtf8())), native);
    ::unlink(native.constData());
    const QString usual = QString::fromUtf8("/tmp/日本 ü.png");
    EXPECT_EQ(fromNativePath(usual.toUtf8()), usual);
    EXPECT_EQ(toNativePath(usual), usual.toUtf8());
}

TEST(PrintableText, HasNothingThatATerminalObeys) {
    const QString text =
        printableText(fromNativePath("a\x1b[2Jb\nc\x7f\xc2\x9b"
                                     "d\xe2\x80\xae"
                                     "e\xff 日本"));
    EXPECT_EQ(text, QString::fromUtf8("a\ufffd[2Jb\ufffdc\ufffd\ufffdd\ufffde\ufffd 日本"));
}

TEST(FileSystem, PathsAreCountedFromThePresentFolder) {
    EXPECT_EQ(absolutePath(QStringLiteral("/a/b")), QStringLiteral("/a/b"));
    EXPECT_EQ(absolutePath(QStringLiteral("b")), QDir::currentPath() + QStringLiteral("/b"));
    EXPECT_EQ(folderOf(QStringLiteral("b")), QStringLiteral("."));
    EXPECT_EQ(folderOf(QStringLiteral("/b")), QStringLiteral("/"));
    EXPECT_TRUE(isWritableFolder(QDir::tempPath()));
    EXPECT_EQ(fileKind(QStringLiteral("/dev/null")), FileKind::special);
}

}  // namespace
}  // namespace kestrio
