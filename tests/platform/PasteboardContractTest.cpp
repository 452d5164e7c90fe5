#include "imaging/codecs/ImageEncoder.h"
#include "platform/OtherProgram.h"
#include "platform/PlatformServices.h"
#include "support/Contract.h"
#include "support/MemoryPasteboard.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

constexpr PasteboardKinds everything{PasteboardKind::picture, PasteboardKind::files,
                                     PasteboardKind::text};

const Candidate<Pasteboard> candidates[] = {
    candidate<Pasteboard, MemoryPasteboard>("memory"),
    {"desktop", [] { return makePlatformServices().pasteboard; }},
};

class PasteboardContract : public testing::TestWithParam<Candidate<Pasteboard>> {};

PasteboardContents contentsOf(const std::shared_ptr<Pasteboard>& pasteboard,
                              PasteboardKinds wanted = everything) {
    return runUntilDone(pasteboard->read(wanted));
}

TEST_P(PasteboardContract, HoldsTheLastThingOfWhateverKind) {
    const auto pasteboard = GetParam().make();
    QImage picture(5, 3, QImage::Format_ARGB32_Premultiplied);
    picture.fill(qRgba(10, 20, 30, 128));
    const QString text = QStringLiteral("rgb(1, 2, 3) \u00e9\u6f22");
    const QStringList paths{QStringLiteral("/tmp/a b.png"), QStringLiteral("/tmp/50% \u6f22.png")};

    ASSERT_TRUE(pasteboard->writeImage(picture, "as a file"));
    EXPECT_FALSE(pasteboard->writeImage(QImage(), {}));
    const PasteboardContents copied = contentsOf(pasteboard);
    EXPECT_EQ(copied.image.convertToFormat(picture.format()), picture);
    EXPECT_EQ(copied.png, "as a file");
    EXPECT_EQ(contentsOf(pasteboard, PasteboardKind::text).text, QString());
    const QByteArray file = encodeImage(picture, ExportFormat::png);
    ASSERT_TRUE(pasteboard->writeImage(QImage(), file));
    EXPECT_EQ(contentsOf(pasteboard).image, picture);

    ASSERT_TRUE(pasteboard->writeText(text));
    EXPECT_EQ(contentsOf(pasteboard).text, text);
    EXPECT_TRUE(contentsOf(pasteboard, PasteboardKind::picture).isEmpty());

    ASSERT_TRUE(pasteboard->writeFiles(paths));
    EXPECT_EQ(contentsOf(pasteboard).files, paths);
    EXPECT_TRUE(contentsOf(pasteboard, PasteboardKind::picture).isEmpty());
}

TEST_P(PasteboardContract, KnowsItsOwnFromWhatOthersCopied) {
    const auto pasteboard = GetParam().make();
    ASSERT_TRUE(pasteboard->writeText(QStringLiteral("own")));
    const quint32 self = pasteboard->owner();
    EXPECT_NE(self, 0U);
    EXPECT_TRUE(pasteboard->ownsContents());
    std::optional<OtherProgram> other;
    if (auto* memory = dynamic_cast<MemoryPasteboard*>(pasteboard.get())) {
        memory->setForeign({{}, {}, {}, QStringLiteral("theirs")});
    } else {
        other.emplace("UTF8_STRING", "theirs");
    }
    EXPECT_FALSE(pasteboard->ownsContents());
    EXPECT_NE(pasteboard->owner(), self);
    EXPECT_EQ(contentsOf(pasteboard).text, QStringLiteral("theirs"));
    ASSERT_TRUE(pasteboard->writeText(QStringLiteral("own")));
    EXPECT_TRUE(pasteboard->ownsContents());
}

INSTANTIATE_TEST_SUITE_P(All, PasteboardContract, testing::ValuesIn(candidates), candidateName);

}  // namespace
}  // namespace kestrio
