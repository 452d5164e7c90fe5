#pragma once

#include "render/CompositeLayout.h"
#include "render/style/MockupSettings.h"

#include <QImage>

namespace kestrio {

/// A screenshot with its corners or frame and its shadow.
struct ScreenshotGroup {
    QImage screenshot;
    MockupSettings mockup;
    CompositeLayout layout;
};

/// Draws the group where its layout puts it. Nothing where the layout leaves it no room.
void paintScreenshotGroup(QImage& output, const ScreenshotGroup& group);

/// The corner radius of a picture without a frame, in points: the setting is the outer figure, the
/// picture is cut 4 points inside of it, at most 44.
double framelessCornerRadius(double setting);

}  // namespace kestrio
