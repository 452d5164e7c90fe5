#include "library/color/ColorPickerViewModel.h"
#include "support/MemoryPasteboard.h"

#include <gtest/gtest.h>
#include <QElapsedTimer>

namespace kestrio {
namespace {

const QString historyKey = QStringLiteral("com.kestrio.colorHistory");
const QString formatKey = QStringLiteral("com.kestrio.preferredColorFormat");

/// Four by two pixels of two a point: red from left to right, the lower row half transparent.
Image testImage() {
    QImage bitmap(4, 2, QImage::Format_ARGB32_Premultiplied);
    for (int x = 0; x < 4; ++x) {
        bitmap.setPixelColor(x, 0, QColor(x * 60, 10, 20));
        bitmap.setPixelColor(x, 1, QColor(255, 0, 0, 128));
    }
    return Image(bitmap, 2);
}

struct ColorPicker : testing::Test {
    std::shared_ptr<MemoryUserDefaults> defaults = std::make_shared<MemoryUserDefaults>();
    std::shared_ptr<MemoryPasteboard> pasteboard = std::make_shared<MemoryPasteboard>();
    std::shared_ptr<ColorHistoryService> history = std::make_shared<ColorHistoryService>(defaults);
    ColorPickerViewModel picker{history, defaults, pasteboard};

    std::vector<double> reds() const {
        std::vector<double> list;
        for (const PickedColor& color : history->recentColors())
            list.push_back(color.red);
        return list;
    }
};

TEST_F(ColorPicker, HistoryHoldsEightDifferentColoursNewestFirst) {
    for (double red : {0.1, 0.2, 0.3, 0.205})
        history->add(PickedColor::of({red, 0, 0, 1}));
    EXPECT_EQ(reds(), (std::vector{0.205, 0.3, 0.1}));
    history->add(PickedColor::of({0.3, 0, 0, 0.98}));
    EXPECT_EQ(reds(), (std::vector{0.3, 0.205, 0.3, 0.1})) << "alpha tells colours apart";
    for (double red : {0.5, 0.6, 0.7, 0.8, 0.9})
        history->add(PickedColor::of({red, 0, 0, 1}));
    EXPECT_EQ(reds(), (std::vector{0.9, 0.8, 0.7, 0.6, 0.5, 0.3, 0.205, 0.3}));
    EXPECT_EQ(ColorHistoryService(defaults).recentColors(), history->recentColors());
    EXPECT_EQ(picker.colorHistory(), history->recentColors());
}

TEST_F(ColorPicker, HistoryOutlivesWhatCannotBeReadOrWritten) {
    history->add(PickedColor::of({0.1, 0, 0, 1}));
    const auto kept = defaults->data(historyKey);
    testing::internal::CaptureStderr();
    history->add(PickedColor::of({std::nan(""), 0, 0, 1}));
    EXPECT_EQ(history->recentColors().size(), 2u);
    EXPECT_EQ(defaults->data(historyKey), kept);
    defaults->setData(historyKey, "[{\"red\":1}]");
    EXPECT_TRUE(ColorHistoryService(defaults).recentColors().empty());
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_NE(log.find("ColorHistoryService: Failed to save history - "), log.npos) << log;
    EXPECT_NE(log.find("\nColorHistoryService: Failed to load history - "), log.npos) << log;
}

TEST_F(ColorPicker, SamplesThePixelUnderAPoint) {
    struct Case {
        QPointF point;
        const char* color;  // null for none
    };
    const double nowhere = std::nan("");
    const Case cases[] = {
        {{0, 0}, "#000A14"},     {{0.49, 0.49}, "#000A14"}, {{0.5, 0}, "#3C0A14"},
        {{1.99, 0}, "#B40A14"},  {{1, 0.5}, "#FF000080"},   {{2, 0}, nullptr},
        {{-0.01, 0}, nullptr},   {{0, 1}, nullptr},         {{0, -1e300}, nullptr},
        {{nowhere, 0}, nullptr},
    };
    for (const Case& each : cases) {
        const auto color = ColorPickerService().colorAt(testImage(), each.point);
        ASSERT_EQ(color.has_value(), each.color != nullptr) << each.point.x();
        if (color) {
            EXPECT_EQ(colorText(*color, ColorFormat::hex).toStdString(), each.color);
        }
    }
    EXPECT_FALSE(ColorPickerService().colorAt({}, {0, 0}));
}

TEST_F(ColorPicker, TheMagnifierSeesAroundEdges) {
    const QImage bitmap = testImage().bitmap();
    const QImage around = ColorPickerService().pixelsAround(testImage(), {1.9, 0.1}, 2);
    ASSERT_EQ(around.size(), QSize(5, 5));
    for (int y = 0; y < 5; ++y) {
        for (int x = 0; x < 5; ++x) {
            const QPoint from(3 + x - 2, y - 2);
            const QRgb expected = bitmap.valid(from) ? bitmap.pixel(from) : 0;
            EXPECT_EQ(around.pixel(x, y), expected) << x << ", " << y;
        }
    }
    EXPECT_EQ(qAlpha(ColorPickerService().pixelsAround(testImage(), {1e300, 0}, 1).pixel(1, 1)), 0);
    EXPECT_TRUE(ColorPickerService().pixelsAround(testImage(), {std::nan(""), 0}, 1).isNull());
}

TEST_F(ColorPicker, PicksWhileItsModeIsOn) {
    std::vector<PickedColor> picked, forBackdrop;
    QObject::connect(&picker, &ColorPickerViewModel::colorPicked,
                     [&](const PickedColor& color) { picked.push_back(color); });
    QObject::connect(&picker, &ColorPickerViewModel::backdropColorPicked,
                     [&](const PickedColor& color) { forBackdrop.push_back(color); });
    picker.movePointer(testImage(), {1, 0});
    picker.pick(testImage(), {1, 0}, false);
    EXPECT_FALSE(picker.currentColor());
    picker.startPicking();
    picker.movePointer(testImage(), {1, 0});
    EXPECT_EQ(picker.currentText(), QStringLiteral("#780A14"));
    picker.pick(testImage(), {5, 5}, false);
    EXPECT_TRUE(picker.isColorPickingMode()) << "there is nothing to pick outside the picture";
    EXPECT_EQ(picker.currentText(), QStringLiteral("No color"));
    EXPECT_TRUE(picked.empty());
    picker.pick(testImage(), {0.5, 0}, false);
    EXPECT_FALSE(picker.isColorPickingMode());
    EXPECT_EQ(picker.lastPickedColor(), history->recentColors().front());
    EXPECT_EQ(picked, history->recentColors());
    EXPECT_TRUE(forBackdrop.empty());
    picker.startPicking();
    picker.pick(testImage(), {1.5, 0}, true);
    ASSERT_EQ(forBackdrop.size(), 1u);
    EXPECT_EQ(forBackdrop[0].swatch(), QColor(180, 10, 20));
}

TEST_F(ColorPicker, CopiesInTheChosenFormatAndTellsForAMoment) {
    picker.copyCurrentColor();
    EXPECT_FALSE(picker.showCopiedFeedback()) << "there is no colour";
    picker.showColor({1, -0.3, std::nan(""), 1});
    EXPECT_EQ(picker.currentColor(), (CodableColor{1, 0, 0, 1}));
    pasteboard->refusesText = true;
    picker.copyCurrentColor();
    EXPECT_FALSE(picker.showCopiedFeedback());
    pasteboard->refusesText = false;
    picker.chooseFormat(ColorFormat::hsl);
    picker.copyCurrentColor();
    EXPECT_EQ(pasteboard->contents().text, QStringLiteral("hsl(0, 100%, 50%)"));
    EXPECT_EQ(picker.toastMessage(), QStringLiteral("Copied!"));
    EXPECT_TRUE(picker.showCopiedFeedback());
    EXPECT_EQ(defaults->string(formatKey), QStringLiteral("hsl"));
    EXPECT_EQ(ColorPickerViewModel(history, defaults, pasteboard).currentFormat(),
              ColorFormat::hsl);
    QElapsedTimer clock;
    clock.start();
    while (picker.showCopiedFeedback() && clock.elapsed() < 10000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_FALSE(picker.showCopiedFeedback());
    EXPECT_GT(clock.elapsed(), 900);
    EXPECT_EQ(picker.toastMessage(), QString());
}

}  // namespace
}  // namespace kestrio
