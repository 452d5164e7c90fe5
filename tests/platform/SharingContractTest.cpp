#include "platform/linux/share/ExecLine.h"
#include "platform/linux/share/XdgSharing.h"
#include "support/Contract.h"
#include "support/ScriptedSharing.h"
#include "support/Waiting.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestrio {
namespace {

/// A desktop of programs that write down what they are given.
struct Desk {
    virtual ~Desk() = default;
    virtual Sharing& sharing() = 0;
    /// Preferred over those that were installed before.
    virtual void install(const char* id, const char* name, const char* mimeType) = 0;
    virtual void uninstall(const char* id) = 0;
    virtual void setMail(bool isThere) = 0;
    /// What was opened or mailed last, each word on a line; empty before.
    virtual QString received() = 0;
};

struct ScriptedDesk : Desk {
    ScriptedSharing service;
    Sharing& sharing() override { return service; }
    void install(const char* id, const char* name, const char* mimeType) override {
        ScriptedSharing::Installed made;
        made.program = {QString::fromLatin1(id), QString::fromLatin1(name), {}};
        made.mimeTypes << QString::fromLatin1(mimeType);
        service.installed.insert(service.installed.begin(), made);
    }
    void uninstall(const char* id) override {
        std::erase_if(service.installed,
                      [id](const auto& each) { return each.program.id == QLatin1StringView(id); });
    }
    void setMail(bool isThere) override { service.hasMail = isThere; }
    QString received() override {
        const QString last = (service.opened + service.mailed).value(0);
        return last.mid(last.indexOf(u'/'));
    }
};

/// Folders of a user's own for the length of a test.
struct XdgDesk : Desk {
    QTemporaryDir folder;
    XdgSharing service;
    const QByteArray path = qgetenv("PATH");

    XdgDesk() {
        for (const char* each : {"data/applications", "system/applications", "config", "bin"})
            QDir(folder.path()).mkpath(QString::fromLatin1(each));
        qputenv("XDG_DATA_HOME", (folder.path() + QStringLiteral("/data")).toLocal8Bit());
        qputenv("XDG_DATA_DIRS", (folder.path() + QStringLiteral("/system")).toLocal8Bit());
        qputenv("XDG_CONFIG_HOME", (folder.path() + QStringLiteral("/config")).toLocal8Bit());
        qputenv("XDG_CONFIG_DIRS", "/nowhere");
        qputenv("PATH", (folder.path() + QStringLiteral("/bin:/bin:/usr/bin")).toLocal8Bit());
        script("opener");
        setMail(true);
    }
    ~XdgDesk() override {
        for (const char* name :
             {"XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"})
            qunsetenv(name);
        qputenv("PATH", path);
    }

    QString in(const QString& name) const { return folder.filePath(name); }

    void write(const QString& name, const QByteArray& text) const {
        QFile file(in(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    /// Writes its last argument down, in one step.
    void script(const char* name) const {
        const QString file = QStringLiteral("bin/") + QString::fromLatin1(name);
        write(file, "#!/bin/sh\nfor word in \"$@\"; do :; done\nprintf '%s' \"$word\" > " +
                        in(QStringLiteral("new")).toLocal8Bit() + "\nmv " +
                        in(QStringLiteral("new")).toLocal8Bit() + ' ' +
                        in(QStringLiteral("received")).toLocal8Bit() + '\n');
        QFile::setPermissions(in(file), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void entry(const QString& place, const QByteArray& lines) const {
        write(place, "[Desktop Entry]\nType=Application\n" + lines);
    }

    Sharing& sharing() override { return service; }
    void install(const char* id, const char* name, const char* mimeType) override {
        entry(QStringLiteral("data/applications/") + QString::fromLatin1(id),
              QByteArray("Name=") + name + "\nExec=opener --one %f\nMimeType=" + mimeType + ";\n");
        write(QStringLiteral("config/mimeapps.list"),
              QByteArray("[Default Applications]\n") + mimeType + '=' + id + ";\n");
    }
    void uninstall(const char* id) override {
        QFile::remove(in(QStringLiteral("data/applications/") + QString::fromLatin1(id)));
    }
    void setMail(bool isThere) override {
        if (isThere) {
            script("xdg-email");
        } else {
            // As on a desktop where the command finds no program.
            write(QStringLiteral("bin/xdg-email"), "#!/bin/sh\nexit 3\n");
        }
    }
    QString received() override {
        QFile file(in(QStringLiteral("received")));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
};

const Candidate<Desk> candidates[] = {
    candidate<Desk, ScriptedDesk>("scripted"),
    candidate<Desk, XdgDesk>("xdg"),
};

QStringList namesOf(const std::vector<SharingProgram>& programs) {
    QStringList names;
    for (const SharingProgram& each : programs)
        names << each.name;
    return names;
}

const QString png = QStringLiteral("image/png");
const QString picture = QStringLiteral("/tmp/50% off \"now\".png");

class SharingContract : public testing::TestWithParam<Candidate<Desk>> {};

TEST_P(SharingContract, OffersProgramsOfAKindAndOpensFilesWithThem) {
    const auto desk = GetParam().make();
    desk->install("reader.desktop", "Reader", "text/plain");
    desk->install("viewer.desktop", "Viewer", "image/png");
    desk->install("painter.desktop", "Painter", "image/png");
    EXPECT_EQ(namesOf(desk->sharing().programsFor(png)),
              QStringList({QStringLiteral("Painter"), QStringLiteral("Viewer")}));
    desk->sharing().openWith(QStringLiteral("viewer.desktop"), picture);
    EXPECT_TRUE(waitUntil([&] { return desk->received() == picture; }))
        << desk->received().toStdString();
    desk->uninstall("viewer.desktop");
    EXPECT_EQ(desk->sharing().programsFor(png).size(), 1U);
    EXPECT_THROW(desk->sharing().openWith(QStringLiteral("viewer.desktop"), picture), SharingError);
}

TEST_P(SharingContract, MailsFilesWhereThereIsAMailProgram) {
    const auto desk = GetParam().make();
    EXPECT_TRUE(desk->sharing().canEmail());
    runUntilDone(desk->sharing().email(picture, QStringLiteral("shot")));
    EXPECT_EQ(desk->received(), picture);
    desk->setMail(false);
    EXPECT_THROW(runUntilDone(desk->sharing().email(picture, QStringLiteral("shot"))),
                 SharingError);
}

INSTANTIATE_TEST_SUITE_P(All, SharingContract, testing::ValuesIn(candidates), candidateName);

TEST(XdgSharing, FollowsWhatTheUserChoseAndLeavesOutWhatCannotBeStarted) {
    const XdgDesk desk;
    const auto system = [&](const char* id, const QByteArray& lines) {
        desk.entry(QStringLiteral("system/applications/") + QString::fromLatin1(id),
                   QByteArray("Name=") + id + "\nMimeType=image/png;\n" + lines);
    };
    system("a.desktop", "Exec=opener %U\n");
    system("hidden.desktop", "Exec=opener\nHidden=true\n");
    system("gone.desktop", "Exec=/no/such/program %f\n");
    system("shell.desktop", "Exec=opener\nTerminal=true\n");
    system("tried.desktop", "Exec=opener\nTryExec=no-such-program\n");
    system("unwanted.desktop", "Exec=opener\n");
    desk.entry(QStringLiteral("system/applications/added.desktop"), "Name=Added\nExec=opener\n");
    // The user's own entry stands for the system's of the same name.
    desk.entry(QStringLiteral("data/applications/a.desktop"),
               "Name=Mine\nExec=\"opener\" \"a \\\\$ b\" %u\nMimeType=image/png;\n");
    desk.write(QStringLiteral("config/mimeapps.list"),
               "[Added Associations]\nimage/png=added.desktop;\n"
               "[Removed Associations]\nimage/png=unwanted.desktop;\n");
    desk.write(QStringLiteral("system/applications/mimeinfo.cache"),
               "[MIME Cache]\nimage/png=a.desktop;hidden.desktop;gone.desktop;shell.desktop;"
               "tried.desktop;unwanted.desktop;missing.desktop;\n");
    EXPECT_EQ(namesOf(desk.service.programsFor(png)),
              QStringList({QStringLiteral("Added"), QStringLiteral("Mine")}));
    EXPECT_THROW(XdgSharing().openWith(QStringLiteral("../../etc/x.desktop"), picture),
                 SharingError);
}

TEST(ExecLine, QuotesAndFieldCodesAreUndone) {
    const QString file = QStringLiteral("/a b/50%.png");
    struct Case {
        const char* exec;
        QStringList command;
    };
    const Case cases[] = {
        {"view %f", {QStringLiteral("view"), file}},
        {"view", {QStringLiteral("view"), file}},
        {"view --at=%f %i %k", {QStringLiteral("view"), QStringLiteral("--at=") + file}},
        {"\"my view\" \"a \\\" b\" %F",
         {QStringLiteral("my view"), QStringLiteral("a \" b"), file}},
        {"view %c %% %u",
         {QStringLiteral("view"), QStringLiteral("Name"), QStringLiteral("%"),
          QStringLiteral("file:///a%20b/50%25.png")}},
        {"view \"\" %f", {QStringLiteral("view"), QString(), file}},
        {"\"view", {}},
        {"", {}},
    };
    for (const Case& each : cases)
        EXPECT_EQ(commandFor(QString::fromLatin1(each.exec), file, QStringLiteral("Name")),
                  each.command)
            << each.exec;
}

}  // namespace
}  // namespace kestrio
