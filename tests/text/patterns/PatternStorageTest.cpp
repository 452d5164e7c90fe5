#include "text/patterns/PatternStorageService.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

const QString patternsKey = QStringLiteral("com.kestrio.customPatterns");

class PatternStorageTest : public testing::Test {
  protected:
    static SensitivePattern pattern(const QString& name) {
        return {QUuid::createUuid(),
                SensitiveInfoType::custom,
                name,
                QStringLiteral("x+"),
                QStringLiteral("about"),
                true,
                false};
    }
    template <typename Operation>
    QString failureOf(Operation operation) {
        try {
            operation();
        } catch (const PatternStorageError& error) {
            return error.errorDescription();
        }
        return {};
    }

    std::shared_ptr<MemoryUserDefaults> defaults = std::make_shared<MemoryUserDefaults>();
    PatternStorageService storage{defaults};
};

TEST_F(PatternStorageTest, KeepsPatternsInOrderUnderTheirKeys) {
    auto first = pattern(QStringLiteral("first"));
    const auto second = pattern(QStringLiteral("second"));
    storage.saveCustomPattern(first);
    storage.saveCustomPattern(second);
    first.regex = QStringLiteral("y");
    storage.updateCustomPattern(first);
    EXPECT_EQ(PatternStorageService(defaults).loadCustomPatterns(), (std::vector{first, second}));
    const auto json = parseJson(*defaults->data(patternsKey));
    std::vector<std::string> keys;
    for (const auto& [key, value] : json[0].items())
        keys.push_back(key);
    EXPECT_EQ(keys, (std::vector<std::string>{"id", "type", "name", "regex", "description",
                                              "isEnabled", "isBuiltIn"}));
    storage.deleteCustomPattern(first.id);
    EXPECT_EQ(storage.loadCustomPatterns(), std::vector{second});
}

TEST_F(PatternStorageTest, RefusesBuiltInDoubledAndUnknownPatterns) {
    const auto known = pattern(QStringLiteral("known"));
    const auto unknown = pattern(QStringLiteral("unknown"));
    auto builtIn = known;
    builtIn.isBuiltIn = true;
    storage.saveCustomPattern(known);
    EXPECT_EQ(failureOf([&] { storage.saveCustomPattern(builtIn); }),
              QStringLiteral("Cannot save built-in patterns as custom patterns"));
    EXPECT_EQ(failureOf([&] { storage.updateCustomPattern(builtIn); }),
              QStringLiteral("Cannot update built-in patterns"));
    EXPECT_EQ(failureOf([&] { storage.saveCustomPattern(known); }),
              QStringLiteral("Pattern with ID %1 already exists. Use updateCustomPattern instead.")
                  .arg(known.id.toString(QUuid::WithoutBraces).toUpper()));
    EXPECT_NE(failureOf([&] { storage.updateCustomPattern(unknown); }), QString());
    EXPECT_NE(failureOf([&] { storage.deleteCustomPattern(unknown.id); }), QString());
    EXPECT_EQ(storage.loadCustomPatterns(), std::vector{known});
}

TEST_F(PatternStorageTest, PutsEachUnreadableListAsideBeforeWritingOverIt) {
    for (const QByteArray& broken : {QByteArray("[{\"id\": 1}]"), QByteArray("not json")}) {
        defaults->setData(patternsKey, broken);
        EXPECT_TRUE(storage.loadCustomPatterns().empty());
        EXPECT_EQ(defaults->data(patternsKey), broken);
        storage.saveCustomPattern(pattern(QStringLiteral("new")));
        storage.saveCustomPattern(pattern(QStringLiteral("newer")));
        EXPECT_EQ(storage.loadCustomPatterns().size(), 2u);
    }
    EXPECT_EQ(defaults->data(patternsKey + QStringLiteral(".unreadable")), "[{\"id\": 1}]");
    EXPECT_EQ(defaults->data(patternsKey + QStringLiteral(".unreadable2")), "not json");
    EXPECT_FALSE(defaults->data(patternsKey + QStringLiteral(".unreadable3")));
}

TEST_F(PatternStorageTest, RemembersWhichBuiltInPatternsAreOff) {
    const QUuid email = builtInPatterns()[0].id;
    EXPECT_EQ(email, QUuid(QStringLiteral("00000000-0000-0000-0000-000000000001")));
    storage.setBuiltInEnabled(email, false);
    storage.setBuiltInEnabled(email, false);
    EXPECT_FALSE(PatternStorageService(defaults).builtInEnabledStates().at(email));
    storage.setBuiltInEnabled(email, true);
    for (const auto& [id, isEnabled] : storage.builtInEnabledStates())
        EXPECT_TRUE(isEnabled);
}

}  // namespace
}  // namespace kestrio
