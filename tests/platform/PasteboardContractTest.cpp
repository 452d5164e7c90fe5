#include "platform/PlatformServices.h"
#include "support/MemoryPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

#include <gtest/gtest.h>

namespace kestrio {
namespace {

struct Candidate {
    const char* name;
    std::shared_ptr<Pasteboard> (*make)();
};

const Candidate candidates[] = {
    {"memory",
     []() -> std::shared_ptr<Pasteboard> { return std::make_shared<MemoryPasteboard>(); }},
    {"desktop", [] { return makePlatformServices().pasteboard; }},
};

class PasteboardContract : public testing::TestWithParam<Candidate> {};

TEST_P(PasteboardContract, HoldsTheLastPictureUntilItIsCleared) {
    const auto pasteboard = GetParam().make();
    QImage picture(5, 3, QImage::Format_ARGB32_Premultiplied);
    picture.fill(qRgba(10, 20, 30, 128));
    pasteboard->clearContents();
    EXPECT_TRUE(pasteboard->readImage().isNull());
    ASSERT_TRUE(pasteboard->writeImage(picture, {}));
    EXPECT_EQ(pasteboard->readImage().convertToFormat(picture.format()), picture);
    EXPECT_FALSE(pasteboard->writeImage(QImage(), {}));
    pasteboard->clearContents();
    EXPECT_TRUE(pasteboard->readImage().isNull());
}

TEST_P(PasteboardContract, TextsAndPicturesTakeEachOthersPlace) {
    const auto pasteboard = GetParam().make();
    const QString text = QStringLiteral("rgb(1, 2, 3) \u00e9\u6f22");
    QImage picture(2, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(pasteboard->writeImage(picture, {}));
    EXPECT_EQ(pasteboard->readText(), QString());
    ASSERT_TRUE(pasteboard->writeText(text));
    EXPECT_EQ(pasteboard->readText(), text);
    EXPECT_TRUE(pasteboard->readImage().isNull());
    pasteboard->clearContents();
    EXPECT_EQ(pasteboard->readText(), QString());
}

TEST_P(PasteboardContract, TellsOfLocalFilesOnly) {
    const auto pasteboard = GetParam().make();
    const QStringList paths{QStringLiteral("/tmp/a b.png"), QStringLiteral("/tmp/50% \u6f22.png")};
    if (auto* memory = dynamic_cast<MemoryPasteboard*>(pasteboard.get())) {
        memory->setFiles(paths);
    } else {
        auto* content = new QMimeData;
        QList<QUrl> urls{QUrl(QStringLiteral("https://example.org/shot.png"))};
        for (const QString& path : paths)
            urls << QUrl::fromLocalFile(path);
        content->setUrls(urls);
        QGuiApplication::clipboard()->setMimeData(content);
    }
    EXPECT_EQ(pasteboard->readFiles(), paths);
    ASSERT_TRUE(pasteboard->writeText(QStringLiteral("/tmp/a b.png")));
    EXPECT_EQ(pasteboard->readFiles(), QStringList());
}

TEST_P(PasteboardContract, HoldsFiles) {
    const auto pasteboard = GetParam().make();
    const QStringList paths{QStringLiteral("/tmp/50% \u6f22.png")};
    ASSERT_TRUE(pasteboard->writeText(QStringLiteral("before")));
    ASSERT_TRUE(pasteboard->writeFiles(paths));
    EXPECT_EQ(pasteboard->readFiles(), paths);
    EXPECT_TRUE(pasteboard->ownsContents());
    EXPECT_TRUE(pasteboard->readImage().isNull());
}

INSTANTIATE_TEST_SUITE_P(All, PasteboardContract, testing::ValuesIn(candidates),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace kestrio
