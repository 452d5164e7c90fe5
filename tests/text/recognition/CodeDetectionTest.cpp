#include "text/recognition/CodeDetection.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

TEST(CodeDetection, KnowsCodeByMarkersIndentationAndSymbols) {
    for (const char* code :
         {"FUNC run", "return 1", "a==b", "x || y", "name: String", "#include <vector>",
          "    plain words", "\tplain words", "a[i] = 2", "{[()]}", "meet me if you can"}) {
        EXPECT_TRUE(isCode(QString::fromUtf8(code))) << code;
    }
    for (const char* prose :
         {"", "Plain words", "a = b", "(((((", "   three spaces",
          "one more line with words (and more)", "\u4f60\u597d\uff0c\u4e16\u754c"}) {
        EXPECT_FALSE(isCode(QString::fromUtf8(prose))) << prose;
    }
}

TEST(CodeDetection, MoreThanATenthOfSymbolsIsCode) {
    EXPECT_FALSE(isCode(QStringLiteral("ninewords:")));  // one of ten is not more
    EXPECT_TRUE(isCode(QStringLiteral("eightxyz:")));
    // Characters count, and not the units that hold them.
    EXPECT_TRUE(isCode(QStringLiteral("\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600:")));
}

TEST(CodeDetection, NamesTheLanguageByTheFirstRuleThatHolds) {
    const std::pair<const char*, const char*> cases[] = {
        {"func run() -> Int", "swift"},
        {"guard let x", "swift"},
        {"def run(self):", "python"},
        {"import os", "python"},
        {"const f = () => 1", "javascript"},
        {"function f() {", "javascript"},
        {"let name: string", "typescript"},
        {"private int x;", "java"},
        {"import java.util.List;", ""},
        {"#include <vector>", "c"},
        {"std::cout << x", "cpp"},
        {"fn main() -> u8", "rust"},
        {"let mut x = 1", "rust"},
        {"package main func main", "go"},
        {"def f() {:", ""},
        {"plain words", ""},
    };
    for (const auto& [text, language] : cases)
        EXPECT_EQ(detectLanguage(QString::fromLatin1(text)).value_or(QString()),
                  QString::fromLatin1(language))
            << text;
}

TEST(CodeDetection, BlocksKeepTextPlaceAndIndentation) {
    const std::vector<OCRResult> lines{
        {QStringLiteral("Title"), QRectF(0, 0.9, 1, 0.1), 1, {}},
        {QStringLiteral(" \t  def run():"), QRectF(0, 0.8, 1, 0.1), 1, {}},
    };
    const std::vector<CodeBlock> blocks = detectCodeBlocks(lines);
    ASSERT_EQ(blocks.size(), 1U);
    EXPECT_EQ(blocks[0].text, lines[1].text);
    EXPECT_EQ(blocks[0].bounds, lines[1].boundingBox);
    EXPECT_EQ(blocks[0].language, QStringLiteral("python"));
    EXPECT_EQ(blocks[0].indentationLevel, 4);
}

}  // namespace
}  // namespace kestrio
