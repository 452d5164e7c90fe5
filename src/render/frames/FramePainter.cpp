#include "render/frames/FramePainter.h"

#include "render/frames/FrameColors.h"
#include "render/frames/FrameGlyphs.h"
#include "render/frames/FrameText.h"

#include <QLinearGradient>
#include <QPainterPath>

namespace kestrio {

namespace {

using namespace frameColors;

// A title bar in points: its origin at its top left corner, clipped to the window's outline.
struct Bar {
    QPainter& painter;
    double width;
    double height;

    QRectF rect() const { return {0, 0, width, height}; }
    double middle() const { return height / 2; }
};

constexpr double lightDiameter = 12;
constexpr double lightPitch = 20;
constexpr double lightsLeading = 12;
constexpr double lightsEnd = lightsLeading + 2 * lightPitch + lightDiameter;

struct TrafficLight {
    QColor fill;
    QColor stroke;
};

QColor rgb(float red, float green, float blue) {
    return QColor::fromRgbF(red, green, blue);
}

void paintTrafficLights(const Bar& bar) {
    const TrafficLight lights[] = {
        {rgb(1, 0.38f, 0.35f), rgb(0.87f, 0.2812f, 0.2485f)},
        {rgb(1, 0.78f, 0.25f), rgb(0.87f, 0.6162f, 0.12f)},
        {rgb(0.35f, 0.78f, 0.35f), rgb(0.049f, 0.702f, 0.161f)},
    };
    double x = lightsLeading + lightDiameter / 2;
    for (const TrafficLight& light : lights) {
        bar.painter.setPen(QPen(light.stroke, 0.5));
        bar.painter.setBrush(light.fill);
        bar.painter.drawEllipse(QPointF(x, bar.middle()), lightDiameter / 2, lightDiameter / 2);
        x += lightPitch;
    }
}

void fillVertically(const Bar& bar, const QColor& top, const QColor& bottom) {
    QLinearGradient gradient(0, 0, 0, bar.height);
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    bar.painter.fillRect(bar.rect(), gradient);
}

// A field with a symbol and a host name, centred in the bar. It gives up its text and then its
// symbol where the window is too narrow for them.
struct AddressField {
    double width;
    double height;
    double radius;
    QColor fill;
    QColor outline;
    FrameGlyph glyph;
    double glyphSize;
    double spacing;
    FrameTextWeight weight;
};

void paintAddressField(const Bar& bar, const AddressField& field) {
    constexpr double textSize = 12;
    const QRectF rect((bar.width - field.width) / 2, bar.middle() - field.height / 2, field.width,
                      field.height);
    bar.painter.setPen(QPen(field.outline, 1));
    bar.painter.setBrush(field.fill);
    bar.painter.drawRoundedRect(rect, field.radius, field.radius);

    const FrameText text{placeholderHost(), textSize, field.weight, primaryText};
    constexpr double inset = 12;
    const double textWidth = frameTextWidth(text);
    const double room = field.width - 2 * inset;
    const double whole = field.glyphSize + field.spacing + textWidth;
    const GlyphStyle glyph{field.glyphSize, secondaryText};
    if (whole <= room) {
        const double left = rect.center().x() - whole / 2;
        paintFrameGlyph(bar.painter, field.glyph, {left + field.glyphSize / 2, bar.middle()},
                        glyph);
        paintFrameText(bar.painter, text, {left + field.glyphSize + field.spacing, bar.middle()});
    } else if (field.glyphSize <= room) {
        paintFrameGlyph(bar.painter, field.glyph, rect.center(), glyph);
    }
}

struct BarGlyph {
    FrameGlyph glyph;
    double centre;
    GlyphStyle style;
};

// Leaves out what would touch the field in the middle.
void paintBarGlyph(const Bar& bar, const BarGlyph& item, double fieldWidth) {
    const double clear = item.style.size / 2 + 6;
    const double fromMiddle = std::abs(item.centre - bar.width / 2);
    if (fromMiddle < fieldWidth / 2 + clear || item.centre < lightsEnd + clear) return;
    paintFrameGlyph(bar.painter, item.glyph, {item.centre, bar.middle()}, item.style);
}

void paintMacOSBar(const Bar& bar) {
    QColor fading = windowBackground;
    fading.setAlphaF(0.95f);
    fillVertically(bar, windowBackground, fading);
    paintTrafficLights(bar);
}

void paintSafariBar(const Bar& bar) {
    constexpr double size = 14;
    bar.painter.fillRect(bar.rect(), controlBackground);
    bar.painter.fillRect(QRectF(0, bar.height - 1, bar.width, 1), black(0.12));
    paintTrafficLights(bar);
    const double fieldWidth = std::min(bar.width * 0.5, 300.0);
    QColor faint = secondaryText;
    faint.setAlphaF(secondaryText.alphaF() * 0.5f);
    const BarGlyph glyphs[] = {
        {FrameGlyph::chevronLeft,
         lightsEnd + 16 + size / 2,
         {size, secondaryText, GlyphWeight::medium}},
        {FrameGlyph::chevronRight, lightsEnd + 36 + size / 2, {size, faint, GlyphWeight::medium}},
        {FrameGlyph::share, bar.width - 46, {size, secondaryText}},
        {FrameGlyph::plus, bar.width - 19, {size, secondaryText}},
    };
    for (const BarGlyph& glyph : glyphs)
        paintBarGlyph(bar, glyph, fieldWidth);
    paintAddressField(bar, {fieldWidth, 24, 6, textBackground, black(0.08), FrameGlyph::lock, 10, 6,
                            FrameTextWeight::regular});
}

void paintArcBar(const Bar& bar) {
    constexpr double size = 13;
    fillVertically(bar, rgb(0.95f, 0.95f, 0.97f), rgb(0.92f, 0.92f, 0.94f));
    paintTrafficLights(bar);
    const double pillWidth = std::min(bar.width * 0.4, 220.0);
    paintBarGlyph(bar,
                  {FrameGlyph::sidebarLeft, lightsEnd + 10 + size / 2 + 4, {size, secondaryText}},
                  pillWidth);
    paintBarGlyph(bar, {FrameGlyph::plus, bar.width - 19, {size, secondaryText}}, pillWidth);
    paintAddressField(bar, {pillWidth, 24, 12, white(0.8), black(0.08), FrameGlyph::globe, 11, 4,
                            FrameTextWeight::medium});
}

void paintWindowsBar(const Bar& bar) {
    constexpr double buttonWidth = 46;
    constexpr double iconSize = 14;
    constexpr double leading = 12;
    constexpr FrameGlyph buttons[] = {FrameGlyph::close, FrameGlyph::maximise,
                                      FrameGlyph::minimise};
    bar.painter.fillRect(bar.rect(), rgb(0.96f, 0.96f, 0.96f));
    double centre = bar.width - buttonWidth / 2;
    for (const FrameGlyph button : buttons) {
        paintFrameGlyph(bar.painter, button, {centre, bar.middle()}, {10, primaryText});
        centre -= buttonWidth;
    }
    const double room = bar.width - std::size(buttons) * buttonWidth;
    const FrameText title{QStringLiteral("Window"), 12, FrameTextWeight::regular, primaryText};
    const double titleLeft = leading + iconSize + 8;
    if (leading + iconSize <= room) {
        paintFrameGlyph(bar.painter, FrameGlyph::appWindow, {leading + iconSize / 2, bar.middle()},
                        {iconSize, secondaryText});
    }
    if (titleLeft + frameTextWidth(title) <= room) {
        paintFrameText(bar.painter, title, {titleLeft, bar.middle()});
    }
}

void paintStackBar(const Bar& bar) {
    bar.painter.fillRect(bar.rect(), controlBackground);
    paintTrafficLights(bar);
}

struct FrameRow {
    FrameStyle style;
    QColor background;
    double outlineOpacity;
    void (*paintBar)(const Bar&);
};

const FrameRow* frameRow(FrameStyle style) {
    static const FrameRow rows[] = {
        {FrameStyle::macOS, windowBackground, 0.15, paintMacOSBar},
        {FrameStyle::safari, windowBackground, 0.15, paintSafariBar},
        {FrameStyle::arc, windowBackground, 0.15, paintArcBar},
        {FrameStyle::windows, Qt::white, 0.1, paintWindowsBar},
        {FrameStyle::stack, windowBackground, 0.15, paintStackBar},
        {FrameStyle::stack2, windowBackground, 0.15, paintStackBar},
    };
    for (const FrameRow& row : rows) {
        if (row.style == style) return &row;
    }
    return nullptr;
}

void outlineInside(QPainter& painter, const FrameShape& shape, const QRectF& rect, double opacity) {
    // A filled ring and no stroke: pens thinner than a pixel are widened to one.
    const double width = 0.5 * shape.scale;
    QPainterPath ring = roundedRect(rect, shape.cornerRadius());
    ring.addPath(
        roundedRect(rect.adjusted(width, width, -width, -width), shape.cornerRadius() - width));
    ring.setFillRule(Qt::OddEvenFill);
    painter.fillPath(ring, black(opacity));
}

void paintSheets(QPainter& painter, const FrameShape& shape) {
    for (int depth = frameMetrics(shape.style).backSheets; depth > 0; --depth) {
        const QPainterPath sheet = shape.sheetPath(depth);
        painter.fillPath(sheet, windowBackground);
        outlineInside(painter, shape, sheet.boundingRect(), 0.1);
    }
}

// Its edges lie under the window's outline, which hides that clips are not smooth.
void paintTitleBar(QPainter& painter, const FrameShape& shape, const FrameRow& row) {
    painter.setClipPath(shape.windowPath(), Qt::IntersectClip);
    const QRectF titleBar = shape.titleBar();
    painter.translate(titleBar.topLeft());
    painter.scale(shape.scale, shape.scale);
    row.paintBar(
        {painter, titleBar.width() / shape.scale, frameMetrics(shape.style).titleBarHeight});
}

}  // namespace

void paintFrameBehindContent(QPainter& painter, const FrameShape& shape) {
    const FrameRow* row = frameRow(shape.style);
    if (!row) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    paintSheets(painter, shape);
    painter.fillPath(shape.backgroundPath(), row->background);
    if (shape.scale > 0) paintTitleBar(painter, shape, *row);
    painter.restore();
}

void paintFrameOverContent(QPainter& painter, const FrameShape& shape) {
    const FrameRow* row = frameRow(shape.style);
    if (!row || shape.scale <= 0) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    outlineInside(painter, shape, shape.window(), row->outlineOpacity);
    painter.restore();
}

}  // namespace kestrio
