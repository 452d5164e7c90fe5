#include "editor/views/ThumbnailProvider.h"

#include "core/Error.h"
#include "core/Priority.h"
#include "render/style/EffectPreset.h"
#include "render/style/GradientPreset.h"
#include "render/style/Theme.h"

namespace kestrio {

namespace {

// The canvas of a thumbnail in points: small, so that patterns and frames are large enough to see.
constexpr QSizeF thumbnailCanvas(240, 150);

using Apply = void (*)(EditorStyleSettings& style, const QString& id);

template <typename E>
E enumOf(const QString& id, E otherwise) {
    return fromRawString<E>(id.toStdString()).value_or(otherwise);
}

void applyPreset(EditorStyleSettings& style, const QString& id) {
    if (const PresetTheme* preset = PresetTheme::find(id)) style = preset->style();
}

void applyGradient(EditorStyleSettings& style, const QString& id) {
    style.backdrop.type = BackdropType::gradient;
    style.backdrop.gradientPreset = id;
    style.backdrop.customGradientColors = std::nullopt;
}

void applyFrame(EditorStyleSettings& style, const QString& id) {
    style.frameStyle = enumOf(id, FrameStyle::none);
}

void applyPattern(EditorStyleSettings& style, const QString& id) {
    PatternSettings pattern = style.backdrop.pattern.value_or(PatternSettings());
    pattern.type = enumOf(id, PatternType::none);
    pattern.intensity = std::max(pattern.intensity, 0.5);
    pattern.color.alpha = std::max(pattern.color.alpha, 0.25);
    style.backdrop.pattern = pattern;
}

void applyOverlay(EditorStyleSettings& style, const QString& id) {
    style.backdrop.overlay =
        OverlaySettings{enumOf(id, OverlayType::none), 60, OverlayPosition::overlay};
}

// Plain colours look alike under every effect.
void applyEffect(EditorStyleSettings& style, const QString& id) {
    const BackdropType type = style.backdrop.type;
    if (type == BackdropType::solid || type == BackdropType::none) {
        applyGradient(style, QStringLiteral("aurora"));
    }
    for (const EffectPreset& preset : EffectPreset::all())
        if (preset.id == id) style.backdrop.effects = preset.effects();
}

struct ThumbnailKind {
    const char* name;
    Apply apply;
    bool showsPicture;  ///< or the backdrop alone
};

constexpr ThumbnailKind kinds[] = {
    {"theme", [](EditorStyleSettings&, const QString&) {}, true},
    {"preset", applyPreset, true},
    {"gradient", applyGradient, false},
    {"frame", applyFrame, true},
    {"pattern", applyPattern, false},
    {"overlay", applyOverlay, false},
    {"effect", applyEffect, false},
};

/// A picture that shows nothing, for kinds that show the backdrop alone.
Image emptyPicture() {
    QImage clear(2, 2, QImage::Format_ARGB32_Premultiplied);
    clear.fill(Qt::transparent);
    return Image(clear);
}

CompositeRequest requestOf(const ThumbnailSource::Values& values, const ThumbnailKind& kind,
                           const QString& id, double scale) {
    EditorStyleSettings style = values.style;
    kind.apply(style, id);
    for (const Theme& theme : values.themes)
        if (theme.id == QUuid::fromString(id)) style = theme.style();
    CompositeRequest request;
    request.setStyle(style);
    request.screenshot = kind.showsPicture ? values.picture : emptyPicture();
    if (!kind.showsPicture) {
        request.mockup.shadowEnabled = false;
        request.frameStyle = FrameStyle::none;
    }
    request.backdropDetail = PictureDetail::small;
    // Thumbnails show how it looks on a canvas of their own.
    request.backdrop.keepPixels = std::nullopt;
    request.backdrop.padding = std::min(request.backdrop.padding, 24.0);
    request.canvasState.canvasSize = thumbnailCanvas;
    request.outputScale = scale;
    return request;
}

}  // namespace

void ThumbnailSource::set(Values values) {
    const std::lock_guard lock(mutex_);
    values_ = std::move(values);
}

ThumbnailSource::Values ThumbnailSource::values() const {
    const std::lock_guard lock(mutex_);
    return values_;
}

ThumbnailProvider::ThumbnailProvider(std::shared_ptr<ThumbnailSource> source,
                                     std::shared_ptr<WatermarkServiceProtocol> watermark)
    : QQuickImageProvider(QQuickImageProvider::Image,
                          QQuickImageProvider::ForceAsynchronousImageLoading),
      source_(std::move(source)),
      composer_(std::move(watermark)) {}

QImage ThumbnailProvider::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
    stepBackForOthers();
    const QString name = id.section(u'/', 0, 0);
    const QString choice = id.section(u'/', 1).section(u'?', 0, 0);
    const QSize pixels = requestedSize.isEmpty() ? thumbnailCanvas.toSize() : requestedSize;
    const ThumbnailSource::Values values = source_->values();
    for (const ThumbnailKind& kind : kinds) {
        // Asked for before there is a picture, all will be asked for again with it.
        if (name != QLatin1String(kind.name) || values.picture.isNull()) continue;
        const double scale = std::max(pixels.width() / thumbnailCanvas.width(),
                                      pixels.height() / thumbnailCanvas.height());
        try {
            const QImage picture =
                composer_.compose(requestOf(values, kind, choice, scale)).bitmap();
            if (size) *size = picture.size();
            return picture;
        } catch (const Error&) {
            break;
        }
    }
    // A view that waits for a picture shows none.
    QImage nothing(1, 1, QImage::Format_ARGB32_Premultiplied);
    nothing.fill(Qt::transparent);
    if (size) *size = nothing.size();
    return nothing;
}

}  // namespace kestrio
