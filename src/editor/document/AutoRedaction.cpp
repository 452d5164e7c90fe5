#include "editor/document/AutoRedaction.h"

#include "editor/document/EditorViewModel.h"

#include <QPointer>

namespace kestrio {

namespace {

const QString kindKey = QStringLiteral("com.kestrio.redactionKind");
constexpr double redactionPadding = 8;  // points

bool isSamePicture(const Image& a, const Image& b) {
    return a.bitmap().cacheKey() == b.bitmap().cacheKey();
}

}  // namespace

/// A picture is being searched for as long as one of these lives.
class Scanning {
  public:
    explicit Scanning(AutoRedaction* owner) : owner_(owner) { owner->set_isScanning(true); }
    ~Scanning() {
        if (owner_) owner_->set_isScanning(false);
    }
    Q_DISABLE_COPY_MOVE(Scanning)

  private:
    QPointer<AutoRedaction> owner_;
};

AutoRedaction::AutoRedaction(EditorViewModel& editor, const EditorServices& services)
    : editor_(editor),
      detector_(services.detector),
      redaction_(services.redaction),
      userDefaults_(services.userDefaults) {
    const QString stored =
        userDefaults_ ? userDefaults_->string(kindKey).value_or(QString()) : QString();
    if (const auto kind = fromRawString<RedactionKind>(stored.toStdString())) set_kind(*kind);
}

AutoRedaction::~AutoRedaction() {
    stop_.request_stop();
}

void AutoRedaction::setKind(RedactionKind kind) {
    set_kind(kind);
    if (userDefaults_) userDefaults_->setString(kindKey, rawString(kind));
}

void AutoRedaction::toggle() {
    if (isScanning())
        cancel();
    else
        launch(autoRedact(), this);
}

QString AutoRedaction::obstacle() const {
    return detector_ ? detector_->obstacle()
                     : Kestrio::tr("Text cannot be recognised on this system.");
}

Task<> AutoRedaction::autoRedact() {
    if (editor_.screenshot().isNull()) {
        editor_.set_errorMessage(Kestrio::tr("No screenshot loaded"));
        co_return;
    }
    if (isScanning()) co_return;
    if (const QString reason = obstacle(); !reason.isEmpty()) {
        editor_.set_errorMessage(reason);
        co_return;
    }
    const Scanning scanning(this);
    const QPointer<AutoRedaction> self(this);
    const auto detector = detector_;
    stop_ = std::stop_source();
    const std::stop_token stop = stop_.get_token();
    QString failure;
    try {
        for (bool isCovered = false; !isCovered;) {
            const Image picture = editor_.screenshot();
            auto detecting = detector->detect(picture, stop);
            const std::vector<DetectionResult> detections = co_await detecting;
            if (!self || stop.stop_requested()) co_return;
            isCovered = isSamePicture(picture, editor_.screenshot());
            if (isCovered) cover(picture, detections);
        }
    } catch (const Cancelled&) {
        co_return;
    } catch (const SensitiveInfoDetectionError& error) {
        failure = error.errorDescription();
    } catch (const std::exception& error) {
        failure = Kestrio::tr("Auto-redact failed: %1").arg(describeFailure(error));
    }
    if (self && !failure.isEmpty()) editor_.set_errorMessage(failure);
}

void AutoRedaction::cover(const Image& picture, std::vector<DetectionResult> detections) {
    const RedactionRequest request{inPoints(std::move(detections), picture), picture.pointSize(),
                                   redactionPadding, kind(), MarkMerging::nearby};
    const auto blurs = redaction_->makeAnnotations(request);
    if (blurs.empty()) {
        editor_.set_toastMessage(Kestrio::tr("No sensitive information detected"));
        return;
    }
    editor_.addMarks({blurs.begin(), blurs.end()});
    const int count = static_cast<int>(blurs.size());
    editor_.set_toastMessage(count == 1
                                 ? Kestrio::tr("Redacted 1 sensitive item")
                                 : Kestrio::tr("Redacted %n sensitive items", nullptr, count));
}

}  // namespace kestrio
