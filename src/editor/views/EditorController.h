#pragma once

#include "editor/layout/ResponsiveLayoutManager.h"
#include "editor/views/AnnotationPanel.h"
#include "editor/views/ClosingPanel.h"
#include "editor/views/ColorPanel.h"
#include "editor/views/CommandPanel.h"
#include "editor/views/CropPanel.h"
#include "editor/views/EditorChoices.h"
#include "editor/views/OutputPanel.h"
#include "editor/views/RedactionPanel.h"
#include "editor/views/SharePanel.h"
#include "editor/views/StyleFields.h"
#include "editor/views/TextPanel.h"
#include "editor/views/ThemePanel.h"
#include "editor/views/WatermarkPanel.h"

namespace kestrio {

class ThumbnailProvider;

/// The editor as its QML views see it: values as names, numbers and colours, one operation for each
/// thing that a view offers, and a panel for each group of views. Holds no logic of the document.
/// Main thread.
class EditorController : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window's owner makes it")
    Q_PROPERTY(kestrio::AnnotationPanel* annotation READ annotation CONSTANT)
    Q_PROPERTY(kestrio::ClosingPanel* closing READ closing CONSTANT)
    Q_PROPERTY(kestrio::ColorPanel* colors READ colors CONSTANT)
    Q_PROPERTY(kestrio::CommandPanel* commands READ commands CONSTANT)
    Q_PROPERTY(kestrio::CropPanel* crop READ crop CONSTANT)
    Q_PROPERTY(kestrio::OutputPanel* output READ output CONSTANT)
    Q_PROPERTY(kestrio::RedactionPanel* redaction READ redaction CONSTANT)
    Q_PROPERTY(kestrio::SharePanel* share READ share CONSTANT)
    Q_PROPERTY(kestrio::TextPanel* text READ text CONSTANT)
    Q_PROPERTY(kestrio::ThemePanel* themes READ themes CONSTANT)
    Q_PROPERTY(kestrio::WatermarkPanel* watermark READ watermark CONSTANT)
    Q_PROPERTY(kestrio::StyleFields* style READ style CONSTANT)
    Q_PROPERTY(kestrio::EditorChoices* choices READ choices CONSTANT)
    /// A capture is still being put together; there is nothing to edit yet.
    Q_PROPERTY(bool isProcessing READ isProcessing NOTIFY processingChanged)
    Q_PROPERTY(bool isAnnotationMode READ isAnnotationMode NOTIFY modeChanged)
    Q_PROPERTY(bool isCropMode READ isCropMode NOTIFY modeChanged)
    /// The tool palette is to be seen: not while a colour is picked.
    Q_PROPERTY(bool isPaletteShown READ isPaletteShown NOTIFY modeChanged)
    Q_PROPERTY(QString openPanel READ openPanel NOTIFY panelsChanged)
    /// "full", "compact" or "minimal", by the right panel's width.
    Q_PROPERTY(QString panelMode READ panelMode NOTIFY panelsChanged)
    Q_PROPERTY(bool isPanelShown READ isPanelShown WRITE setPanelShown NOTIFY panelsChanged)
    Q_PROPERTY(bool isShortcutOverlayVisible READ isShortcutOverlayVisible WRITE
                   setShortcutOverlayVisible NOTIFY panelsChanged)
    Q_PROPERTY(bool isEnhancing READ isEnhancing NOTIFY enhancingChanged)
    Q_PROPERTY(bool canRestore READ canRestore NOTIFY enhancingChanged)
    Q_PROPERTY(int zoomPercent READ zoomPercent NOTIFY canvasChanged)
    Q_PROPERTY(QString aspectName READ aspectName NOTIFY canvasChanged)
    Q_PROPERTY(QString pictureSize READ pictureSize NOTIFY canvasChanged)
    /// Changes whenever thumbnails of the picture must be made again.
    Q_PROPERTY(int thumbnailRevision READ thumbnailRevision NOTIFY thumbnailRevisionChanged)
    /// Where pictures of choices come from, to be followed by "kind/id?revision".
    Q_PROPERTY(QString thumbnails READ thumbnails CONSTANT)
    Q_PROPERTY(QString name READ name CONSTANT)
    Q_PROPERTY(bool isDark READ isDark NOTIFY appearanceChanged)
    Q_PROPERTY(bool isMotionReduced READ isMotionReduced NOTIFY appearanceChanged)

  public:
    /// `name` is the document's, without an ending.
    EditorController(std::shared_ptr<EditorViewModel> document, EditorServices services,
                     QString name, QObject* parent = nullptr);
    ~EditorController() override;

    EditorViewModel& editor() { return editor_; }
    std::shared_ptr<ImageRendererServiceProtocol> imageRenderer() const {
        return services_.imageRenderer;
    }
    std::shared_ptr<WatermarkServiceProtocol> watermarkService() const {
        return services_.watermark;
    }
    /// For a QML engine, which takes ownership and has to know it by thumbnailProvider().
    ThumbnailProvider* makeThumbnailProvider();
    const QString& thumbnailProvider() const { return thumbnailProvider_; }

    AnnotationPanel* annotation() { return &annotation_; }
    ClosingPanel* closing() { return &closing_; }
    ColorPanel* colors() { return &colors_; }
    CommandPanel* commands() { return &commands_; }
    CropPanel* crop() { return &crop_; }
    OutputPanel* output() { return &output_; }
    RedactionPanel* redaction() { return &redaction_; }
    SharePanel* share() { return &share_; }
    TextPanel* text() { return &text_; }
    ThemePanel* themes() { return &themes_; }
    WatermarkPanel* watermark() { return &watermark_; }
    StyleFields* style() { return &style_; }
    EditorChoices* choices() { return &choices_; }
    bool isProcessing() const { return editor_.isProcessingCapture(); }
    bool isAnnotationMode() const { return editor_.isAnnotationMode(); }
    bool isCropMode() const { return editor_.isCropMode(); }
    bool isPaletteShown() const {
        return editor_.isAnnotationMode() &&
               !editor_.annotationSession().isAnnotationPanelPresentationDeferred();
    }
    /// The unfolded section of the right panel; empty where none is.
    QString openPanel() const;
    QString panelMode() const { return rawString(layout_.currentMode()); }
    bool isPanelShown() const { return editor_.isRightPanelExpanded(); }
    void setPanelShown(bool isShown) { editor_.set_isRightPanelExpanded(isShown); }
    bool isShortcutOverlayVisible() const { return editor_.isShortcutOverlayVisible(); }
    void setShortcutOverlayVisible(bool isVisible) {
        editor_.set_isShortcutOverlayVisible(isVisible);
    }
    bool isEnhancing() const { return editor_.enhancement().isEnhancingImage(); }
    bool canRestore() const { return editor_.enhancement().canRestoreOriginalImage(); }
    int zoomPercent() const;
    QString aspectName() const { return editor_.canvasState().aspectRatio.name; }
    QString pictureSize() const;
    int thumbnailRevision() const { return thumbnailRevision_; }
    QString thumbnails() const;
    QString name() const { return name_; }
    bool isDark() const;
    bool isMotionReduced() const;

    Q_INVOKABLE void setBackdropImage(const QUrl& file);
    /// Asks for a picture file and makes it the backdrop, or the watermark.
    Q_INVOKABLE void chooseBackdropImage();
    Q_INVOKABLE void chooseWatermarkImage();
    Q_INVOKABLE void setAspect(const QString& name, double ratio);
    /// A ratio of two typed numbers; what is wrong with them, and empty where it was taken.
    Q_INVOKABLE QString setCustomAspect(const QString& width, const QString& height);
    /// Sets the right panel's size, in points.
    Q_INVOKABLE void updatePanel(double width, double height) { layout_.update(width, height); }
    Q_INVOKABLE void togglePanel(const QString& section);

    /// A key that nothing with the focus took; true where it was a command. A text field that has
    /// the focus keeps the keys that mean something to it, Return and Escape among them.
    Q_INVOKABLE bool handleKey(int key, int modifiers, const QString& text, bool isTextFocused);
    Q_INVOKABLE void autoBeautify();
    Q_INVOKABLE void enhance(const QString& mode, double strength);
    Q_INVOKABLE void restoreOriginal();
    Q_INVOKABLE void reset();
    Q_INVOKABLE void rotate(bool clockwise);
    Q_INVOKABLE void setZoomText(const QString& text);

    /// A dropped or pasted picture; it replaces the picture and keeps the style.
    Q_INVOKABLE void openFile(const QUrl& file);
    /// The same of a drop's bytes.
    Q_INVOKABLE void openData(const QByteArray& data);
    void paste();
    /// Reports which saved themes and presets could not be read, once the window can show it.
    Q_INVOKABLE void reportLoadProblems();
    /// Says that a drop held no picture.
    Q_INVOKABLE void refuseDrop();

    Q_SIGNAL void processingChanged();
    Q_SIGNAL void panelsChanged();
    Q_SIGNAL void modeChanged();
    Q_SIGNAL void enhancingChanged();
    Q_SIGNAL void canvasChanged();
    Q_SIGNAL void thumbnailRevisionChanged();
    Q_SIGNAL void appearanceChanged();
    /// A short word that leaves by itself, and a failure that the user has to read.
    Q_SIGNAL void toast(const QString& text);
    Q_SIGNAL void failed(const QString& text);

  private:
    void connectDocument();
    void connectMessages();
    void refreshThumbnails();
    Task<> shrinkPicture();
    Task<> askForPicture(QString title, void (EditorController::*use)(const QUrl&));
    void setWatermarkImage(const QUrl& file) { watermark_.setPicture(file); }
    Task<> decodeDrop(QByteArray data);
    Task<> pasteFromClipboard();
    Task<> runEnhance(AIEnhancementMode mode, double strength);

    EditorServices services_;
    QString name_;
    std::shared_ptr<EditorViewModel> document_;
    EditorViewModel& editor_;
    ResponsiveLayoutManager layout_;
    ShortcutHintManager hints_;
    AnnotationPanel annotation_;
    ColorPanel colors_;
    CropPanel crop_;
    OutputPanel output_;
    ClosingPanel closing_;
    RedactionPanel redaction_;
    SharePanel share_;
    CommandPanel commands_;
    TextPanel text_;
    ThemePanel themes_;
    WatermarkPanel watermark_;
    StyleFields style_;
    EditorChoices choices_;
    /// Kept from one composition to the next while an editor is open.
    std::shared_ptr<DecodedPictures> decodedPictures_ = DecodedPictures::shared();
    std::shared_ptr<class ThumbnailSource> thumbnails_;
    QString thumbnailProvider_;
    Image smallPicture_;
    QTimer thumbnailTimer_;
    int thumbnailRevision_ = 0;
    bool isPasting_ = false;
};

}  // namespace kestrio
