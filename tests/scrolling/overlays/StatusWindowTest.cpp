#include "scrolling/overlays/ScrollingStatusModel.h"
#include "scrolling/views/ScrollingStatusWindow.h"
#include "support/PlainFloatingWindows.h"
#include "support/ScriptedAppearance.h"
#include "support/Waiting.h"

#include <QMouseEvent>
#include <QQuickItem>
#include <QQuickWindow>

#include <gtest/gtest.h>

namespace kestrio {
namespace {

/// The real window, which a user clicks and types at.
class StatusWindowTest : public testing::Test {
  protected:
    StatusWindowTest() {
        QObject::connect(&model_, &ScrollingStatusModel::startRequested, [this] { asked_ += 's'; });
        QObject::connect(&model_, &ScrollingStatusModel::completeRequested,
                         [this] { asked_ += 'd'; });
        QObject::connect(&model_, &ScrollingStatusModel::cancelRequested,
                         [this] { asked_ += 'c'; });
        panel_.showAt(QRect(QPoint(20, 20), panel_.size()));
    }

    QQuickItem* item(const char* name) {
        return panel_.window()->findChild<QQuickItem*>(QString::fromLatin1(name));
    }
    QImage shown() {
        QCoreApplication::processEvents();
        return panel_.window()->grabWindow();
    }
    void click(const char* name) {
        const QQuickItem* button = item(name);
        const QPointF at = button->mapToScene(QPointF(button->width(), button->height()) / 2);
        for (const auto& [type, buttons] : {std::pair(QEvent::MouseButtonPress, Qt::LeftButton),
                                            std::pair(QEvent::MouseButtonRelease, Qt::NoButton)}) {
            QMouseEvent event(type, at, panel_.window()->mapToGlobal(at), Qt::LeftButton, buttons,
                              Qt::NoModifier);
            QCoreApplication::sendEvent(panel_.window(), &event);
        }
    }

    std::shared_ptr<ScriptedAppearance> appearance_ = std::make_shared<ScriptedAppearance>();
    ScrollingStatusModel model_{false, 300};
    std::string asked_;
    ScrollingStatusWindow panel_{model_, appearance_, std::make_shared<PlainFloatingWindows>()};
};

TEST_F(StatusWindowTest, ButtonsStartEndAndCancel) {
    click("scrolling.primary");
    EXPECT_EQ(asked_, "s");
    model_.showStarted();
    click("scrolling.primary");
    EXPECT_EQ(asked_, "sd");
    click("scrolling.cancel");
    EXPECT_EQ(asked_, "sdc");
}

TEST_F(StatusWindowTest, ClosingItCancelsTheCapture) {
    EXPECT_FALSE(panel_.window()->close());
    EXPECT_TRUE(panel_.window()->isVisible());
    EXPECT_EQ(asked_, "c");
}

TEST_F(StatusWindowTest, NothingCanBePressedWhileThePictureIsMade) {
    model_.showStarted();
    model_.showStitching();
    click("scrolling.primary");
    click("scrolling.cancel");
    EXPECT_EQ(asked_, "");
}

TEST_F(StatusWindowTest, ShowsFramesAndKeepsItsSize) {
    const QSize size = panel_.size();
    const QQuickItem* thumbnail = item("scrolling.thumbnail");
    const QPoint middle =
        thumbnail->mapToScene(QPointF(thumbnail->width(), thumbnail->height()) / 2).toPoint();
    QImage frame(200, 100, QImage::Format_RGB32);
    frame.fill(QColor(200, 60, 20));
    const QString hint = QStringLiteral(
        "A sentence that is long enough to take more than one line "
        "of the panel, and in truth more than two of them.");
    model_.showProgress({frame, 1234, 1234567, true, hint});
    const QImage image = shown();
    EXPECT_EQ(image.pixelColor(middle * image.devicePixelRatio()), QColor(200, 60, 20));
    EXPECT_EQ(panel_.size(), size);
    EXPECT_FALSE(item("scrolling.progress")->property("truncated").toBool());
    model_.showStitching();
    EXPECT_EQ(panel_.size(), size);
}

TEST_F(StatusWindowTest, FollowsTheDesktopIntoTheDark) {
    const auto ground = [this] { return shown().pixelColor(6, 20); };
    EXPECT_GT(ground().lightness(), 200);
    appearance_->set_isDark(true);
    EXPECT_LT(ground().lightness(), 60);
}

}  // namespace
}  // namespace kestrio
