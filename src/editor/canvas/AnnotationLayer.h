#pragma once

#include "annotation/model/AnyAnnotation.h"
#include "annotation/painting/AnnotationMapping.h"
#include "core/Task.h"

#include <QImage>
#include <QObject>
#include <QPainter>
#include <QRect>

namespace kestrio {

/// All annotations but blurs as a picture that is kept from one frame to the next, so that a frame
/// paints only what changed. Its pixels count from the top left of the canvas before it is turned,
/// whereas records count from the screenshot, which has its place and scale on the canvas; a
/// picture covers what is visible and some more.
///
/// One or few changed records are painted at once. While one record changes again and again, what
/// lies below and above it is kept apart, so that only that record is painted. Many changed
/// records, or another scale or place, are painted in the background, and until then the picture so
/// far stands in, moved and scaled. Main thread.
class AnnotationLayer : public QObject {
    Q_OBJECT

  public:
    using Records = std::vector<AnyAnnotation>;

    AnnotationLayer();
    ~AnnotationLayer() override;

    /// What is to be seen: records from the bottom to the top, the visible pixels, and where and
    /// how large the screenshot's points are among them. Gives the pixels that paint() shows
    /// differently from now on, apart from what another mapping changes.
    QRect show(Records records, const QRect& visible, const AnnotationMapping& mapping);

    /// Paints in the pixels of the mapping that was shown last.
    void paint(QPainter& painter) const;

    /// Whether what lies below and above the record that changes again and again is kept, so that
    /// its repainting is cheap.
    bool isPreparedForGesture() const { return sides_.has_value(); }
    /// Forgets what is kept for a record that changes again and again.
    void endGesture();

    /// A picture made in the background has come; show() and paint() follow.
    Q_SIGNAL void redrawn();

  private:
    struct Geometry {
        QRect area;
        AnnotationMapping mapping;

        bool operator==(const Geometry&) const = default;
        AnnotationMapping mappingFrom(const QPoint& topLeft) const;
        /// The pixels of a rectangle in points, within the area.
        QRect pixels(const QRectF& points) const;
    };
    struct Entry {
        AnyAnnotation record;
        QRectF extent;  ///< points
    };
    struct Picture {
        Geometry geometry;
        QImage image;
        std::vector<Entry> entries;
    };
    /// What differs between the entries and the records to be shown: `oldCount` entries from
    /// `first` on stand where `newCount` records should.
    struct Difference {
        std::size_t first = 0, oldCount = 0, newCount = 0;
        bool isOneInPlace() const { return oldCount == 1 && newCount == 1; }
    };
    /// What lies below and above one entry.
    struct Sides {
        std::size_t index = 0;
        QImage below, above;  ///< null where nothing is
    };

    static QImage painted(std::span<const AnyAnnotation> records, const Geometry& geometry);
    Difference difference() const;
    QRect patch(const Difference& change);
    void repaint(const QRect& pixels);
    void paintTouched(QImage& fresh, const QRect& pixels) const;
    void paintBetweenSides(QImage& fresh, const QRect& pixels) const;
    void requestRedraw(bool isUrgent);
    void dropSides();
    Task<> redraw(std::stop_token stop);
    Task<> split(std::size_t index, std::stop_token stop);

    Records wanted_;
    Geometry wantedGeometry_;
    Picture picture_;
    std::optional<Sides> sides_;
    std::optional<std::size_t> changing_;  ///< the entry that changed alone last
    int sidesVersion_ = 0;                 ///< counts when sides become useless
    bool isSplitting_ = false;
    bool isRedrawing_ = false, isRedrawStale_ = false;
    QTimer rest_;
    std::stop_source stop_;
};

}  // namespace kestrio
