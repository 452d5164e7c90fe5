#pragma once

#include "editor/text/OCRTranslationModel.h"

namespace kestrio {

/// A part of the picture in which text was read.
struct OCRRegion {
    QUuid id;
    QRectF bounds;  ///< fractions of the picture from its bottom left, as OCRResult::boundingBox
    QString text;
    bool isSelected = false;

    bool operator==(const OCRRegion&) const = default;
};

/// The text of a document's picture: a scan of it, its results, and what is copied of them. Main
/// thread.
class OCRViewModel : public QObject {
    Q_OBJECT
    PUBLISHED(bool, isScanning, false)
    PUBLISHED(std::vector<OCRResultWithConfidence>, results, {})
    /// What a scan reads, in fractions from the bottom left; the whole picture where absent.
    PUBLISHED_WRITABLE(std::optional<QRectF>, selectedRegion, std::nullopt)
    /// One for each result, in the same order.
    PUBLISHED(std::vector<OCRRegion>, highlightedRegions, {})
    PUBLISHED_WRITABLE(bool, showResultsPanel, false)
    /// Empty without an error.
    PUBLISHED(QString, errorMessage, {})
    PUBLISHED(QString, successMessage, {})
    /// The pointer chooses the region of the next scan.
    PUBLISHED_WRITABLE(bool, isRegionSelectionMode, false)

  public:
    explicit OCRViewModel(const TextServices& services);
    ~OCRViewModel() override;

    OCRTranslationModel& translation() { return translation_; }
    const OCRTranslationModel& translation() const { return translation_; }

    /// Reads the picture and shows what was found. Nothing happens while a scan is under way.
    /// Failures become errorMessage.
    Task<> scan(Image image);
    /// Ends a scan at once; what was found before stays.
    void cancelScan();
    /// Forgets what was found, and ends a scan: the picture is another one.
    void clear();

    /// The number of the region at a point in fractions from the bottom left, the smallest of
    /// several; -1 beside all of them.
    int regionAt(const QPointF& place) const;

    /// These put texts on the clipboard. Numbers count results; of others nothing is copied.
    void copyRegion(int index);
    void copyAll();
    void copyTranslation(int index);
    void copyAllTranslations();

  private:
    struct Outcome;
    static Task<Outcome> read(std::shared_ptr<OCRServiceProtocol> service, Image image,
                              std::optional<QRectF> region, std::stop_token stop);
    void show(std::vector<OCRResultWithConfidence> found);
    void copy(const QString& text, const QString& message);
    void report(const QString& error);
    const OCRResultWithConfidence* resultAt(int index) const;

    const std::shared_ptr<OCRServiceProtocol> service_;
    const std::shared_ptr<Pasteboard> pasteboard_;
    OCRTranslationModel translation_;
    std::stop_source scan_;
    int scanGeneration_ = 0;
};

}  // namespace kestrio
