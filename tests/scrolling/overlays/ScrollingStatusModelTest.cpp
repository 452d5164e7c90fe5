#include "scrolling/overlays/ScrollingStatusModel.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace kestrio {
namespace {

/// What was asked for, in this order: s for start, d for done, c for cancel.
class Requests {
  public:
    explicit Requests(ScrollingStatusModel& model) {
        const auto note = [&](auto signal, char letter) {
            QObject::connect(&model, signal, &model, [this, letter] { letters += letter; });
        };
        note(&ScrollingStatusModel::startRequested, 's');
        note(&ScrollingStatusModel::completeRequested, 'd');
        note(&ScrollingStatusModel::cancelRequested, 'c');
    }

    std::string letters;
};

TEST(ScrollingStatus, ManualCaptureGoesUntilItIsDone) {
    ScrollingStatusModel model(true, 600);
    const Requests requests(model);
    EXPECT_EQ(model.status(), QStringLiteral("Scroll the target window to capture..."));
    EXPECT_EQ(model.primaryTitle(), QStringLiteral("Done"));
    model.showStarted();
    EXPECT_EQ(model.status(), QStringLiteral("Scroll the target window to capture..."));
    model.pressPrimary();
    model.pressPrimary();
    EXPECT_EQ(requests.letters, "d");
    model.showStitching();
    EXPECT_FALSE(model.isPressable());
    model.pressCancel();
    EXPECT_EQ(requests.letters, "d");
}

TEST(ScrollingStatus, AutomaticCaptureWaitsForItsStart) {
    ScrollingStatusModel model(false, 600);
    const Requests requests(model);
    EXPECT_EQ(model.primaryTitle(), QStringLiteral("Start Scrolling"));
    EXPECT_EQ(model.primaryKey(), QStringLiteral("Enter to start"));
    model.pressPrimary();
    model.pressPrimary();  // before the scrolling has begun
    EXPECT_EQ(requests.letters, "s");
    model.showStarted();
    EXPECT_EQ(model.primaryTitle(), QStringLiteral("Done"));
    EXPECT_EQ(model.primaryKey(), QStringLiteral("Enter to stop"));
    EXPECT_EQ(model.status(), QStringLiteral("Auto-scrolling capture in progress..."));
    model.pressPrimary();
    EXPECT_EQ(requests.letters, "sd");
    model.pressCancel();
    EXPECT_EQ(requests.letters, "sdc");
}

TEST(ScrollingStatus, ProgressIsToldInWordsAndByThePosition) {
    QLocale::setDefault(QLocale::English);
    ScrollingStatusModel model(true, 600);
    model.showProgress({});
    EXPECT_TRUE(model.progress().isEmpty());
    QImage thumbnail(20, 30, QImage::Format_RGB32);
    thumbnail.fill(Qt::red);
    const QString hint = QStringLiteral("Scroll more slowly.");
    model.showProgress({thumbnail, 12, 8640, false, hint});
    EXPECT_EQ(model.progress(), QStringLiteral("12 frames, 8,640 px"));
    EXPECT_EQ(model.indicator().contentHeight, 8640);
    EXPECT_EQ(model.indicator().scrollOffset, 8040);
    EXPECT_EQ(model.hint(), hint);
    EXPECT_TRUE(model.summary().contains(hint));
    model.showProgress({{}, 13, 9000, true, {}});
    EXPECT_EQ(model.thumbnail(), thumbnail) << "a null one is no other";
    EXPECT_TRUE(model.hint().isEmpty());
    EXPECT_TRUE(model.isBottomReached());
    EXPECT_TRUE(model.summary().contains(QStringLiteral("Bottom reached")));
    EXPECT_TRUE(model.summary().contains(QStringLiteral("Esc to cancel")));
    model.showStitching();
    EXPECT_FALSE(model.summary().contains(QStringLiteral("Esc to cancel")));
}

}  // namespace
}  // namespace kestrio
