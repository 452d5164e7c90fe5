#include "platform/linux/XdgLoginItem.h"
#include "support/ScriptedLoginItem.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestrio {
namespace {

struct ScriptedDesk {
    ScriptedLoginItem service;
    void refuse() { service.refusal = QStringLiteral("no"); }
};

/// A folder of settings of its own, in which "autostart" may be in the way.
struct XdgDesk {
    XdgLoginItem service;
    QTemporaryDir folder;
    QByteArray before = qgetenv("XDG_CONFIG_HOME");

    XdgDesk() { qputenv("XDG_CONFIG_HOME", folder.path().toLocal8Bit()); }
    ~XdgDesk() { qputenv("XDG_CONFIG_HOME", before); }

    QString entry() const { return folder.filePath(QStringLiteral("autostart/kestrio.desktop")); }
    QByteArray read() const {
        QFile file(entry());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    void write(const QByteArray& text) const {
        QFile file(entry());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    void refuse() const {
        QDir(folder.filePath(QStringLiteral("autostart"))).removeRecursively();
        QFile file(folder.filePath(QStringLiteral("autostart")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    }
};

template <typename Desk>
class LoginItemContract : public testing::Test {};

using Desks = testing::Types<ScriptedDesk, XdgDesk>;
TYPED_TEST_SUITE(LoginItemContract, Desks);

TYPED_TEST(LoginItemContract, IsOnUntilItIsTakenBack) {
    TypeParam desk;
    LoginItem& item = desk.service;
    EXPECT_FALSE(item.isRegistered());
    item.unregisterItem();
    item.registerItem();
    item.registerItem();
    EXPECT_TRUE(item.isRegistered());
    item.unregisterItem();
    EXPECT_FALSE(item.isRegistered());
}

TYPED_TEST(LoginItemContract, SaysWhyItCannotBeChanged) {
    TypeParam desk;
    desk.refuse();
    LoginItem& item = desk.service;
    try {
        item.registerItem();
        ADD_FAILURE();
    } catch (const LoginItemError& error) {
        EXPECT_FALSE(error.errorDescription().isEmpty());
    }
    EXPECT_FALSE(item.isRegistered());
}

TEST(XdgLoginItem, NamesThisProgram) {
    XdgDesk desk;
    desk.service.registerItem();
    const QString program = QCoreApplication::applicationFilePath();
    EXPECT_TRUE(desk.read().startsWith("[Desktop Entry]\nType=Application\n"));
    EXPECT_TRUE(desk.read().contains("\nExec=\"" + program.toUtf8() + "\"\n"));
}

TEST(XdgLoginItem, IsOffWhereTheDesktopsSettingsSaySo) {
    XdgDesk desk;
    desk.service.registerItem();
    const QByteArray entry = desk.read();
    for (const char* line : {"Hidden=true\n", "X-GNOME-Autostart-enabled = false\n"}) {
        desk.write(entry + line);
        EXPECT_FALSE(desk.service.isRegistered()) << line;
    }
    desk.write(entry + "Hidden=false\n");
    EXPECT_TRUE(desk.service.isRegistered());
}

TEST(XdgLoginItem, QuotesPaths) {
    EXPECT_EQ(quotedForExec(QStringLiteral("/opt/a b/50%")), QStringLiteral("\"/opt/a b/50%%\""));
    EXPECT_EQ(quotedForExec(QStringLiteral("a\"b$c`d\\e")),
              QStringLiteral("\"a\\\\\"b\\\\$c\\\\`d\\\\\\\\e\""));
}

}  // namespace
}  // namespace kestrio
