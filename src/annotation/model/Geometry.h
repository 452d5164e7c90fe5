#pragma once

#include <QPointF>
#include <QRectF>
#include <vector>

namespace kestrio {

// Plane geometry in image points, y growing downwards. Qt's own comparisons of points and
// rectangles forgive small differences and its tests for intersection take rectangles without area
// for empty; a horizontal stroke has such a rectangle, and a step of undo hangs on the smallest
// difference.

bool identical(const QPointF& a, const QPointF& b);
bool identical(const QRectF& a, const QRectF& b);
bool identical(const std::vector<QPointF>& a, const std::vector<QPointF>& b);

/// The smallest rectangle around points; the zero rectangle for none.
QRectF enclosingRect(const std::vector<QPointF>& points);
/// The smallest rectangle around both, rectangles without area included.
QRectF enclosingRect(const QRectF& a, const QRectF& b);
/// The rectangle with these opposite corners, with a size that is not negative.
QRectF rectBetween(const QPointF& a, const QPointF& b);
QRectF squareAround(const QPointF& center, double side);
QRectF grown(const QRectF& rect, double margin);

/// The edges belong to the rectangle.
bool contains(const QRectF& rect, const QPointF& point);
/// Touching edges do not count, but a rectangle without extent on an axis counts where it lies in
/// the other one.
bool intersects(const QRectF& a, const QRectF& b);

/// Where the point goes when the space is stretched so that `from`, which has area, becomes `to`.
QPointF mapped(const QPointF& point, const QRectF& from, const QRectF& to);

double distance(const QPointF& a, const QPointF& b);
/// To the nearest point of the segment; a segment of no length counts as a point.
double distanceToSegment(const QPointF& point, const QPointF& start, const QPointF& end);
/// To the nearest point of the rectangle; 0 inside.
double distanceToRect(const QPointF& point, const QRectF& rect);
/// Turned about a centre, clockwise on the screen for positive degrees.
QPointF rotated(const QPointF& point, const QPointF& center, double degrees);

}  // namespace kestrio
