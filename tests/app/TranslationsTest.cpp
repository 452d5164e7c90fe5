#include "app/language/Translations.h"

#include "core/Localisation.h"
#include "core/UserDefaults.h"

#include <gtest/gtest.h>
#include <QGuiApplication>
#include <QLocale>
#include <QTranslator>

namespace kestrio {
namespace {

class TranslationsTest : public testing::Test {
  protected:
    ~TranslationsTest() override {
        for (QTranslator* each : qApp->findChildren<QTranslator*>())
            delete each;
        QLocale::setDefault(locale_);
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
        qunsetenv("KESTRIO_MIRRORED");
    }

    void install(const QString& code) {
        MemoryUserDefaults defaults;
        if (!code.isEmpty()) defaults.setStringArray(languageKey(), {code});
        installTranslations(*qApp, defaults);
    }

  private:
    const QLocale locale_;
};

TEST_F(TranslationsTest, ALanguageOfTheSettingsCountsInTextsPluralsAndNumbers) {
    install(QStringLiteral("de"));
    EXPECT_EQ(Kestrio::tr("Undo"), u"Rückgängig");
    EXPECT_EQ(Kestrio::tr("and %n more", nullptr, 1), u"und 1 weiteres");
    EXPECT_EQ(Kestrio::tr("and %n more", nullptr, 3), u"und 3 weitere");
    EXPECT_EQ(QLocale().decimalPoint(), u",");
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight);
}

TEST_F(TranslationsTest, WhatIsNotTranslatedIsEnglishWithItsPlurals) {
    install(QStringLiteral("fr"));
    EXPECT_EQ(Kestrio::tr("Undo"), u"Undo");
    EXPECT_EQ(Kestrio::tr("Restore %n unsaved pictures?", nullptr, 1),
              u"Restore 1 unsaved picture?");
}

TEST_F(TranslationsTest, WindowsCanBeMirroredWithoutATableThatNeedsIt) {
    qputenv("KESTRIO_MIRRORED", "1");
    install({});
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::RightToLeft);
}

TEST(Translations, AreOfferedWhereThereIsATable) {
    for (const auto language : {AppLanguage::system, AppLanguage::en, AppLanguage::de})
        EXPECT_TRUE(isTranslated(language)) << enumRow(language).raw;
    EXPECT_FALSE(isTranslated(AppLanguage::ar));
}

}  // namespace
}  // namespace kestrio
