#pragma once

#include "editor/document/EditorServices.h"

namespace kestrio {

class EditorViewModel;

/// Finds private data in a document's picture and puts marks on it. Main thread.
class AutoRedaction : public QObject {
    Q_OBJECT
    PUBLISHED(bool, isScanning, false)
    /// What marks are made; the next document begins with it.
    PUBLISHED(RedactionKind, kind, RedactionKind::blur)

  public:
    AutoRedaction(EditorViewModel& editor, const EditorServices& services);
    ~AutoRedaction() override;

    /// Searches the picture and adds one mark for each place, as one step of undo; what came of it
    /// becomes the document's toastMessage or errorMessage. A picture that is replaced or cut
    /// meanwhile is searched again. Does nothing while it goes on already, and says nothing after
    /// cancel().
    Task<> autoRedact();
    void cancel() { stop_.request_stop(); }
    /// Begins, or ends what goes on.
    void toggle();
    void setKind(RedactionKind kind);

  private:
    friend class Scanning;

    QString obstacle() const;
    void cover(const Image& picture, std::vector<DetectionResult> detections);

    EditorViewModel& editor_;
    std::shared_ptr<SensitiveInfoDetectorProtocol> detector_;
    std::shared_ptr<RedactionServiceProtocol> redaction_;
    std::shared_ptr<UserDefaults> userDefaults_;
    std::stop_source stop_;
};

}  // namespace kestrio
