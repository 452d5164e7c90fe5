#include "core/UserDefaults.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <QFile>
#include <QTemporaryDir>

namespace kestrio {
namespace {

void fill(UserDefaults& defaults) {
    defaults.setData(QStringLiteral("com.kestrio.blob"), R"({"a":"ü, \" = ; %"})");
    defaults.setString(QStringLiteral("com.kestrio.text"), QStringLiteral("a,b; ünïcode"));
    defaults.setStringArray(QStringLiteral("com.kestrio.list"), {QStringLiteral("one")});
    defaults.setBoolean(QStringLiteral("com.kestrio.flag"), true);
    defaults.setBoolean(QStringLiteral("com.kestrio.gone"), true);
    defaults.remove(QStringLiteral("com.kestrio.gone"));
    defaults.synchronise();
}

void check(const UserDefaults& defaults) {
    EXPECT_EQ(defaults.data(QStringLiteral("com.kestrio.blob")),
              QByteArray(R"({"a":"ü, \" = ; %"})"));
    EXPECT_EQ(defaults.string(QStringLiteral("com.kestrio.text")), QStringLiteral("a,b; ünïcode"));
    EXPECT_EQ(defaults.stringArray(QStringLiteral("com.kestrio.list")),
              QStringList{QStringLiteral("one")});
    EXPECT_EQ(defaults.boolean(QStringLiteral("com.kestrio.flag")), true);
    EXPECT_FALSE(defaults.boolean(QStringLiteral("com.kestrio.gone")));
    EXPECT_FALSE(defaults.data(QStringLiteral("com.kestrio.never")));
    EXPECT_FALSE(defaults.boolean(QStringLiteral("com.kestrio.text")));
}

TEST(UserDefaults, EveryKindOfValueIsKeptInMemoryAndOnDisk) {
    MemoryUserDefaults memory;
    fill(memory);
    check(memory);

    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("deep/kestrio.ini"));
    const mode_t before = ::umask(0);
    {
        IniUserDefaults ini(path);
        fill(ini);
    }
    ::umask(before);
    check(IniUserDefaults(path));
    // Pictures and texts of the user's are in it.
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_FALSE(QFile::permissions(path) & others);
}

}  // namespace
}  // namespace kestrio
