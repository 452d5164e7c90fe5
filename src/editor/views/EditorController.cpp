#include "editor/views/EditorController.h"

#include "core/Cancelled.h"
#include "core/Localisation.h"
#include "editor/crop/CropGeometry.h"
#include "editor/views/StyleFields.h"
#include "editor/views/ThumbnailProvider.h"
#include "imaging/ExportError.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/filters/Resample.h"
#include "library/FileNaming.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPointer>
#include <QStandardPaths>
#include <cmath>

namespace kestrio {

namespace {

constexpr int thumbnailWidth = 320;  // pixels of the picture in thumbnails

Image smallCopy(const Image& image) {
    const QSize full = image.pixelSize();
    if (full.width() <= thumbnailWidth) return image;
    const QSize pixels(thumbnailWidth, std::max(1, full.height() * thumbnailWidth / full.width()));
    return Image(scaledTo(image.bitmap(), pixels));
}

}  // namespace

EditorController::EditorController(EditorServices services, QString suggestedName, QObject* parent)
    : QObject(parent),
      services_(services),
      suggestedName_(std::move(suggestedName)),
      editor_(std::move(services)),
      themes_(std::make_shared<ThemeStorageService>(services_.userDefaults)),
      hints_(services_.userDefaults),
      keyboard_(editor_, &hints_),
      thumbnails_(std::make_shared<ThumbnailSource>()) {
    keyboard_.activate();
    connectEditor();
}

EditorController::~EditorController() {
    exportStop_.request_stop();
}

ThumbnailProvider* EditorController::makeThumbnailProvider() {
    return new ThumbnailProvider(thumbnails_, services_.watermark);
}

void EditorController::connectEditor() {
    using Editor = EditorViewModel;
    const auto relay = [this](auto from, auto to) { connect(&editor_, from, this, to); };
    for (const auto signal : {&Editor::backdropChanged, &Editor::mockupChanged,
                              &Editor::frameStyleChanged, &Editor::frameScaleChanged,
                              &Editor::currentPresetThemeIdChanged, &Editor::currentThemeChanged}) {
        relay(signal, &EditorController::styleChanged);
    }
    for (const auto signal : {&Editor::isAnnotationModeChanged, &Editor::isCropModeChanged})
        relay(signal, &EditorController::modeChanged);
    for (const auto signal : {&Editor::canUndoChanged, &Editor::canRedoChanged})
        relay(signal, &EditorController::undoChanged);
    for (const auto signal : {&Editor::canvasStateChanged, &Editor::screenshotChanged})
        relay(signal, &EditorController::canvasChanged);
    for (const auto signal : {&Editor::cropRectChanged, &Editor::cropLockedRatioChanged})
        relay(signal, &EditorController::cropChanged);
    relay(&Editor::isExportingChanged, &EditorController::exportingChanged);
    relay(&Editor::isShortcutOverlayVisibleChanged, &EditorController::shortcutOverlayChanged);
    relay(&Editor::isEnhancingImageChanged, &EditorController::enhancingChanged);
    connect(&editor_, &Editor::screenshotChanged, this,
            [this] { launch(shrinkForThumbnails(), this); });
    connect(&editor_.watermarkVM(), &WatermarkViewModel::isEnabledChanged, this,
            &EditorController::styleChanged);
    connect(&editor_.watermarkVM(), &WatermarkViewModel::settingsChanged, this,
            &EditorController::styleChanged);
    connect(&editor_.colorPickerVM(), &ColorPickerViewModel::isColorPickingModeChanged, this,
            &EditorController::modeChanged);
    connect(&themes_, &ThemeViewModel::userThemesChanged, this, &EditorController::themesChanged);
    using Annotations = AnnotationViewModel;
    AnnotationViewModel& annotations = editor_.annotationVM();
    for (const auto signal :
         {&Annotations::currentToolChanged, &Annotations::toolSettingsChanged,
          &Annotations::selectedAnnotationChanged, &Annotations::selectedAnnotationsChanged,
          &Annotations::isTextEditingChanged, &Annotations::annotationsVisibleChanged}) {
        connect(&annotations, signal, this, &EditorController::toolChanged);
    }
    connect(&annotations, &Annotations::numberEditingStateChanged, this,
            &EditorController::numberEditingChanged);
}

void EditorController::open(const Image& image) {
    editor_.loadCapture(image);
}

Task<> EditorController::shrinkForThumbnails() {
    const QPointer<EditorController> self(this);
    const Image full = editor_.screenshot();
    auto work = [full] { return smallCopy(full); };
    const auto shrinking = runInBackground(std::move(work));
    Image small = co_await shrinking;
    if (!self || editor_.screenshot().bitmap().cacheKey() != full.bitmap().cacheKey()) co_return;
    smallPicture_ = std::move(small);
    refreshThumbnails();
}

void EditorController::refreshThumbnails() {
    if (smallPicture_.isNull()) return;  // follow when there is something to show
    thumbnails_->set({smallPicture_, editor_.style(), themes_.userThemes()});
    ++thumbnailRevision_;
    Q_EMIT thumbnailRevisionChanged();
}

QVariantMap EditorController::style() const {
    return styleFields(editor_);
}

int EditorController::zoomPercent() const {
    return static_cast<int>(std::lround(editor_.canvasState().transform.scale * 100));
}

QString EditorController::pictureSize() const {
    const QSize pixels = editor_.screenshot().pixelSize();
    return QStringLiteral("%1 × %2").arg(pixels.width()).arg(pixels.height());
}

void EditorController::set(const QString& field, const QVariant& value) {
    setStyleField(editor_, field, value);
}

void EditorController::choose(const QString& field, const QVariant& value) {
    set(field, value);
    commit();
    refreshThumbnails();
}

void EditorController::setBackdropImage(const QUrl& url) {
    launch(loadBackdropImage(url.toLocalFile()), this);
}

Task<> EditorController::loadBackdropImage(QString path) {
    const QPointer<EditorController> self(this);
    auto work = [path] {
        ImageBackdropSettings settings;
        settings.imagePath = path;
        settings.imageData = readImageFile(path);
        decodeImage(*settings.imageData);  // what cannot be read is told now, not drawn grey
        return settings;
    };
    QString failure;
    try {
        const auto loading = runInBackground(std::move(work));
        const ImageBackdropSettings settings = co_await loading;
        if (!self) co_return;
        BackdropSettings backdrop = editor_.backdrop();
        backdrop.type = BackdropType::image;
        backdrop.imageSettings = settings;
        editor_.set_backdrop(backdrop);
        commit();
        refreshThumbnails();
    } catch (const Error& error) {
        failure = error.errorDescription();
    }
    if (self && !failure.isEmpty()) Q_EMIT failed(failure);
}

void EditorController::applyPreset(const QString& id) {
    const PresetTheme* preset = PresetTheme::find(id);
    if (!preset) return;
    editor_.applyPresetTheme(*preset);
    refreshThumbnails();
}

QVariantList EditorController::themes() const {
    QVariantList rows;
    for (const Theme& theme : themes_.userThemes()) {
        rows << QVariantMap{{QStringLiteral("id"), theme.id.toString(QUuid::WithoutBraces)},
                            {QStringLiteral("name"), theme.name}};
    }
    return rows;
}

QString EditorController::currentTheme() const {
    const auto& theme = editor_.currentTheme();
    return theme ? theme->id.toString(QUuid::WithoutBraces) : QString();
}

void EditorController::applyTheme(const QString& id) {
    for (const Theme& theme : themes_.userThemes()) {
        if (theme.id != QUuid::fromString(id)) continue;
        editor_.applyTheme(theme);
        refreshThumbnails();
        return;
    }
}

void EditorController::saveTheme(const QString& name) {
    if (name.trimmed().isEmpty()) {
        Q_EMIT failed(localised("A theme needs a name"));
        return;
    }
    themes_.saveTheme(name.trimmed(), editor_.style());
    if (!themes_.errorMessage().isEmpty()) {
        Q_EMIT failed(themes_.errorMessage());
        return;
    }
    refreshThumbnails();
    Q_EMIT toast(localised("Theme saved"));
}

void EditorController::deleteTheme(const QString& id) {
    themes_.deleteTheme(QUuid::fromString(id));
    if (!themes_.errorMessage().isEmpty()) Q_EMIT failed(themes_.errorMessage());
}

void EditorController::setAspect(const QString& name, double ratio) {
    editor_.setAspectRatio({name, ratio > 0 ? std::optional(ratio) : std::nullopt});
}

void EditorController::rotate(bool clockwise) {
    clockwise ? editor_.rotateClockwise() : editor_.rotateCounterClockwise();
}

void EditorController::dragCropHandle(int handle, const QRectF& start, double dx, double dy) {
    if (handle < 0 || handle >= static_cast<int>(cropHandles.size())) return;
    editor_.set_cropRect(draggedCropRect({cropHandles[static_cast<std::size_t>(handle)],
                                          start,
                                          {dx, dy},
                                          imageSize(),
                                          editor_.cropLockedRatio()}));
}

void EditorController::moveCrop(const QRectF& start, double dx, double dy) {
    editor_.set_cropRect(clampedCropRect(start.translated(dx, dy), imageSize()));
}

QUrl EditorController::saveFolder() const {
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QUrl::fromLocalFile(QFileInfo(pictures).isDir() ? pictures : QDir::homePath());
}

QUrl EditorController::suggestedFile() const {
    return QUrl::fromLocalFile(saveFolder().toLocalFile() + u'/' + suggestedName_ +
                               QStringLiteral(" (Kestrio).png"));
}

void EditorController::setCropRatio(double ratio) {
    editor_.setCropRatio(ratio > 0 ? std::optional(ratio) : std::nullopt);
}

void EditorController::setZoomText(const QString& text) {
    editor_.setZoomText(text);
    Q_EMIT canvasChanged();
}

void EditorController::zoomBy(double factor) {
    editor_.setZoom(editor_.canvasState().transform.scale * factor);
}

void EditorController::zoomToFit() {
    CanvasState canvas = editor_.canvasState();
    canvas.transform.scale = 1;
    canvas.transform.offset = {0, 0};
    editor_.set_canvasState(canvas);
}

void EditorController::setExportProgress(double progress) {
    exportProgress_ = progress;
    Q_EMIT exportProgressChanged();
}

void EditorController::autoBeautify() {
    editor_.autoBeautify();
    refreshThumbnails();
    Q_EMIT toast(localised("Auto beautify applied"));
}

void EditorController::enhance(const QString& mode, double strength) {
    const auto known = fromRawString<AIEnhancementMode>(mode.toStdString());
    if (known) launch(runEnhance(*known, strength), this);
}

Task<> EditorController::runEnhance(AIEnhancementMode mode, double strength) {
    const QPointer<EditorController> self(this);
    QString failure;
    try {
        auto enhancing = editor_.enhanceImage(mode, strength);
        co_await enhancing;
    } catch (const Error& error) {
        failure = error.errorDescription();
    }
    if (!self) co_return;
    Q_EMIT enhancingChanged();
    if (failure.isEmpty()) {
        Q_EMIT toast(localised("Image enhanced"));
    } else {
        Q_EMIT failed(failure);
    }
}

void EditorController::restoreOriginal() {
    editor_.restoreOriginalImage();
    Q_EMIT enhancingChanged();
    Q_EMIT toast(localised("Original image restored"));
}

void EditorController::copy() {
    launch(runCopy(), this);
}

Task<> EditorController::runCopy() {
    const QPointer<EditorController> self(this);
    QString failure;
    try {
        auto copying = editor_.copyToClipboard();
        co_await copying;
    } catch (const Error& error) {
        failure = error.errorDescription();
    }
    if (!self) co_return;
    if (failure.isEmpty()) {
        Q_EMIT toast(localised("Copied to clipboard"));
    } else {
        Q_EMIT failed(localised("Copy failed: ") + failure);
    }
}

void EditorController::exportTo(const QUrl& file, const QString& format) {
    const QString path = file.isLocalFile() ? file.toLocalFile() : file.toString();
    const QString name = format.isEmpty() ? QFileInfo(path).suffix() : format;
    const auto known = formatNamed(name);
    if (!known) {
        Q_EMIT failed(localised("\"%1\" does not tell a format; end it in .png, .jpeg or .webp")
                          .arg(QFileInfo(path).fileName()));
        return;
    }
    launch(runExport(path, *known), this);
}

Task<> EditorController::runExport(QString path, ExportFormat format) {
    const QPointer<EditorController> self(this);
    exportStop_ = std::stop_source();
    setExportProgress(0);
    EncodeHooks hooks;
    hooks.stop = exportStop_.get_token();
    hooks.progress = [self](double fraction) {
        QMetaObject::invokeMethod(
            qApp,
            [self, fraction] {
                if (self) self->setExportProgress(fraction);
            },
            Qt::QueuedConnection);
    };
    QString failure;
    bool isCancelled = false;
    try {
        auto exporting = editor_.exportImage(path, format, hooks);
        co_await exporting;
    } catch (const ExportError& error) {
        isCancelled = error.errorCase() == ExportError::Case::userCancelled;
        failure = error.errorDescription();
        if (!error.reason().isEmpty()) failure += QStringLiteral(" (%1)").arg(error.reason());
    } catch (const Cancelled&) {
        isCancelled = true;
    } catch (const Error& error) {
        failure = error.errorDescription();
    }
    if (!self || isCancelled) co_return;
    if (failure.isEmpty()) {
        Q_EMIT toast(localised("Saved to %1").arg(path));
    } else {
        Q_EMIT failed(failure);
    }
}

void EditorController::cancelExport() {
    exportStop_.request_stop();
}

void EditorController::openFile(const QUrl& file) {
    launch(loadFile(file.toLocalFile()), this);
}

Task<> EditorController::loadFile(QString path) {
    const QPointer<EditorController> self(this);
    auto work = [path] { return loadImageFile(path); };
    QString failure;
    try {
        const auto loading = runInBackground(std::move(work));
        const QImage bitmap = co_await loading;
        if (self) editor_.replaceScreenshot(Image(bitmap));
    } catch (const Error& error) {
        failure = error.errorDescription();
    }
    if (self && !failure.isEmpty()) Q_EMIT failed(failure);
}

}  // namespace kestrio
