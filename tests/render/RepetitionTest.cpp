#include "support/Repetition.h"

#include "imaging/codecs/ImageDecoder.h"
#include "render/RenderFixtures.h"
#include "render/style/Theme.h"

#include <QFile>

namespace kestrio {
namespace {

const QImage& dashboard() {
    static const QImage picture = loadImageFile(
        QStringLiteral(KESTRIO_SOURCE_DIR "/tests/support/pictures/dashboard-4k.png"));
    return picture;
}

CompositeRequest dashboardAtDensityTwo(const char* preset) {
    CompositeRequest request =
        requestOf(dashboard(), PresetTheme::find(QString::fromLatin1(preset))->style());
    request.screenshot = Image(dashboard(), QSizeF(dashboard().size()) / 2);
    request.canvasState.canvasSize = request.screenshot.pointSize();
    return request;
}

TEST(Repetition, CompositionsAreTheSameWithEveryThread) {
    expectTheSameEveryTime(
        [] { return testComposer().compose(dashboardAtDensityTwo("clean")).bitmap(); });
}

TEST(Repetition, AnnotatedSheetsAreTheSameWithEveryThread) {
    QFile file(QStringLiteral(KESTRIO_SOURCE_DIR "/tests/render/golden/annotations.json"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    CompositeRequest request = requestOf(dashboard(), bareStyle());
    request.annotations = decodeJsonText<std::vector<AnyAnnotation>>(file.readAll());
    // The sheet again further down, so that every band has some of it.
    const std::vector<AnyAnnotation> sheet = request.annotations;
    for (AnyAnnotation annotation : sheet) {
        annotation.setBounds(annotation.bounds().translated(1500, 1100));
        request.annotations.push_back(annotation);
    }
    expectTheSameEveryTime([&] { return testComposer().compose(request).bitmap(); });
}

}  // namespace
}  // namespace kestrio
