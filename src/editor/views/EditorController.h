#pragma once

#include "editor/document/EditorViewModel.h"
#include "editor/keyboard/AnnotationKeyboardHandler.h"
#include "render/stores/ThemeViewModel.h"

#include <QQmlEngine>
#include <QUrl>
#include <QVariantMap>

namespace kestrio {

class ThumbnailProvider;

/// The editor as its QML views see it: values as names, numbers and colours, and one operation for
/// each thing that a view offers. Holds no logic of the document. Main thread.
class EditorController : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window's owner makes it")
    Q_PROPERTY(QVariantMap style READ style NOTIFY styleChanged)
    Q_PROPERTY(QVariantMap tool READ tool NOTIFY toolChanged)
    Q_PROPERTY(bool isAnnotationMode READ isAnnotationMode NOTIFY modeChanged)
    Q_PROPERTY(bool isCropMode READ isCropMode NOTIFY modeChanged)
    Q_PROPERTY(bool isTextEditing READ isTextEditing NOTIFY toolChanged)
    Q_PROPERTY(bool isShortcutOverlayVisible READ isShortcutOverlayVisible WRITE
                   setShortcutOverlayVisible NOTIFY shortcutOverlayChanged)
    Q_PROPERTY(bool isPickingColor READ isPickingColor NOTIFY modeChanged)
    Q_PROPERTY(QObject* colorPicker READ colorPicker CONSTANT)
    Q_PROPERTY(QVariantList shortcutColumns READ shortcutColumns CONSTANT)
    Q_PROPERTY(bool isEnhancing READ isEnhancing NOTIFY enhancingChanged)
    Q_PROPERTY(bool canRestore READ canRestore NOTIFY enhancingChanged)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY undoChanged)
    Q_PROPERTY(bool canRedo READ canRedo NOTIFY undoChanged)
    Q_PROPERTY(bool isExporting READ isExporting NOTIFY exportingChanged)
    Q_PROPERTY(double exportProgress READ exportProgress NOTIFY exportProgressChanged)
    Q_PROPERTY(int zoomPercent READ zoomPercent NOTIFY canvasChanged)
    Q_PROPERTY(QString aspectName READ aspectName NOTIFY canvasChanged)
    Q_PROPERTY(QString pictureSize READ pictureSize NOTIFY canvasChanged)
    Q_PROPERTY(QRectF cropRect READ cropRect WRITE setCropRect NOTIFY cropChanged)
    Q_PROPERTY(QSizeF imageSize READ imageSize NOTIFY canvasChanged)
    Q_PROPERTY(double cropRatio READ cropRatio NOTIFY cropChanged)
    Q_PROPERTY(QString currentPreset READ currentPreset NOTIFY styleChanged)
    Q_PROPERTY(QVariantMap numberEditing READ numberEditing NOTIFY numberEditingChanged)
    /// Changes whenever thumbnails of the picture must be made again.
    Q_PROPERTY(int thumbnailRevision READ thumbnailRevision NOTIFY thumbnailRevisionChanged)
    Q_PROPERTY(QVariantList presets READ presets CONSTANT)
    /// The user's own, each {id, name}.
    Q_PROPERTY(QVariantList themes READ themes NOTIFY themesChanged)
    Q_PROPERTY(QString currentTheme READ currentTheme NOTIFY styleChanged)
    Q_PROPERTY(QVariantList tools READ tools CONSTANT)
    Q_PROPERTY(QVariantList quickColors READ quickColorList CONSTANT)
    Q_PROPERTY(QVariantMap choices READ choices CONSTANT)
    Q_PROPERTY(QString suggestedName READ suggestedName CONSTANT)
    Q_PROPERTY(QUrl saveFolder READ saveFolder CONSTANT)
    Q_PROPERTY(QUrl suggestedFile READ suggestedFile CONSTANT)

  public:
    EditorController(EditorServices services, QString suggestedName, QObject* parent = nullptr);
    ~EditorController() override;

    EditorViewModel& editor() { return editor_; }
    std::shared_ptr<ImageRendererServiceProtocol> imageRenderer() const {
        return services_.imageRenderer;
    }
    std::shared_ptr<WatermarkServiceProtocol> watermarkService() const {
        return services_.watermark;
    }
    /// For the QML engine, which takes ownership.
    ThumbnailProvider* makeThumbnailProvider();

    void open(const Image& image);

    QVariantMap style() const;
    QVariantMap tool() const;
    bool isAnnotationMode() const { return editor_.isAnnotationMode(); }
    bool isCropMode() const { return editor_.isCropMode(); }
    bool isTextEditing() const { return editor_.annotationVM().isTextEditing(); }
    bool isPickingColor() const { return editor_.colorPickerVM().isColorPickingMode(); }
    QObject* colorPicker() { return &editor_.colorPickerVM(); }
    bool isShortcutOverlayVisible() const { return editor_.isShortcutOverlayVisible(); }
    void setShortcutOverlayVisible(bool isVisible) {
        editor_.set_isShortcutOverlayVisible(isVisible);
    }
    /// Two columns of categories, each {name, rows}.
    QVariantList shortcutColumns() const;
    bool isEnhancing() const { return editor_.isEnhancingImage(); }
    bool canRestore() const { return editor_.canRestoreOriginalImage(); }
    bool canUndo() const { return editor_.canUndo(); }
    bool canRedo() const { return editor_.canRedo(); }
    bool isExporting() const { return editor_.isExporting(); }
    double exportProgress() const { return exportProgress_; }
    int zoomPercent() const;
    QString aspectName() const { return editor_.canvasState().aspectRatio.name; }
    QString pictureSize() const;
    QRectF cropRect() const { return editor_.cropRect(); }
    void setCropRect(const QRectF& rect) { editor_.set_cropRect(rect); }
    QSizeF imageSize() const { return editor_.screenshot().pointSize(); }
    double cropRatio() const { return editor_.cropLockedRatio().value_or(0); }
    QString currentPreset() const { return editor_.currentPresetThemeId().value_or(QString()); }
    QVariantMap numberEditing() const;
    int thumbnailRevision() const { return thumbnailRevision_; }
    QVariantList presets() const;
    QVariantList themes() const;
    QString currentTheme() const;
    QVariantList tools() const;
    QVariantList quickColorList() const;
    /// Lists for pickers by the name of their field, each row {id, name}.
    QVariantMap choices() const;
    QString suggestedName() const { return suggestedName_; }
    QUrl saveFolder() const;
    /// A PNG file of the document's name in the save folder.
    QUrl suggestedFile() const;

    /// Live change of a style field; commit() makes it a step of undo.
    Q_INVOKABLE void set(const QString& field, const QVariant& value);
    Q_INVOKABLE void commit() { editor_.recordSnapshot(); }
    /// Both at once, for choices that are made with one click.
    Q_INVOKABLE void choose(const QString& field, const QVariant& value);
    Q_INVOKABLE void setBackdropImage(const QUrl& url);
    Q_INVOKABLE void applyPreset(const QString& id);
    Q_INVOKABLE void applyTheme(const QString& id);
    /// Keeps the present style under a name that no other theme has.
    Q_INVOKABLE void saveTheme(const QString& name);
    Q_INVOKABLE void deleteTheme(const QString& id);
    Q_INVOKABLE void setAspect(const QString& name, double ratio);

    Q_INVOKABLE void setTool(const QString& name);
    Q_INVOKABLE void setToolColor(const QColor& color);
    Q_INVOKABLE void setStrokeSize(const QString& name);
    Q_INVOKABLE void setFillMode(const QString& name);
    Q_INVOKABLE void setBlur(const QString& type, double intensity);
    Q_INVOKABLE void commitBlur();
    Q_INVOKABLE void deleteSelected();
    Q_INVOKABLE void toggleAnnotations() { editor_.toggleAnnotationMode(); }
    Q_INVOKABLE void toggleVisibility() { editor_.annotationVM().toggleVisibility(); }
    Q_INVOKABLE void align(const QString& edge);
    Q_INVOKABLE void bringToFront();
    Q_INVOKABLE void sendToBack();
    Q_INVOKABLE void setNumberText(const QString& text);
    Q_INVOKABLE void commitNumber();
    Q_INVOKABLE void cancelNumber() { editor_.annotationVM().cancelNumberEdit(); }

    /// The eyedropper; points of the image.
    Q_INVOKABLE void togglePicker() { editor_.toggleColorPicker(); }
    Q_INVOKABLE void movePicker(const QPointF& point);
    Q_INVOKABLE void pickColor(const QPointF& point, bool forBackdrop);
    /// A key that no text field took; true where it was a command.
    Q_INVOKABLE bool handleKey(int key, int modifiers, const QString& text);
    Q_INVOKABLE void autoBeautify();
    Q_INVOKABLE void enhance(const QString& mode, double strength);
    Q_INVOKABLE void restoreOriginal();
    Q_INVOKABLE void undo() { editor_.undo(); }
    Q_INVOKABLE void redo() { editor_.redo(); }
    Q_INVOKABLE void reset() { editor_.reset(); }
    Q_INVOKABLE void rotate(bool clockwise);
    Q_INVOKABLE void enterCrop() { editor_.enterCropMode(); }
    Q_INVOKABLE void applyCrop() { editor_.applyCrop(); }
    Q_INVOKABLE void cancelCrop() { editor_.cancelCrop(); }
    /// A drag of the handle of this index, in the order of CropHandle, from the frame that it began
    /// with; in points of the image. moveCrop() drags the whole frame.
    Q_INVOKABLE void dragCropHandle(int handle, const QRectF& start, double dx, double dy);
    Q_INVOKABLE void moveCrop(const QRectF& start, double dx, double dy);
    Q_INVOKABLE void setCropRatio(double ratio);
    Q_INVOKABLE void setZoomText(const QString& text);
    Q_INVOKABLE void zoomBy(double factor);
    Q_INVOKABLE void zoomToFit();

    Q_INVOKABLE void copy();
    /// `format` empty tells by the file's ending.
    Q_INVOKABLE void exportTo(const QUrl& file, const QString& format);
    Q_INVOKABLE void cancelExport();
    /// A picture file that was dropped; replaces the picture and keeps the style.
    Q_INVOKABLE void openFile(const QUrl& file);

    Q_SIGNAL void shortcutOverlayChanged();
    Q_SIGNAL void enhancingChanged();
    Q_SIGNAL void themesChanged();
    Q_SIGNAL void styleChanged();
    Q_SIGNAL void toolChanged();
    Q_SIGNAL void modeChanged();
    Q_SIGNAL void undoChanged();
    Q_SIGNAL void exportingChanged();
    Q_SIGNAL void exportProgressChanged();
    Q_SIGNAL void canvasChanged();
    Q_SIGNAL void cropChanged();
    Q_SIGNAL void numberEditingChanged();
    Q_SIGNAL void thumbnailRevisionChanged();
    /// A short word that leaves by itself, and a failure that the user has to read.
    Q_SIGNAL void toast(const QString& text);
    Q_SIGNAL void failed(const QString& text);

  private:
    void connectEditor();
    void refreshThumbnails();
    Task<> shrinkForThumbnails();
    Task<> runExport(QString path, ExportFormat format);
    Task<> loadBackdropImage(QString path);
    Task<> loadFile(QString path);
    Task<> runCopy();
    Task<> runEnhance(AIEnhancementMode mode, double strength);
    void setExportProgress(double progress);

    EditorServices services_;
    QString suggestedName_;
    EditorViewModel editor_;
    ThemeViewModel themes_;
    ShortcutHintManager hints_;
    AnnotationKeyboardHandler keyboard_;
    std::shared_ptr<class ThumbnailSource> thumbnails_;
    Image smallPicture_;
    int thumbnailRevision_ = 0;
    double exportProgress_ = 0;
    std::stop_source exportStop_;
    std::optional<AnyAnnotation> blurBefore_;
};

}  // namespace kestrio
