#include "capture/region/RegionCaptureWindow.h"

#include "capture/overlay/OverlayLabel.h"
#include "capture/region/Magnifier.h"
#include "capture/region/OverlayLayout.h"
#include "capture/region/SelectionKeys.h"
#include "capture/region/SelectionPainter.h"
#include "imaging/text/SystemFont.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <cmath>

namespace kestrio {

namespace {

constexpr double labelSize = 12;
constexpr int toolTipMilliseconds = 450;
// Of the display, on either side of the toolbar.
constexpr double toolbarMargin = 4;

OverlayLabel labelOf(const QString& text) {
    return {text, systemFont(labelSize, QFont::Medium)};
}

QRect withMargin(const QRectF& rect) {
    return rect.isEmpty() ? QRect() : rect.toAlignedRect().adjusted(-3, -3, 3, 3);
}

}  // namespace

RegionCaptureWindow::RegionCaptureWindow(const Display& display, DisplaySnapshot snapshot,
                                         std::vector<WindowInfo> windows,
                                         RegionSelectionOptions options, bool isDark, Ending ending)
    : FrozenWindow(display, std::move(snapshot)),
      selection_(display.bounds, std::move(windows), 1 / display.scale),
      options_(std::move(options)),
      bounds_(display.bounds),
      isDark_(isDark),
      ending_(std::move(ending)),
      toolbar_(display.bounds.width() - 2 * toolbarMargin) {
    setTitle(QStringLiteral("Kestrio Region Capture"));
    setCursor(Qt::CrossCursor);
    selection_.move(QCursor::pos() - display.bounds.topLeft());
    toolTipDelay_.setSingleShot(true);
    toolTipDelay_.setInterval(toolTipMilliseconds);
    connect(&toolTipDelay_, &QTimer::timeout, this,
            [this] { change([this] { showsToolTip_ = true; }); });
}

QRegion RegionCaptureWindow::undimmed() const {
    const QRectF cutOut = selection_.cutOut();
    return cutOut.isEmpty() ? QRegion() : QRegion(cutOut.toAlignedRect());
}

bool RegionCaptureWindow::showsPointerAids() const {
    return !isAdjusting() && !selection_.isDragging();
}

bool RegionCaptureWindow::showsMagnifier() const {
    return options_.magnifies && !snapshot().image.isNull() && !isAdjusting();
}

QRectF RegionCaptureWindow::toolbarRect() const {
    return isAdjusting() ? toolbarPlace(selection_.selection(), toolbar_.size(), size()) : QRectF();
}

QString RegionCaptureWindow::sizeText() const {
    const QRectF& rect = selection_.selection();
    return QStringLiteral("%1 × %2").arg(int(rect.width())).arg(int(rect.height()));
}

QRectF RegionCaptureWindow::labelRect() const {
    if (selection_.selection().isEmpty()) return {};
    return sizeLabelPlace(selection_.selection(), labelOf(sizeText()).size(), size(),
                          toolbarRect());
}

ToolbarLook RegionCaptureWindow::toolbarLook() const {
    ToolbarLook look;
    look.origin = toolbarRect().topLeft();
    look.hovered = hoveredButton_;
    look.pressed = pressedButton_;
    look.showsToolTip = showsToolTip_;
    look.color = toolColor_.value_or(ToolSettings().color);
    look.isDark = isDark_;
    look.view = size();
    return look;
}

QRegion RegionCaptureWindow::decorations() const {
    QRegion all = selectionBorder(selection_.cutOut());
    all += withMargin(labelRect());
    if (isAdjusting()) {
        all += withMargin(toolbarRect());
        if (showsToolTip_ && hoveredButton_ >= 0) {
            all += withMargin(CaptureToolbarPainter::toolTipPlace(toolbar_, toolbarLook()));
        }
    }
    if (showsPointerAids()) {
        const QPoint at = selection_.pointer().toPoint();
        all += QRect(0, at.y() - 2, width(), 5);
        all += QRect(at.x() - 2, 0, 5, height());
    }
    if (showsMagnifier()) all += withMargin(magnifierPlace(selection_.pointer(), size()));
    return all;
}

void RegionCaptureWindow::follow(const QRegion& before, const QRectF& cutOutBefore) {
    const QRegion old(cutOutBefore.toAlignedRect());
    const QRegion now(selection_.cutOut().toAlignedRect());
    repaint(before + decorations() + old.xored(now));
}

template <typename Change>
void RegionCaptureWindow::change(Change change) {
    const QRegion before = decorations();
    const QRectF cutOut = selection_.cutOut();
    change();
    setCursor(selection_.cursor());
    follow(before, cutOut);
}

void RegionCaptureWindow::paintOver(QPainter& painter) {
    paintSelection(painter, selection_);
    if (showsPointerAids()) {
        painter.fillRect(QRectF(0, std::floor(selection_.pointer().y()), width(), 1),
                         QColor(255, 255, 255, 204));
        painter.fillRect(QRectF(std::floor(selection_.pointer().x()), 0, 1, height()),
                         QColor(255, 255, 255, 204));
    }
    const QRectF label = labelRect();
    if (!label.isEmpty()) labelOf(sizeText()).paint(painter, label);
    if (isAdjusting()) toolbarPainter_.paint(painter, toolbar_, toolbarLook());
    if (showsMagnifier()) {
        const QPointF pixel = selection_.pointer() * snapshot().scale;
        paintMagnifier(painter, magnifierPlace(selection_.pointer(), size()), snapshot().image,
                       QPoint(int(std::floor(pixel.x())), int(std::floor(pixel.y()))));
    }
}

void RegionCaptureWindow::mousePressEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    if (event->button() == Qt::RightButton) {
        if (isAdjusting()) {
            change([this] { selection_.startOver(); });
        } else {
            cancel();
        }
    } else if (event->button() == Qt::LeftButton) {
        if (toolbarRect().contains(at)) {
            change([&] {
                hoverToolbar(at);
                pressedButton_ = hoveredButton_;
            });
        } else {
            change([&] { selection_.press(at); });
        }
    }
}

void RegionCaptureWindow::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    change([&] {
        if (pressedButton_ < 0) selection_.move(at);
        hoverToolbar(at);
    });
    if (hoveredButton_ >= 0 || toolbarRect().contains(at)) setCursor(Qt::ArrowCursor);
}

void RegionCaptureWindow::hoverToolbar(QPointF point) {
    const QRectF toolbar = toolbarRect();
    const int hovered = isAdjusting() && !selection_.isDragging() && toolbar.contains(point)
                            ? toolbar_.buttonAt(point - toolbar.topLeft())
                            : -1;
    if (hovered == hoveredButton_) return;
    hoveredButton_ = hovered;
    showsToolTip_ = showsToolTip_ && hovered >= 0;
    if (hovered >= 0) {
        toolTipDelay_.start();
    } else {
        toolTipDelay_.stop();
    }
}

void RegionCaptureWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    if (pressedButton_ >= 0) {
        const int pressed = pressedButton_;
        change([this] { pressedButton_ = -1; });
        if (pressed == hoveredButton_) run(toolbar_.buttons()[std::size_t(pressed)].command);
        return;
    }
    auto released = RegionSelection::Release::nothing;
    change([&] { released = selection_.release(event->position()); });
    if (released == RegionSelection::Release::chosen) choose();
}

void RegionCaptureWindow::mouseDoubleClickEvent(QMouseEvent* event) {
    const bool isInside = selection_.selection().contains(event->position());
    if (isAdjusting() && isInside && !toolbarRect().contains(event->position())) {
        end(CaptureAction::edit, std::nullopt);
    } else {
        mousePressEvent(event);
    }
}

void RegionCaptureWindow::choose() {
    if (options_.confirms) {
        change([this] { selection_.beginAdjusting(); });
    } else {
        end(CaptureAction::edit, std::nullopt);
    }
}

bool RegionCaptureWindow::takeKey(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Escape) {
        cancel();
        return true;
    }
    if (event.key() == Qt::Key_A && event.modifiers() & Qt::ControlModifier) {
        change([this] { selection_.selectAll(); });
        choose();
        return true;
    }
    return isAdjusting() && takeAdjustingKey(event);
}

bool RegionCaptureWindow::takeAdjustingKey(const QKeyEvent& event) {
    if (const auto step = stepOfKey(event)) {
        moveByKey(event, *step);
        return true;
    }
    const auto command = commandOfKey(event, toolbar_);
    if (command) run(*command);
    return command.has_value();
}

void RegionCaptureWindow::moveByKey(const QKeyEvent& event, QPointF step) {
    change([&] {
        if (event.modifiers() & Qt::ControlModifier) {
            selection_.growBy(step);
        } else {
            selection_.moveBy(step);
        }
    });
}

void RegionCaptureWindow::run(const ToolbarCommand& command) {
    if (const auto* action = std::get_if<CaptureAction>(&command)) {
        end(*action, std::nullopt);
    } else if (const auto* tool = std::get_if<AnnotationTool>(&command)) {
        end(CaptureAction::edit, *tool);
    } else if (const auto* color = std::get_if<CodableColor>(&command)) {
        change([&] { toolColor_ = *color; });
    } else {
        cancel();
    }
}

Image RegionCaptureWindow::crop() const {
    const QImage& frozen = snapshot().image;
    const QRectF rect = selection_.selection();
    if (frozen.isNull() || rect.width() <= 1 || rect.height() <= 1) return {};
    const double scale = snapshot().scale;
    const QRect pixels =
        QRectF(rect.x() * scale, rect.y() * scale, rect.width() * scale, rect.height() * scale)
            .toAlignedRect() &
        frozen.rect();
    return Image(frozen.copy(pixels), scale);
}

void RegionCaptureWindow::end(CaptureAction action, std::optional<AnnotationTool> tool) {
    const Ending ending = std::exchange(ending_, nullptr);
    if (!ending) return;
    RegionCaptureResult result;
    result.rect = selection_.selection().translated(bounds_.topLeft());
    result.image = crop();
    result.choice = {action, {}, tool, toolColor_};
    ending(std::move(result));
}

void RegionCaptureWindow::cancel() {
    if (const Ending ending = std::exchange(ending_, nullptr)) ending(std::nullopt);
}

}  // namespace kestrio
