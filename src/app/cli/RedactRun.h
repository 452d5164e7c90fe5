#pragma once

#include "app/cli/RenderPlan.h"
#include "library/export/PictureExporter.h"
#include "text/redaction/RedactionService.h"

#include <optional>
#include <set>

namespace kestrio {

/// What one picture is searched for, and what becomes of it.
struct RedactRun {
    QString input;
    std::optional<RenderJob> job;  ///< where the covered picture goes; without one none is written
    RedactionKind kind = RedactionKind::solid;
    std::set<SensitiveInfoType> types;  ///< what counts; empty for everything
};

struct RedactResult {
    std::vector<DetectionResult> detections;
    QSize size;         ///< of the picture, in pixels
    QString savedPath;  ///< empty where nothing was written
};

struct RedactServices {
    std::shared_ptr<SensitiveInfoDetectorProtocol> detector;
    std::shared_ptr<PictureExporterProtocol> exporter;
};

/// Reads, searches, covers and writes a picture; also one in which nothing is found. Throws what
/// these throw, and ExportError::renderingFailed rather than write a picture that is not covered.
Task<RedactResult> redactPicture(RedactRun run, RedactServices services, std::stop_token stop);

/// The picture with marks of a kind on what was found. Throws as above. Blocks; any thread.
Image covered(const Image& image, const std::vector<DetectionResult>& detections,
              RedactionKind kind, const std::stop_token& stop);

}  // namespace kestrio
