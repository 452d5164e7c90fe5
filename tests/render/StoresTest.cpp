#include "render/stores/EditorStylePersistenceService.h"
#include "render/stores/TemplateService.h"
#include "render/stores/ThemeViewModel.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

const QString themesKey = QStringLiteral("com.kestrio.savedThemes");

struct Stores : testing::Test {
    std::shared_ptr<MemoryUserDefaults> defaults = std::make_shared<MemoryUserDefaults>();
    std::shared_ptr<ThemeStorageService> themes = std::make_shared<ThemeStorageService>(defaults);
};

TEST_F(Stores, ThemesAreSavedUpdatedAndDeleted) {
    EXPECT_TRUE(themes->loadThemes().empty());
    Theme first = Theme::make(QStringLiteral("Clean"), PresetTheme::all()[3].style());
    const Theme second = Theme::make(QStringLiteral("clean"), {});
    themes->saveTheme(first);
    themes->saveTheme(second);
    EXPECT_EQ(themes->loadThemes(), (std::vector{first, second}));
    first.mockup.cornerRadius = 33;
    themes->updateTheme(first);
    EXPECT_EQ(themes->loadThemes(), (std::vector{first, second}));
    first.name = second.name;
    EXPECT_THROW(themes->updateTheme(first), ThemeStorageError);
    EXPECT_THROW(themes->saveTheme(Theme::make(QStringLiteral("clean"), {})), ThemeStorageError);
    themes->deleteTheme(first.id);
    EXPECT_EQ(themes->loadThemes(), std::vector{second});
    try {
        themes->deleteTheme(first.id);
        ADD_FAILURE();
    } catch (const ThemeStorageError& error) {
        EXPECT_EQ(error.errorDescription(), QStringLiteral("Theme not found: ") +
                                                first.id.toString(QUuid::WithoutBraces).toUpper());
    }
}

TEST_F(Stores, BrokenThemesAreToldAndKept) {
    defaults->setData(themesKey, "{}");
    EXPECT_THROW(themes->loadThemes(), ThemeStorageError);
    EXPECT_THROW(themes->saveTheme(Theme::make(QStringLiteral("x"), {})), ThemeStorageError);
    EXPECT_EQ(defaults->data(themesKey), "{}");
    ThemeViewModel model(themes);
    EXPECT_TRUE(model.userThemes().empty());
    EXPECT_EQ(model.errorMessage(), QStringLiteral("Theme decoding failed"));
    EXPECT_FALSE(model.isLoading());
}

TEST_F(Stores, TheThemeListFollowsWhatIsSaved) {
    ThemeViewModel model(themes);
    model.saveTheme(QStringLiteral("Mine"), {});
    ASSERT_EQ(model.userThemes().size(), 1u);
    EXPECT_EQ(model.userThemes().back().name, QStringLiteral("Mine"));
    EXPECT_EQ(model.selectedTheme()->name, QStringLiteral("Mine"));
    model.saveTheme(QStringLiteral("Mine"), {});
    EXPECT_EQ(model.errorMessage(),
              QStringLiteral("Failed to save theme: Theme name already exists: Mine"));
    model.deleteTheme(model.userThemes().front().id);
    EXPECT_TRUE(model.userThemes().empty());
    EXPECT_FALSE(model.selectedTheme());
}

TEST_F(Stores, TheLastStyleComesBackOrNothing) {
    EditorStylePersistenceService styles(defaults);
    EXPECT_FALSE(styles.load());
    EditorStyleSettings style = PresetTheme::find(QStringLiteral("dotted"))->style();
    styles.save(style);
    EXPECT_EQ(styles.load(), style);
    style.backdrop.padding = std::nan("");
    styles.save(style);
    EXPECT_EQ(styles.load()->backdrop.padding, 32) << "what cannot be encoded is dropped";
    defaults->setData(QStringLiteral("com.kestrio.editorStyleSettings"), "{\"backdrop\":1}");
    EXPECT_FALSE(styles.load());
}

TEST_F(Stores, ToolTemplatesLieUnderTheirToolsName) {
    TemplateService templates(defaults);
    EXPECT_FALSE(templates.load<MockupSettings>(QStringLiteral("arrow")));
    templates.save(QStringLiteral("arrow"), MockupSettings{3});
    EXPECT_EQ(templates.load<MockupSettings>(QStringLiteral("arrow")), MockupSettings{3});
    EXPECT_TRUE(defaults->data(QStringLiteral("tool_arrow")));
    EXPECT_FALSE(templates.load<BackdropSettings>(QStringLiteral("arrow")));
}

}  // namespace
}  // namespace kestrio
