#include "library/FileNaming.h"

#include "library/QuickSave.h"

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

TEST(QuickSave, UsesFolderPatternAndFormat) {
    const QTemporaryDir folder;
    AppSettings settings;
    settings.defaultSavePath = folder.path();
    EXPECT_EQ(quickSavePath(settings, moment, ExportFormat::jpeg),
              folder.filePath(QStringLiteral("Kestrio_2026-01-02_001.jpeg")));
}

}  // namespace
}  // namespace kestrio
