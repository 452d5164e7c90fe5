#include "app/settings/CustomPatternSettingsViewModel.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

struct CustomPatternSettingsTest : testing::Test {
    void type(const QString& name, const QString& regex) {
        model.set_editingName(name);
        model.set_editingRegex(regex);
    }
    std::vector<SensitivePattern> stored() const {
        return PatternStorageService(defaults).loadCustomPatterns();
    }

    std::shared_ptr<MemoryUserDefaults> defaults = std::make_shared<MemoryUserDefaults>();
    std::shared_ptr<PatternStorageService> storage =
        std::make_shared<PatternStorageService>(defaults);
    CustomPatternSettingsViewModel model{storage};
};

TEST_F(CustomPatternSettingsTest, MakesChangesAndRemovesAPattern) {
    model.startAdding();
    EXPECT_TRUE(model.showAddEditSheet());
    EXPECT_FALSE(model.canSave());
    type(QStringLiteral(" Staff "), QStringLiteral(" S-\\d{4} "));
    EXPECT_TRUE(model.canSave());
    model.save();
    EXPECT_FALSE(model.showAddEditSheet());
    ASSERT_EQ(stored().size(), 1u);
    SensitivePattern expected = stored()[0];
    EXPECT_FALSE(expected.id.isNull());
    EXPECT_EQ(expected.name, QStringLiteral("Staff"));
    EXPECT_EQ(expected.type, SensitiveInfoType::custom);
    EXPECT_TRUE(expected.isEnabled);
    EXPECT_FALSE(expected.isBuiltIn);

    model.setCustomEnabled(expected.id, false);
    model.startEditing(expected.id);
    EXPECT_EQ(model.editingRegex(), QStringLiteral("S-\\d{4}"));
    model.set_editingRegex(QStringLiteral("S-\\d{5}"));
    model.save();
    expected.regex = QStringLiteral("S-\\d{5}");
    expected.isEnabled = false;
    EXPECT_EQ(stored(), std::vector{expected});
    EXPECT_EQ(model.customPatterns(), stored());
    model.remove(expected.id);
    EXPECT_TRUE(stored().empty());
}

TEST_F(CustomPatternSettingsTest, TellsBrokenFromUnsafeAndSavesNeither) {
    model.startAdding();
    EXPECT_EQ(model.editingValidity(), RegexValidity::empty);
    for (const auto& [regex, validity] :
         {std::pair("(", RegexValidity::invalid), std::pair("(a+)+", RegexValidity::isUnsafe),
          std::pair("(?<=a)b", RegexValidity::isUnsafe)}) {
        type(QStringLiteral("x"), QString::fromLatin1(regex));
        EXPECT_EQ(model.editingValidity(), validity) << regex;
        model.save();
        EXPECT_TRUE(model.showError());
        EXPECT_EQ(model.errorMessage(),
                  QStringLiteral("Please provide a valid and safe regex pattern"));
        EXPECT_TRUE(model.showAddEditSheet());
    }
    EXPECT_TRUE(stored().empty());
    model.set_editingRegex(QStringLiteral("ab"));
    model.save();
    EXPECT_FALSE(model.showError());
}

TEST_F(CustomPatternSettingsTest, SaysWhatTheStoreRefuses) {
    model.startAdding();
    type(QStringLiteral("x"), QStringLiteral("y"));
    model.save();
    const QUuid id = stored()[0].id;
    model.startEditing(id);
    storage->deleteCustomPattern(id);
    model.save();
    EXPECT_TRUE(model.errorMessage().startsWith(u"Failed to update pattern: "));
    model.remove(id);
    EXPECT_TRUE(model.errorMessage().startsWith(u"Failed to delete pattern: "));
}

TEST_F(CustomPatternSettingsTest, ExamplesFillTheSheetAndSwitchesStay) {
    const ExamplePattern& example = model.examplePatterns()[1];
    model.useExample(example.id);
    EXPECT_EQ(model.editingName(), example.name);
    EXPECT_EQ(model.editingRegex(), example.regex);
    EXPECT_EQ(model.editingDescription(), example.description);
    EXPECT_EQ(model.editingValidity(), RegexValidity::valid);
    model.save();
    EXPECT_NE(stored()[0].id, example.id);

    const QUuid email = model.builtInPatterns()[0].id;
    model.setBuiltInEnabled(email, false);
    EXPECT_FALSE(model.builtInEnabledStates().at(email));
    EXPECT_FALSE(CustomPatternSettingsViewModel(storage).builtInEnabledStates().at(email));
}

}  // namespace
}  // namespace kestrio
