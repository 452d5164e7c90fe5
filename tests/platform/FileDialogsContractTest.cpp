#include "core/Cancelled.h"
#include "platform/linux/QtFileDialogs.h"
#include "support/Contract.h"
#include "support/ScriptedFileDialogs.h"
#include "support/Waiting.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QWindow>

#include <gtest/gtest.h>

namespace kestrio {
namespace {

using Chosen = std::optional<QString>;

const std::vector<FileType> pictures{
    {QStringLiteral("PNG picture"), {QStringLiteral("png")}},
    {QStringLiteral("JPEG picture"), {QStringLiteral("jpeg"), QStringLiteral("jpg")}}};

template <typename Widget>
Widget* shown() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* found = qobject_cast<Widget*>(widget);
        if (found && found->isVisible()) return found;
    }
    return nullptr;
}

/// A service beside the user who answers its panels.
struct Desk {
    virtual ~Desk() = default;
    virtual std::unique_ptr<FileDialogs>& dialogs() = 0;
    virtual bool isPending() const = 0;
    virtual void answer(const QString& path) = 0;
    virtual void dismiss() = 0;
};

struct ScriptedDesk : Desk {
    ScriptedFileDialogs* scripted = new ScriptedFileDialogs;
    std::unique_ptr<FileDialogs> service{scripted};
    std::unique_ptr<FileDialogs>& dialogs() override { return service; }
    bool isPending() const override { return service && scripted->isPending(); }
    void answer(const QString& path) override { scripted->answer(path); }
    void dismiss() override { scripted->dismiss(); }
};

struct QtDesk : Desk {
    std::unique_ptr<FileDialogs> service = std::make_unique<QtFileDialogs>();
    std::unique_ptr<FileDialogs>& dialogs() override { return service; }
    bool isPending() const override { return shown<QFileDialog>() != nullptr; }
    void answer(const QString& path) override {
        auto* panel = shown<QFileDialog>();
        panel->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
        const bool saves = panel->acceptMode() == QFileDialog::AcceptSave;
        panel->findChild<QDialogButtonBox*>()
            ->button(saves ? QDialogButtonBox::Save : QDialogButtonBox::Open)
            ->click();
    }
    void dismiss() override { shown<QFileDialog>()->reject(); }
};

const Candidate<Desk> candidates[] = {
    candidate<Desk, ScriptedDesk>("scripted"),
    candidate<Desk, QtDesk>("desktop"),
};

/// How a flow that asks for a file ended.
struct Outcome {
    bool isDone = false;
    bool isCancelled = false;
    Chosen chosen;
};

Task<> await(Task<Chosen> task, Outcome* outcome) {
    try {
        outcome->chosen = co_await task;
    } catch (const Cancelled&) {
        outcome->isCancelled = true;
    }
    outcome->isDone = true;
}

class FileDialogsContract : public testing::TestWithParam<Candidate<Desk>> {
  protected:
    void SetUp() override { ASSERT_TRUE(folder_.isValid()); }

    QString path(const QString& name) const { return folder_.filePath(name); }

    QString existingFile(const QString& name) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return path(name);
    }

    void startOpen(std::stop_token stop = {}) {
        await(desk_->dialogs()->chooseOpen({QStringLiteral("Open"), folder_.path(), pictures},
                                           std::move(stop)),
              &outcome_);
        EXPECT_TRUE(waitUntil([this] { return desk_->isPending(); }));
    }

    void startSave() {
        await(desk_->dialogs()->chooseSave(
                  {QStringLiteral("Save"), folder_.path(), QStringLiteral("shot"), pictures}, {}),
              &outcome_);
        EXPECT_TRUE(waitUntil([this] { return desk_->isPending(); }));
    }

    Chosen awaited() {
        EXPECT_TRUE(waitUntil([this] { return outcome_.isDone; }));
        EXPECT_TRUE(waitUntil([] { return !shown<QFileDialog>(); }));
        return std::exchange(outcome_, {}).chosen;
    }

    QTemporaryDir folder_;
    std::shared_ptr<Desk> desk_ = GetParam().make();
    Outcome outcome_;
};

TEST_P(FileDialogsContract, GivesWhatWasChosenAndNothingWhenDismissed) {
    const QString file = existingFile(QStringLiteral("shot.png"));
    startOpen();
    desk_->answer(file);
    EXPECT_EQ(awaited(), file);
    startOpen();
    desk_->dismiss();
    EXPECT_EQ(awaited(), std::nullopt);
    startSave();
    desk_->dismiss();
    EXPECT_EQ(awaited(), std::nullopt);
}

TEST_P(FileDialogsContract, SavedFilesHaveASuffix) {
    struct Case {
        const char* typed;
        const char* saved;
    };
    constexpr Case cases[] = {{"plain", "plain.png"},
                              {"at 10.22.33", "at 10.22.33.png"},
                              {"photo.JPG", "photo.JPG"},
                              {"shot.png", "shot.png"}};
    for (const Case& each : cases) {
        startSave();
        desk_->answer(path(QString::fromLatin1(each.typed)));
        EXPECT_EQ(awaited(), path(QString::fromLatin1(each.saved)));
    }
}

TEST_P(FileDialogsContract, EndWithTheirServiceAndWithAStop) {
    std::stop_source stop;
    startOpen(stop.get_token());
    stop.request_stop();
    EXPECT_TRUE(waitUntil([this] { return outcome_.isDone; }));
    EXPECT_TRUE(outcome_.isCancelled);
    EXPECT_EQ(awaited(), std::nullopt);
    startSave();
    desk_->dialogs().reset();
    EXPECT_EQ(awaited(), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(All, FileDialogsContract, testing::ValuesIn(candidates), candidateName);

/// What only real panels have.
class QtFileDialogsTest : public FileDialogsContract {
  protected:
    void answerQuestion(const QString& label) {
        ASSERT_TRUE(waitUntil([] { return shown<QMessageBox>(); }));
        for (QAbstractButton* button : shown<QMessageBox>()->buttons()) {
            if (button->text().remove(u'&') == label) return button->click();
        }
        FAIL() << "no button " << qPrintable(label);
    }
};

TEST_P(QtFileDialogsTest, AsksBeforeReplacing) {
    existingFile(QStringLiteral("shot.png"));
    startSave();
    desk_->answer(path(QStringLiteral("shot")));
    answerQuestion(QStringLiteral("Cancel"));
    EXPECT_TRUE(waitUntil([] { return !shown<QMessageBox>(); }));
    EXPECT_FALSE(outcome_.isDone) << "the panel stays open for another name";
    desk_->answer(path(QStringLiteral("shot")));
    answerQuestion(QStringLiteral("Replace"));
    EXPECT_EQ(awaited(), path(QStringLiteral("shot.png")));
}

TEST_P(QtFileDialogsTest, QuestionsEndWithTheService) {
    existingFile(QStringLiteral("shot.png"));
    startSave();
    desk_->answer(path(QStringLiteral("shot.png")));
    ASSERT_TRUE(waitUntil([] { return shown<QMessageBox>(); }));
    desk_->dialogs().reset();
    EXPECT_EQ(awaited(), std::nullopt);
    EXPECT_FALSE(shown<QMessageBox>());
}

TEST_P(QtFileDialogsTest, FoldersAreEntered) {
    ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("inner")));
    startSave();
    desk_->answer(path(QStringLiteral("inner")));
    EXPECT_TRUE(waitUntil([this] {
        return shown<QFileDialog>()->directory().path() == path(QStringLiteral("inner"));
    }));
    desk_->answer(QStringLiteral("deep"));
    EXPECT_EQ(awaited(), path(QStringLiteral("inner/deep.png")));
}

TEST_P(QtFileDialogsTest, TheChosenTypeGivesTheSuffix) {
    startSave();
    auto* panel = shown<QFileDialog>();
    panel->selectNameFilter(panel->nameFilters().last());
    desk_->answer(path(QStringLiteral("plain")));
    EXPECT_EQ(awaited(), path(QStringLiteral("plain.jpeg")));
}

TEST_P(QtFileDialogsTest, PanelsBlockTheirParentAndEndWithIt) {
    auto parent = std::make_unique<QWindow>();
    parent->show();
    const SavePanelRequest request{QStringLiteral("Save"), folder_.path(),
                                   QStringLiteral("photo.jpg"), pictures, parent.get()};
    await(desk_->dialogs()->chooseSave(request, {}), &outcome_);
    ASSERT_TRUE(waitUntil([this] { return desk_->isPending(); }));
    const auto* panel = shown<QFileDialog>();
    EXPECT_EQ(panel->windowHandle()->transientParent(), parent.get());
    EXPECT_EQ(panel->windowModality(), Qt::WindowModal);
    EXPECT_EQ(panel->selectedNameFilter(), panel->nameFilters().last());
    parent.reset();
    EXPECT_EQ(awaited(), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Real, QtFileDialogsTest, testing::Values(candidates[1]), candidateName);

}  // namespace
}  // namespace kestrio
