#include "scrolling/overlays/ScrollingOverlays.h"

#include "scrolling/overlays/ScrollingStatusModel.h"
#include "support/PlainFloatingWindows.h"
#include "support/ScriptedAppearance.h"
#include "support/ScriptedDisplays.h"
#include "support/ScriptedGlobalHotkeys.h"
#include "support/Waiting.h"

#include <QGuiApplication>
#include <QWindow>

#include <gtest/gtest.h>

namespace kestrio {
namespace {

class ScriptedPanel : public StatusPanel {
  public:
    ScriptedPanel(std::optional<QRect>& place, QSize size) : place_(place), size_(size) {}
    ~ScriptedPanel() override { place_.reset(); }
    QSize size() const override { return size_; }
    void showAt(const QRect& place) override { place_ = place; }

  private:
    std::optional<QRect>& place_;
    QSize size_;
};

class ScrollingOverlaysTest : public testing::Test {
  protected:
    ScrollingOverlaysTest() {
        displays_->setDisplays(
            {{QStringLiteral("one"), {0, 0, 700, 500}, {0, 0, 700, 500}, {0, 0, 1400, 1000}, 2}});
        const auto note = [this](auto signal, char letter) {
            QObject::connect(&overlays_, signal, &overlays_, [this, letter] {
                requests_ += letter;
                if (endsAtRequests_) overlays_.end();
            });
        };
        note(&ScrollingPresenter::startRequested, 's');
        note(&ScrollingPresenter::completeRequested, 'd');
        note(&ScrollingPresenter::cancelRequested, 'c');
    }

    void press(Qt::Key key) {
        const auto wanted = combinationOf(QKeyCombination(key));
        for (const auto& [id, combination] : std::map(hotkeys_->registered))
            if (combination == wanted) hotkeys_->press(id);
        QCoreApplication::processEvents();
    }

    static int frameWindows() {
        int count = 0;
        for (const QWindow* each : QGuiApplication::topLevelWindows())
            count += each->isVisible() && each->title() == u"Kestrio Region Frame";
        return count;
    }

    const QRectF roomy_{50, 40, 300, 200};
    const QRectF full_{0, 0, 700, 500};
    std::shared_ptr<ScriptedDisplays> displays_ = std::make_shared<ScriptedDisplays>();
    std::shared_ptr<ScriptedGlobalHotkeys> hotkeys_ = std::make_shared<ScriptedGlobalHotkeys>();
    std::optional<QRect> panelPlace_;
    ScrollingStatusModel* model_ = nullptr;
    QStringList notices_;
    std::string requests_;
    bool endsAtRequests_ = false;
    ScrollingOverlays overlays_{{displays_, std::make_shared<PlainFloatingWindows>(),
                                 std::make_shared<ScriptedAppearance>(), hotkeys_},
                                [this](ScrollingStatusModel& model) {
                                    model_ = &model;
                                    return std::make_unique<ScriptedPanel>(panelPlace_,
                                                                           QSize(200, 180));
                                },
                                [this](const QString& text) { notices_ << text; }};
};

TEST_F(ScrollingOverlaysTest, ShowFrameAndPanelForOneCapture) {
    overlays_.begin({roomy_, true});
    EXPECT_EQ(frameWindows(), 4);
    ASSERT_TRUE(panelPlace_);
    EXPECT_FALSE(QRectF(*panelPlace_).intersects(roomy_));
    overlays_.showProgress({{}, 2, 1000, false, {}});
    EXPECT_EQ(model_->indicator().visibleHeight, 400) << "in pixels of the display";
    overlays_.end();
    EXPECT_EQ(frameWindows(), 0);
    EXPECT_FALSE(panelPlace_);
    EXPECT_TRUE(hotkeys_->registered.empty()) << "the keys are other programs' again";
    EXPECT_TRUE(notices_.isEmpty());
    overlays_.flash();
    overlays_.showProgress({});
    overlays_.showStitching();
    overlays_.begin({roomy_, true});
    EXPECT_EQ(frameWindows(), 4);
}

TEST_F(ScrollingOverlaysTest, TakeKeysFromAnyWindow) {
    overlays_.begin({roomy_, false});
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    EXPECT_EQ(requests_, "s");
    overlays_.showStarted();
    press(Qt::Key_Escape);
    press(Qt::Key_Enter);
    EXPECT_EQ(requests_, "scd");
    overlays_.begin({roomy_, true});
    overlays_.showStitching();
    press(Qt::Key_Return);
    press(Qt::Key_Escape);
    EXPECT_EQ(requests_, "scd") << "nothing can be pressed any more";
}

TEST_F(ScrollingOverlaysTest, MayEndWithinARequestAndDropWhatCameAfterIt) {
    endsAtRequests_ = true;
    overlays_.begin({roomy_, true});
    model_->pressPrimary();
    model_->pressCancel();
    EXPECT_EQ(requests_, "") << "from the event loop only";
    QCoreApplication::processEvents();
    EXPECT_EQ(requests_, "d");
    EXPECT_FALSE(panelPlace_);
}

TEST_F(ScrollingOverlaysTest, LeaveThePanelsWordsToOthersWhereThereIsNoRoom) {
    overlays_.begin({full_, false});
    EXPECT_EQ(frameWindows(), 0);
    EXPECT_FALSE(panelPlace_);
    ASSERT_EQ(notices_.size(), 1);
    EXPECT_TRUE(notices_.back().contains(QStringLiteral("Enter to start")));
    press(Qt::Key_Return);
    EXPECT_EQ(requests_, "s");
    overlays_.showStarted();
    EXPECT_TRUE(notices_.back().contains(QStringLiteral("Enter to stop")));
    overlays_.showProgress({{}, 3, 1500, false, {}});
    overlays_.showProgress({{}, 3, 1500, false, {}});
    EXPECT_EQ(notices_.size(), 3) << "the same words once";
    overlays_.showStitching();
    EXPECT_FALSE(notices_.back().contains(QStringLiteral("Enter")));
    overlays_.end();
    EXPECT_EQ(notices_.back(), QString());
}

}  // namespace
}  // namespace kestrio
