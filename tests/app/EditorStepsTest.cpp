#include "app/capture/EditorSteps.h"

#include "support/ScriptedDetector.h"
#include "support/Waiting.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

TEST(EditorSteps, CoverPrivateDataOfACaptureWhereTheSettingsSaySo) {
    const auto defaults = std::make_shared<MemoryUserDefaults>();
    const auto settings = std::make_shared<AppSettingsService>(defaults);
    const auto detector = std::make_shared<ScriptedDetector>();
    detector->results = {
        {SensitiveInfoType::email, QStringLiteral("a@b.org"), {20, 20, 60, 10}, 1}};
    EditorServices services = makeEditorServices({}, defaults);
    services.detector = detector;
    EditorViewModel editor(services);
    QImage bitmap(200, 100, QImage::Format_RGB32);
    bitmap.fill(Qt::white);
    editor.loadCapture({Image(bitmap), {}, {}});

    const auto runSteps = [&] {
        for (const EditorStep& step : standardEditorSteps(settings))
            step(editor, {});
    };
    runSteps();
    EXPECT_TRUE(detector->searched.empty());
    AppSettings changed = settings->load();
    changed.autoRedactOnCapture = true;
    settings->save(changed);
    runSteps();
    EXPECT_TRUE(waitUntil([&] { return editor.annotations().size() == 1; }));
}

}  // namespace
}  // namespace kestrio
