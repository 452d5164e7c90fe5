#include "render/enhance/AutoBeautify.h"

#include "core/Clamp.h"
#include "render/enhance/AutoColorMatchService.h"

namespace kestrio {

EditorStyleSettings autoBeautified(const Image& image) {
    const AutoColorMatchService colors;
    const QSizeF size = image.pointSize();
    const double side = std::max({size.width(), size.height(), 1.0});
    EditorStyleSettings style;
    style.backdrop.type = BackdropType::solid;
    style.backdrop.solidColor = colors.softened(colors.dominantColors(image, 1).front());
    style.backdrop.padding = clampedOr(side * 0.06, 24, 64);
    style.mockup.cornerRadius = clampedOr(side * 0.015, 8, 20);
    style.mockup.shadowEnabled = true;
    style.mockup.shadowIntensity = ShadowIntensity::medium;
    style.mockup.lightSource = LightSource::topLeft;
    style.frameStyle = FrameStyle::none;
    return style;
}

}  // namespace kestrio
