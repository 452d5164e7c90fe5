#include "settings/AppSettingsService.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

const QString key = QStringLiteral("com.kestrio.appSettings");

AppSettings loaded(const QByteArray& blob) {
    auto defaults = std::make_shared<MemoryUserDefaults>();
    if (!blob.isNull()) defaults->setData(key, blob);
    return AppSettingsService(defaults).load();
}

TEST(AppSettings, EachKeyFallsBackOnItsOwn) {
    const AppSettings settings = loaded(
        R"({"appLanguage":"tlh","autoCopyToClipboard":false,"historyRetentionLimit":"many",
            "regionCaptureHotkey":{"keyCode":7,"carbonModifiers":256},"windowCaptureHotkey":{"keyCode":1}})");
    EXPECT_EQ(settings.appLanguage, AppLanguage::system);
    EXPECT_FALSE(settings.autoCopyToClipboard);
    EXPECT_EQ(settings.historyRetentionLimit, 100);
    EXPECT_EQ(settings.regionCaptureHotkey, (HotkeyConfig{7, 256}));
    EXPECT_EQ(settings.windowCaptureHotkey, (HotkeyConfig{13, 6144}));
    EXPECT_EQ(settings.recordingHotkey, (HotkeyConfig{15, 6144}));
    EXPECT_EQ(settings.defaultExportFormat, ExportFormat::webp);
}

TEST(AppSettings, UnreadableBlobsCountAsNone) {
    for (const char* blob : {"", "[]", "{", "null", "\xff\xfe"}) {
        EXPECT_EQ(loaded(blob), AppSettings()) << blob;
    }
}

TEST(AppSettings, LoadingClampsAndSavingDoesNot) {
    struct Row {
        double quality, loadedQuality;
        int limit, loadedLimit;
    };
    for (const Row& row : {Row{0.01, 0.1, 5, 10}, Row{3, 1, 5000, 1000}, Row{0.5, 0.5, 50, 50}}) {
        auto defaults = std::make_shared<MemoryUserDefaults>();
        AppSettings settings;
        settings.defaultExportQuality = row.quality;
        settings.historyRetentionLimit = row.limit;
        AppSettingsService(defaults).save(settings);
        EXPECT_EQ(decodeJsonText<AppSettings>(*defaults->data(key)), settings);
        const AppSettings again = AppSettingsService(defaults).load();
        EXPECT_EQ(again.defaultExportQuality, row.loadedQuality);
        EXPECT_EQ(again.historyRetentionLimit, row.loadedLimit);
    }
}

TEST(HotkeyConfig, ShowsModifiersInTheirOrderAndTheKey) {
    struct Row {
        HotkeyConfig hotkey;
        const char* text;
    };
    const Row rows[] = {
        {{0, 6144}, "⌃⌥A"},     {{49, 0x1b00}, "⌃⌥⇧⌘Space"},
        {{111, 0x100}, "⌘F12"}, {{200, 0x200}, "⇧?"},
        {{29, 0}, "0"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.hotkey.displayString(), QString::fromUtf8(row.text));
}

}  // namespace
}  // namespace kestrio
