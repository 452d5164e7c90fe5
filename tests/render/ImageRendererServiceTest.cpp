#include "render/ImageRendererService.h"

#include "imaging/ExportError.h"
#include "render/RenderFixtures.h"

#include <gtest/gtest.h>

namespace kestrio {
namespace {

struct Renderer : testing::Test {
    std::unique_ptr<ImageRendererService> service = std::make_unique<ImageRendererService>(
        std::make_shared<WatermarkService>(std::make_shared<MemoryUserDefaults>()));
};

TEST_F(Renderer, ComposesInTheBackgroundWhatTheComposerComposes) {
    const CompositeRequest request = requestOf(testScreenshot());
    EXPECT_EQ(runUntilDone(service->renderComposite(request)).bitmap(),
              testComposer().compose(request).bitmap());
}

TEST_F(Renderer, FailuresAndStopsReachTheCaller) {
    EXPECT_THROW(runUntilDone(service->renderComposite({})), ExportError);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THROW(
        runUntilDone(service->renderComposite(requestOf(testScreenshot()), stop.get_token())),
        Cancelled);
}

TEST_F(Renderer, TheServiceMayGoWhileItsFlowIsPending) {
    auto pending = service->renderComposite(requestOf(testScreenshot({900, 700})));
    service.reset();
    EXPECT_FALSE(runUntilDone(std::move(pending)).isNull());
}

TEST(ExportError, MessagesAreTheAgreedOnes) {
    EXPECT_EQ(ExportError::fileWriteFailed(QStringLiteral("/a b")).errorDescription(),
              QStringLiteral("Failed to write file: /a b"));
    EXPECT_EQ(ExportError::unsupportedFormat(ExportFormat::jpeg).errorDescription(),
              QStringLiteral("Unsupported export format: JPEG"));
}

}  // namespace
}  // namespace kestrio
