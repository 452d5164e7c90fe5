#include "library/color/ColorFormat.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

TEST(ColorText, WritesAllFormats) {
    struct Case {
        CodableColor color;
        const char *hex, *rgb, *hsl;
    };
    const Case cases[] = {
        {{1, 0, 0, 1}, "#FF0000", "rgb(255, 0, 0)", "hsl(0, 100%, 50%)"},
        {{1, 0, 0, 0.5}, "#FF000080", "rgba(255, 0, 0, 0.50)", "hsla(0, 100%, 50%, 0.50)"},
        {{0.5, 0.5, 0.5, 1}, "#808080", "rgb(128, 128, 128)", "hsl(0, 0%, 50%)"},
        {{1, 1, 1, 1}, "#FFFFFF", "rgb(255, 255, 255)", "hsl(0, 0%, 100%)"},
        {{0.2, 0.4, 0.6, 1}, "#336699", "rgb(51, 102, 153)", "hsl(210, 50%, 40%)"},
        {{0.2, 0.8, 0.2, 0}, "#33CC3300", "rgba(51, 204, 51, 0.00)", "hsla(120, 60%, 50%, 0.00)"},
        {{1, 0, 0.5, 1}, "#FF0080", "rgb(255, 0, 128)", "hsl(330, 100%, 50%)"},
        {{1.7, -0.2, 0, 2}, "#FF0000", "rgb(255, 0, 0)", "hsl(0, 100%, 50%)"},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(colorText(each.color, ColorFormat::hex).toStdString(), each.hex);
        EXPECT_EQ(colorText(each.color, ColorFormat::rgb).toStdString(), each.rgb);
        EXPECT_EQ(colorText(each.color, ColorFormat::hsl).toStdString(), each.hsl);
    }
}

TEST(ColorText, IsReadableOnItsSwatch) {
    const CodableColor black{0, 0, 0, 0.8}, white{1, 1, 1, 0.9};
    EXPECT_EQ(contrastTextColor({0, 1, 0, 1}), black);
    EXPECT_EQ(contrastTextColor({1, 0, 0.3, 1}), white);
    EXPECT_EQ(contrastTextColor({0.5, 0.5, 0.5, 1}), white);
}

}  // namespace
}  // namespace kestrio
