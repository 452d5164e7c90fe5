#include "app/settings/SettingsViewModel.h"
#include "app/views/SettingsFields.h"

#include "support/ScriptedFileDialogs.h"
#include "support/ScriptedGlobalHotkeys.h"
#include "support/ScriptedLoginItem.h"

#include <gtest/gtest.h>
#include <QCoreApplication>

namespace kestrio {
namespace {

struct SettingsViewModelTest : testing::Test {
    std::shared_ptr<MemoryUserDefaults> defaults = std::make_shared<MemoryUserDefaults>();
    std::shared_ptr<AppSettingsService> settings = std::make_shared<AppSettingsService>(defaults);
    std::shared_ptr<ScriptedGlobalHotkeys> keyboard = std::make_shared<ScriptedGlobalHotkeys>();
    std::shared_ptr<HotkeyManager> hotkeys = std::make_shared<HotkeyManager>(keyboard, settings);
    std::shared_ptr<ThemeStorageService> themes = std::make_shared<ThemeStorageService>(defaults);
    std::shared_ptr<ScriptedLoginItem> loginItem = std::make_shared<ScriptedLoginItem>();
    std::shared_ptr<ScriptedFileDialogs> dialogs = std::make_shared<ScriptedFileDialogs>();
    std::unique_ptr<SettingsViewModel> model = makeModel();

    std::unique_ptr<SettingsViewModel> makeModel() {
        return std::make_unique<SettingsViewModel>(
            SettingsServices{settings, defaults, themes, hotkeys, loginItem, dialogs, {}, {}});
    }

    /// As another start of the program reads them.
    AppSettings stored() const { return AppSettingsService(defaults).load(); }

    /// As a view changes a field.
    void change(const char* field, const QVariant& value) {
        SettingsFields fields(*model);
        QObject* const changed = fields.property(field).value<QObject*>();
        ASSERT_TRUE(changed) << field;
        EXPECT_EQ(changed->objectName(), QLatin1String(field));
        EXPECT_TRUE(changed->setProperty("value", value));
    }
};

TEST_F(SettingsViewModelTest, ChangesAreWrittenAMomentLaterAndAtTheEnd) {
    change("confirmBeforeEditing", false);
    change("fileNamingPattern", QStringLiteral("shot_{time}"));
    EXPECT_TRUE(stored().confirmBeforeEditing);
    model.reset();
    EXPECT_FALSE(stored().confirmBeforeEditing);
    EXPECT_EQ(stored().fileNamingPattern, u"shot_{time}");
}

TEST_F(SettingsViewModelTest, NonsenseChangesNothing) {
    const AppSettings before = model->settings();
    change("defaultExportFormat", QStringLiteral("tiff"));
    change("defaultSavePath", QString());
    change("appLanguage", QStringLiteral("xx"));
    EXPECT_EQ(model->settings(), before);
}

TEST_F(SettingsViewModelTest, ALanguageIsStoredForTheNextStart) {
    const QString key = QStringLiteral("AppleLanguages");
    model->setLanguage(AppLanguage::zhHans);
    EXPECT_EQ(defaults->stringArray(key), QStringList(QStringLiteral("zh-Hans")));
    EXPECT_TRUE(model->needsRestart());
    model->setLanguage(AppLanguage::system);
    EXPECT_FALSE(defaults->stringArray(key));
}

TEST_F(SettingsViewModelTest, LaunchAtLoginFallsBackWhereTheDesktopRefuses) {
    model->setLaunchAtLogin(true);
    EXPECT_TRUE(loginItem->isOn);
    EXPECT_TRUE(model->settings().launchAtLogin);
    loginItem->refusal = QStringLiteral("disk full");
    model->setLaunchAtLogin(false);
    EXPECT_TRUE(model->settings().launchAtLogin);
    EXPECT_EQ(model->message(), u"Failed to set launch at login: disk full");
}

TEST_F(SettingsViewModelTest, TheSaveFolderIsTheOneThatIsChosen) {
    const QString before = model->settings().defaultSavePath;
    for (const auto& [answer, expected] :
         {std::pair{QString(), before},
          std::pair{QStringLiteral("/tmp"), QStringLiteral("/tmp")}}) {
        auto choosing = model->chooseSavePath();
        EXPECT_EQ(dialogs->openRequests.back().folder, before);
        if (answer.isEmpty()) {
            dialogs->dismiss();
        } else {
            dialogs->answer(answer);
        }
        runUntilDone(std::move(choosing));
        EXPECT_EQ(model->settings().defaultSavePath, expected);
    }
    auto choosing = model->chooseSavePath();
    model.reset();
    EXPECT_THROW(runUntilDone(std::move(choosing)), Cancelled);
}

TEST_F(SettingsViewModelTest, AThemeThatIsGoneIsToldOf) {
    const Theme theme = Theme::make(QStringLiteral("Mine"), {});
    themes->saveTheme(theme);
    model = makeModel();
    ASSERT_EQ(model->cachedThemes().size(), 1U);
    model->deleteTheme(theme.id);
    EXPECT_TRUE(model->cachedThemes().empty());
    model->deleteTheme(theme.id);
    EXPECT_TRUE(model->message().startsWith(QStringLiteral("Failed to delete preset: ")));
}

TEST_F(SettingsViewModelTest, RestoredHotkeysAreLiveOnceWritten) {
    hotkeys->setHandler(HotkeyAction::region, [] {});
    AppSettings changed = model->settings();
    changed.regionCaptureHotkey = {5, HotkeyConfig::command};
    settings->save(changed);
    hotkeys->registerHotkeys();
    model = makeModel();
    model->restoreDefaultHotkeys();
    model.reset();
    EXPECT_EQ(keyboard->registered.at(1).keyCode, AppSettings().regionCaptureHotkey.keyCode);
}

}  // namespace
}  // namespace kestrio
