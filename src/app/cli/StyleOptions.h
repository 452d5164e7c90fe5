#pragma once

#include "imaging/Image.h"
#include "render/CompositeRequest.h"

#include <QCommandLineParser>
#include <optional>

namespace kestrio {

/// The style that a command line asks for, and the sizes that depend on the picture it is applied
/// to.
struct CommandLineStyle {
    EditorStyleSettings style;
    double frameScale = 1;
    double rotation = 0;                ///< degrees, clockwise
    double pixelsPerPoint = 1;          ///< of the input
    std::optional<AspectRatio> aspect;  ///< shapes the canvas around the picture
    std::optional<QSizeF> canvasSize;   ///< points; wins over the picture's own size
    bool keepPixels = false;            ///< whatever the style says
    std::optional<WatermarkSettings> watermark;
    std::vector<AnyAnnotation> annotations;

    /// The composition of a decoded bitmap in this style.
    CompositeRequest requestFor(const QImage& bitmap) const;
};

/// Teaches a parser all style options.
void addStyleOptions(QCommandLineParser& parser);

/// The style that parsed options make, applied in the order in which they stand, so that later ones
/// override earlier ones. Throws UsageError for values that make no sense, with what is known, and
/// Error for files that cannot be read.
CommandLineStyle styleFromOptions(const QCommandLineParser& parser);

}  // namespace kestrio
