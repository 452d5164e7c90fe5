#include "library/export/FileNaming.h"

#include "library/export/QuickSave.h"

#include <gtest/gtest.h>
#include <QFile>
#include <QTemporaryDir>

namespace kestrio {
namespace {

const QDateTime moment(QDate(2026, 1, 2), QTime(3, 4, 5));

TEST(FileNaming, ExpandsAndCleansPatterns) {
    struct Row {
        const char* pattern;
        const char* name;
    };
    const Row rows[] = {
        {"{date} {time}", "2026-01-02_03-04-05"},
        {"Kestrio_{date}_{sequence}", "Kestrio_2026-01-02_007"},
        {"!!!", "Kestrio_2026-01-02_007"},
        {"", "Kestrio_2026-01-02_007"},
        {"a//b", "a_b"},
        {"a \t\n b", "a_b"},
        {"Über.uns", "ber_uns"},
        {"_-x-_", "x"},
        {"../../etc/passwd", "etc_passwd"},
        {"{sequence}{sequence}", "007007"},
        {"{other}", "other"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(formatFileName(7, moment, QString::fromUtf8(row.pattern)),
                  QString::fromUtf8(row.name))
            << row.pattern;
    }
}

TEST(FileNaming, FindsTheLowestFreeName) {
    struct Row {
        const char* pattern;
        const char* extension;
        QStringList existing;
        const char* name;
    };
    const Row rows[] = {
        {"report", "png", {}, "report"},
        {"report", ".png", {QStringLiteral("report.png")}, "report_002"},
        {"report", "png", {QStringLiteral("report.jpeg")}, "report"},
        {"{sequence}", "png", {QStringLiteral("001.png"), QStringLiteral("002.png")}, "003"},
        {"{sequence}", "png", {QStringLiteral("002.png")}, "001"},
        {"report", "", {QStringLiteral("report")}, "report_002"},
    };
    for (const Row& row : rows) {
        const QTemporaryDir folder;
        for (const QString& file : row.existing) {
            ASSERT_TRUE(QFile(folder.filePath(file)).open(QIODevice::WriteOnly));
        }
        EXPECT_EQ(uniqueFileName(folder.path(), QString::fromLatin1(row.extension), moment,
                                 QString::fromLatin1(row.pattern)),
                  QString::fromLatin1(row.name));
    }
}

TEST(FileNaming, LongNamesFitAndStayNumbered) {
    const QString extension = QStringLiteral("webp");
    for (const QString& pattern :
         {QString(300, u'a'), QString(252, u'a') + QStringLiteral("{sequence}")}) {
        QStringList names;
        for (int number = 1; number <= 3; ++number)
            names << patternFileName(number, extension, moment, pattern);
        EXPECT_EQ(names[0], QString(250, u'a') + QStringLiteral(".webp"));
        EXPECT_EQ(names[1], QString(246, u'a') + QStringLiteral("_002.webp"));
        EXPECT_EQ(names[2], QString(246, u'a') + QStringLiteral("_003.webp"));
    }
    // Cut between characters, never inside one.
    const QString wide =
        numberedFileName(QString::fromUtf8("漢").repeated(100), QStringLiteral(".png"), 2);
    EXPECT_LE(wide.toUtf8().size(), 255);
    EXPECT_TRUE(wide.endsWith(QString::fromUtf8("漢_002.png")));
}

TEST(QuickSave, TakesTheNextNameWhereOneAppears) {
    const QTemporaryDir folder;
    AppSettings settings;
    settings.defaultSavePath = folder.filePath(QStringLiteral("new/folder"));
    const auto path = [&](const char* name) {
        return settings.defaultSavePath + u'/' + QString::fromLatin1(name);
    };
    const SaveTarget target = quickSaveTarget(settings, moment, ExportFormat::jpeg);
    EXPECT_EQ(target.write("one"), path("Kestrio_2026-01-02_001.jpeg"));
    EXPECT_EQ(target.write("two"), path("Kestrio_2026-01-02_002.jpeg"));
    QFile first(path("Kestrio_2026-01-02_001.jpeg"));
    ASSERT_TRUE(first.open(QIODevice::ReadOnly));
    EXPECT_EQ(first.readAll(), "one");
}

}  // namespace
}  // namespace kestrio
