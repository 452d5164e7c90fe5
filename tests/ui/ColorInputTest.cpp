#include "ui/ColorInput.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

TEST(ColorInput, ReadsHexDigits) {
    const char* const length = "Use 3 or 6 hex digits";
    const char* const characters = "Invalid characters";
    struct Case {
        const char *text, *read, *message;
    };
    const Case cases[] = {
        {"#ABC", "#aabbcc", ""},
        {"a0b1C2", "#a0b1c2", ""},
        {" #123456 ", "#123456", ""},
        {"", nullptr, ""},
        {"#", nullptr, ""},
        {"ABCD", nullptr, length},
        {"GGG", nullptr, characters},
        {"##FFF0", nullptr, length},
        {"##FF", nullptr, characters},
        {"##ABC", nullptr, length},
        {"##ABCDE", nullptr, characters},
        {"12345678", nullptr, length},
        {"12 456", nullptr, characters},
    };
    for (const Case& each : cases) {
        const auto result = readHexInput(QString::fromLatin1(each.text));
        EXPECT_EQ(result.message.toStdString(), each.message) << each.text;
        ASSERT_EQ(result.color.has_value(), each.read != nullptr) << each.text;
        if (each.read) {
            EXPECT_EQ(result.color->toQColor().name().toStdString(), each.read) << each.text;
            EXPECT_EQ(result.color->alpha, 1);
        }
    }
}

TEST(ColorInput, ReadsThreeNumbers) {
    const auto read = [](const char* red) {
        return readRgbInput(QString::fromLatin1(red), u"0", u" 7 ");
    };
    EXPECT_EQ(read("255"), (CodableColor{1, 0, 7 / 255.0, 1}));
    for (const char* bad : {"", "256", "-1", "1.5", "x", "99999999999"})
        EXPECT_FALSE(read(bad)) << bad;
}

}  // namespace
}  // namespace kestrio
