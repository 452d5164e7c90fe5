#include "app/cli/RenderPlan.h"

#include "app/cli/CommandLine.h"

#include <gtest/gtest.h>
#include <unistd.h>
#include <QFile>
#include <QTemporaryDir>

namespace kestrio {
namespace {

void touch(const QString& path) {
    ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly));
}

TEST(RenderPlan, TheFormatComesFromTheOptionElseFromTheName) {
    struct Row {
        const char* output;
        std::optional<ExportFormat> asked;
        ExportFormat planned;
    };
    const Row rows[] = {
        {"/x/a.png", std::nullopt, ExportFormat::png},
        {"/x/a.JPG", std::nullopt, ExportFormat::jpeg},
        {"/x/a.webp", ExportFormat::png, ExportFormat::png},
        {"/dev/full", ExportFormat::webp, ExportFormat::webp},
    };
    for (const Row& row : rows) {
        const auto jobs = planRender({QStringLiteral("/in.png")},
                                     {QString::fromLatin1(row.output), row.asked}, {});
        ASSERT_EQ(jobs.size(), 1u);
        EXPECT_EQ(jobs[0].format, row.planned);
        EXPECT_EQ(jobs[0].output.path(), QString::fromLatin1(row.output));
    }
}

TEST(RenderPlan, FoldersKeepNamesAndNeverOverwrite) {
    const QTemporaryDir folder;
    touch(folder.filePath(QStringLiteral("a.png")));
    const auto jobs = planRender({QStringLiteral("/one/a.jpg"), QStringLiteral("/two/a.png"),
                                  QStringLiteral("/two/日本.v2.png")},
                                 {folder.path(), ExportFormat::png}, {});
    ASSERT_EQ(jobs.size(), 3u);
    const char* const names[] = {"a_002.png", "a_003.png", "日本.v2.png"};
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(jobs[i].output.write("x"), folder.filePath(QString::fromUtf8(names[i])));
}

TEST(RenderPlan, NonsenseIsWrongUsage) {
    const QTemporaryDir folder;
    const QString picture = folder.filePath(QStringLiteral("p.png"));
    touch(picture);
    const QString other = folder.filePath(QStringLiteral("q.png"));
    EXPECT_THROW(planRender({}, {other, {}}, {}), UsageError);
    EXPECT_THROW(planRender({picture, picture}, {other, {}}, {}), UsageError);
    EXPECT_THROW(planRender({picture}, {folder.filePath(QStringLiteral("q.tiff")), {}}, {}),
                 UsageError);
    const QString link = folder.filePath(QStringLiteral("hard.png"));
    ASSERT_EQ(::link(qPrintable(picture), qPrintable(link)), 0);
    for (const QString& same : {folder.filePath(QStringLiteral("./p.png")), link})
        EXPECT_THROW(planRender({picture}, {same, {}}, {}), UsageError);
}

}  // namespace
}  // namespace kestrio
