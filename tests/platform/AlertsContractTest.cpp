#include "core/Cancelled.h"
#include "platform/XDesk.h"
#include "platform/linux/QtAlerts.h"
#include "support/Contract.h"
#include "support/ScriptedAlerts.h"

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

namespace kestrio {
namespace {

QMessageBox* shownBox() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* box = qobject_cast<QMessageBox*>(widget); box && box->isVisible()) return box;
    return nullptr;
}

/// A service beside the user who answers.
struct Desk {
    virtual ~Desk() = default;
    virtual std::unique_ptr<Alerts>& alerts() = 0;
    virtual bool isPending() const = 0;
    virtual void choose(int button) = 0;
    virtual void type(const QString& text) = 0;
    virtual void escape() = 0;
};

struct ScriptedDesk : Desk {
    ScriptedAlerts* scripted = new ScriptedAlerts;
    std::unique_ptr<Alerts> service{scripted};
    std::unique_ptr<Alerts>& alerts() override { return service; }
    bool isPending() const override { return service && scripted->isPending(); }
    void choose(int button) override { scripted->answer(button); }
    void type(const QString& text) override { scripted->type(text); }
    void escape() override { scripted->dismiss(); }
};

struct QtDesk : Desk {
    std::unique_ptr<Alerts> service = std::make_unique<QtAlerts>();
    std::unique_ptr<Alerts>& alerts() override { return service; }
    bool isPending() const override { return shownBox() != nullptr; }
    void choose(int button) override {
        const char* titles[] = {"Keep", "Burn", "Cancel"};
        for (QAbstractButton* each : shownBox()->buttons())
            if (each->text() == QLatin1StringView(titles[button])) return each->click();
        if (button == 0) shownBox()->buttons().at(0)->click();
    }
    void type(const QString& text) override {
        if (auto* field = shownBox()->findChild<QLineEdit*>()) field->setText(text);
    }
    void escape() override { shownBox()->close(); }
};

const Candidate<Desk> candidates[] = {
    candidate<Desk, ScriptedDesk>("scripted"),
    candidate<Desk, QtDesk>("desktop"),
};

struct Outcome {
    std::optional<int> button;
    QString text;
    bool isCancelled = false;
};

Task<> await(Task<AlertAnswer> task, Outcome* outcome) {
    try {
        const AlertAnswer answer = co_await task;
        outcome->text = answer.text;
        outcome->button = answer.button;
    } catch (const Cancelled&) {
        outcome->isCancelled = true;
    }
}

class AlertsContract : public testing::TestWithParam<Candidate<Desk>> {
  protected:
    void ask(QStringList buttons, std::stop_token stop = {},
             std::optional<AlertTextField> field = std::nullopt,
             std::optional<int> escapeButton = std::nullopt) {
        outcome_ = {};
        await(desk_->alerts()->ask({AlertStyle::critical, QStringLiteral("Burn <it>?"),
                                    QStringLiteral("There is\nno way back."), std::move(buttons),
                                    std::move(field), escapeButton},
                                   std::move(stop)),
              &outcome_);
        EXPECT_TRUE(waitUntil([this] { return desk_->isPending(); }));
    }

    std::optional<int> answer() {
        EXPECT_TRUE(waitUntil([this] { return outcome_.button || outcome_.isCancelled; }));
        EXPECT_TRUE(waitUntil([] { return !shownBox(); }));
        return outcome_.button;
    }

    const QStringList three_{QStringLiteral("Keep"), QStringLiteral("Burn"),
                             QStringLiteral("Cancel")};
    std::shared_ptr<Desk> desk_ = GetParam().make();
    Outcome outcome_;
};

TEST_P(AlertsContract, TellWhichButtonWasPressed) {
    for (const int button : {0, 1, 2}) {
        ask(three_);
        desk_->choose(button);
        EXPECT_EQ(answer(), button);
    }
    ask(three_);
    desk_->escape();
    EXPECT_EQ(answer(), 2);
    ask(three_, {}, std::nullopt, 0);
    desk_->escape();
    EXPECT_EQ(answer(), 0);
    ask({});
    desk_->choose(0);
    EXPECT_EQ(answer(), 0);
    ask({});
    desk_->escape();
    EXPECT_EQ(answer(), 0);
}

TEST_P(AlertsContract, GiveBackWhatTheirTextFieldHolds) {
    const AlertTextField field{QStringLiteral("start & go"), QStringLiteral("example")};
    ask(three_, {}, field);
    desk_->choose(0);
    EXPECT_EQ(answer(), 0);
    EXPECT_EQ(outcome_.text, field.text) << "as it was, where nothing was typed";
    ask(three_, {}, field);
    desk_->type(QStringLiteral("<other>"));
    desk_->choose(1);
    EXPECT_EQ(answer(), 1);
    EXPECT_EQ(outcome_.text, QStringLiteral("<other>"));
    ask(three_);
    desk_->type(QStringLiteral("no field"));
    desk_->choose(0);
    EXPECT_EQ(answer(), 0);
    EXPECT_EQ(outcome_.text, QString());
}

TEST_P(AlertsContract, CloseOnAStop) {
    std::stop_source stop;
    ask(three_, stop.get_token());
    stop.request_stop();
    EXPECT_EQ(answer(), std::nullopt);
    EXPECT_TRUE(outcome_.isCancelled);
    EXPECT_FALSE(desk_->isPending());
}

TEST_P(AlertsContract, GoWithTheService) {
    ask(three_);
    desk_->alerts().reset();
    EXPECT_EQ(answer(), 2);
}

INSTANTIATE_TEST_SUITE_P(All, AlertsContract, testing::ValuesIn(candidates), candidateName);

TEST(QtAlerts, SayWhatTheyAreAsked) {
    const WindowManager manager;
    QtAlerts alerts;
    Outcome outcome;
    await(alerts.ask({AlertStyle::warning,
                      QStringLiteral("A < B"),
                      QStringLiteral("Why & how"),
                      {QStringLiteral("Yes"), QStringLiteral("No")}},
                     {}),
          &outcome);
    EXPECT_TRUE(waitUntil([] { return shownBox()->isActiveWindow(); }));
    const QMessageBox* box = shownBox();
    EXPECT_EQ(box->windowTitle(), QStringLiteral("Kestrio"));
    EXPECT_EQ(box->text(), QStringLiteral("<b>A &lt; B</b>"));
    EXPECT_EQ(box->informativeText(), QStringLiteral("Why &amp; how"));
    EXPECT_EQ(box->icon(), QMessageBox::Warning);
    EXPECT_EQ(box->windowModality(), Qt::NonModal);
    EXPECT_EQ(box->defaultButton()->text(), QStringLiteral("Yes"));
    box->defaultButton()->click();
    EXPECT_TRUE(waitUntil([&] { return outcome.button == 0; }));
}

TEST(QtAlerts, TakeTypingAtOnce) {
    const WindowManager manager;
    QtAlerts alerts;
    Outcome outcome;
    await(alerts.ask({AlertStyle::informational,
                      QStringLiteral("Where?"),
                      QStringLiteral("Name a place:"),
                      {QStringLiteral("Go"), QStringLiteral("Cancel")},
                      AlertTextField{QStringLiteral("here"), QStringLiteral("example")}},
                     {}),
          &outcome);
    EXPECT_TRUE(waitUntil([] { return shownBox()->isActiveWindow(); }));
    const auto* field = shownBox()->findChild<QLineEdit*>();
    const auto* text =
        shownBox()->findChild<QWidget*>(QStringLiteral("qt_msgbox_informativelabel"));
    EXPECT_EQ(field->placeholderText(), QStringLiteral("example"));
    EXPECT_GE(field->y(), text->geometry().bottom());
    EXPECT_LE(field->geometry().bottom(), shownBox()->buttons().at(0)->parentWidget()->y());
    // Over the text that it starts with, and Return takes the first button.
    QProcess::execute(QStringLiteral("xdotool"), {QStringLiteral("type"), QStringLiteral("--delay"),
                                                  QStringLiteral("20"), QStringLiteral("there")});
    QProcess::execute(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Return")});
    EXPECT_TRUE(waitUntil([&] { return outcome.button == 0; }));
    EXPECT_EQ(outcome.text, QStringLiteral("there"));
}

}  // namespace
}  // namespace kestrio
