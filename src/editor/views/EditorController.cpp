#include "editor/views/EditorController.h"

#include "editor/views/PictureFile.h"
#include "editor/views/ThumbnailProvider.h"
#include "editor/views/ViewRows.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/filters/Resample.h"

#include <QDir>
#include <QGuiApplication>
#include <QPointer>
#include <QStandardPaths>
#include <cmath>

namespace kestrio {

namespace {

constexpr int thumbnailWidth = 320;  // pixels of the picture in thumbnails
constexpr std::chrono::milliseconds thumbnailDelay{150};

Image smallCopy(const Image& image) {
    const QSize full = image.pixelSize();
    if (full.width() <= thumbnailWidth) return image;
    const QSize pixels(thumbnailWidth, std::max(1, full.height() * thumbnailWidth / full.width()));
    return Image(scaledTo(image.bitmap(), pixels));
}

// Editors share an engine, which knows the thumbnails of each by a name.
QString nextProviderName() {
    static int count = 0;
    return QStringLiteral("thumbnail%1").arg(++count);
}

}  // namespace

EditorController::EditorController(std::shared_ptr<EditorViewModel> document,
                                   EditorServices services, QString name, QObject* parent)
    : QObject(parent),
      services_(services),
      name_(std::move(name)),
      document_(std::move(document)),
      editor_(*document_),
      hints_(services_.userDefaults),
      annotation_(editor_, hints_),
      colors_(editor_),
      crop_(editor_),
      output_(editor_, services_, name_),
      closing_(editor_, services_),
      redaction_(editor_),
      share_(editor_, services_, name_),
      commands_(editor_, hints_, {colors_, output_, share_}),
      text_(editor_),
      themes_(editor_, services_.themes),
      watermark_(editor_),
      style_(editor_),
      thumbnails_(std::make_shared<ThumbnailSource>()),
      thumbnailProvider_(nextProviderName()) {
    thumbnailTimer_.setSingleShot(true);
    thumbnailTimer_.setInterval(thumbnailDelay);
    connect(&thumbnailTimer_, &QTimer::timeout, this, &EditorController::refreshThumbnails);
    connectDocument();
    connectMessages();
    if (!editor_.screenshot().isNull()) launch(shrinkPicture(), this);
}

EditorController::~EditorController() = default;

ThumbnailProvider* EditorController::makeThumbnailProvider() {
    return new ThumbnailProvider(thumbnails_, services_.watermark);
}

void EditorController::connectDocument() {
    using Editor = EditorViewModel;
    using Session = AnnotationSession;
    using Enhancement = PictureEnhancement;
    const auto relay = [this](const auto& part, auto signals, auto to) {
        for (const auto signal : signals)
            connect(&part, signal, this, to);
    };
    relay(editor_.annotationSession(),
          std::initializer_list{&Session::isAnnotationModeChanged,
                                &Session::isAnnotationPanelPresentationDeferredChanged},
          &EditorController::modeChanged);
    connect(&editor_.cropSession(), &CropSession::isCropModeChanged, this,
            &EditorController::modeChanged);
    connect(&commands_, &CommandPanel::pasteRequested, this, &EditorController::paste);
    relay(editor_, std::initializer_list{&Editor::canvasStateChanged, &Editor::screenshotChanged},
          &EditorController::canvasChanged);
    relay(editor_,
          std::initializer_list{&Editor::expandedPanelChanged, &Editor::isRightPanelExpandedChanged,
                                &Editor::isShortcutOverlayVisibleChanged},
          &EditorController::panelsChanged);
    relay(editor_.enhancement(),
          std::initializer_list{&Enhancement::isEnhancingImageChanged,
                                &Enhancement::canRestoreOriginalImageChanged},
          &EditorController::enhancingChanged);
    connect(&editor_, &Editor::isProcessingCaptureChanged, this,
            &EditorController::processingChanged);
    connect(&editor_, &Editor::screenshotChanged, this, [this] { launch(shrinkPicture(), this); });
    connect(&editor_.colorPickerVM(), &ColorPickerViewModel::isColorPickingModeChanged, this,
            &EditorController::modeChanged);
    connect(&layout_, &ResponsiveLayoutManager::currentModeChanged, this,
            &EditorController::panelsChanged);
    const auto refreshLater = [this] { thumbnailTimer_.start(); };
    connect(&editor_.styleModel(), &StyleModel::styleChanged, this, refreshLater);
    connect(&themes_, &ThemePanel::themesChanged, this, refreshLater);
    if (services_.appearance) {
        using Look = Appearance;
        for (const auto signal : {&Look::isDarkChanged, &Look::isMotionReducedChanged})
            connect(services_.appearance.get(), signal, this, &EditorController::appearanceChanged);
    }
}

// A message is passed on once; the document keeps none that was shown.
void EditorController::connectMessages() {
    connect(&editor_, &EditorViewModel::toastMessageChanged, this, [this] {
        const auto message = editor_.toastMessage();
        if (!message) return;
        editor_.set_toastMessage(std::nullopt);
        Q_EMIT toast(*message);
    });
    connect(&editor_, &EditorViewModel::errorMessageChanged, this, [this] {
        const auto message = editor_.errorMessage();
        if (!message) return;
        editor_.set_errorMessage(std::nullopt);
        Q_EMIT failed(*message);
    });
}

Task<> EditorController::shrinkPicture() {
    const QPointer<EditorController> self(this);
    const Image picture = editor_.screenshot();
    auto work = [picture] { return smallCopy(picture); };
    const auto shrinking = runInBackground(std::move(work));
    Image small = co_await shrinking;
    if (!self || picture.bitmap().cacheKey() != editor_.screenshot().bitmap().cacheKey()) co_return;
    smallPicture_ = std::move(small);
    refreshThumbnails();
}

void EditorController::refreshThumbnails() {
    if (smallPicture_.isNull()) return;
    thumbnails_->set({smallPicture_, editor_.style(), themes_.userThemes()});
    ++thumbnailRevision_;
    Q_EMIT thumbnailRevisionChanged();
}

QString EditorController::thumbnails() const {
    return QStringLiteral("image://%1/").arg(thumbnailProvider_);
}

QString EditorController::openPanel() const {
    const auto& panel = editor_.expandedPanel();
    return panel ? rawName(*panel) : QString();
}

void EditorController::togglePanel(const QString& section) {
    const auto named = namedValue<RightPanelSection>(section);
    editor_.set_expandedPanel(named == editor_.expandedPanel() ? std::nullopt : named);
}

bool EditorController::isDark() const {
    return services_.appearance && services_.appearance->isDark();
}

bool EditorController::isMotionReduced() const {
    return services_.appearance && services_.appearance->isMotionReduced();
}

int EditorController::zoomPercent() const {
    return static_cast<int>(std::lround(editor_.canvasState().transform.scale * 100));
}

QString EditorController::pictureSize() const {
    const QSize pixels = editor_.screenshot().pixelSize();
    return QStringLiteral("%1 × %2").arg(pixels.width()).arg(pixels.height());
}

void EditorController::setBackdropImage(const QUrl& file) {
    readPictureFile(editor_, file.toLocalFile(), [this](const PictureFile& picture) {
        BackdropSettings backdrop = editor_.styleModel().backdrop();
        ImageBackdropSettings settings = backdrop.imageSettings.value_or(ImageBackdropSettings());
        settings.imagePath = picture.path;
        settings.imageData = picture.data;
        backdrop.type = BackdropType::image;
        backdrop.imageSettings = settings;
        editor_.styleModel().set_backdrop(backdrop);
        editor_.recordSnapshot();
    });
}

void EditorController::chooseBackdropImage() {
    launch(askForPicture(Kestrio::tr("Choose a picture for the backdrop"),
                         &EditorController::setBackdropImage),
           this);
}

void EditorController::chooseWatermarkImage() {
    launch(askForPicture(Kestrio::tr("Choose a picture for the watermark"),
                         &EditorController::setWatermarkImage),
           this);
}

Task<> EditorController::askForPicture(QString title, void (EditorController::*use)(const QUrl&)) {
    const QPointer<EditorController> self(this);
    OpenPanelRequest request;
    request.title = title;
    request.folder = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    if (!QDir(request.folder).exists()) request.folder = QDir::homePath();
    request.types = {{Kestrio::tr("Pictures"), readableSuffixes()}};
    request.parent = QGuiApplication::focusWindow();
    const auto dialogs = services_.fileDialogs;
    auto asking = dialogs->chooseOpen(request);
    const std::optional<QString> path = co_await asking;
    if (self && path) (this->*use)(QUrl::fromLocalFile(*path));
}

void EditorController::setAspect(const QString& name, double ratio) {
    editor_.setAspectRatio({name, ratio > 0 ? std::optional(ratio) : std::nullopt});
}

QString EditorController::setCustomAspect(const QString& width, const QString& height) {
    constexpr double longest = 20;  // one side may be so many times the other
    bool isWidth = false, isHeight = false;
    const double w = width.trimmed().toDouble(&isWidth);
    const double h = height.trimmed().toDouble(&isHeight);
    if (!isWidth || !isHeight || !(w > 0) || !(h > 0)) {
        return Kestrio::tr("Type two numbers above zero");
    }
    if (!(w / h <= longest) || !(h / w <= longest)) {
        return Kestrio::tr("One side may be at most 20 times the other");
    }
    editor_.setAspectRatio(AspectRatio::custom(w, h));
    return {};
}

void EditorController::rotate(bool clockwise) {
    clockwise ? editor_.rotateClockwise() : editor_.rotateCounterClockwise();
}

void EditorController::setZoomText(const QString& text) {
    editor_.setZoomText(text);
    Q_EMIT canvasChanged();
}

bool EditorController::handleKey(int key, int modifiers, const QString& text, bool isTextFocused) {
    const KeyPress press{key, Qt::KeyboardModifiers(modifiers), text,
                         isTextFocused || annotation_.isTextEditing()};
    if (!commands_.handleKey(press)) return false;
    editor_.synchroniseAnnotations();
    return true;
}

void EditorController::autoBeautify() {
    editor_.autoBeautify();
    editor_.set_toastMessage(Kestrio::tr("Auto beautify applied"));
}

void EditorController::enhance(const QString& mode, double strength) {
    const auto known = fromRawString<AIEnhancementMode>(mode.toStdString());
    if (known) launch(runEnhance(*known, strength), this);
}

Task<> EditorController::runEnhance(AIEnhancementMode mode, double strength) {
    const QPointer<EditorController> self(this);
    QString failure;
    bool isEnhanced = false;
    try {
        auto enhancing = editor_.enhancement().enhanceImage(mode, strength);
        isEnhanced = co_await enhancing;
    } catch (const std::exception& error) {
        failure = describeFailure(error);
    }
    if (!self) co_return;
    Q_EMIT enhancingChanged();
    if (failure.isEmpty()) {
        editor_.set_toastMessage(
            isEnhanced ? Kestrio::tr("Image enhanced")
                       : Kestrio::tr("The picture has changed meanwhile and was not enhanced"));
    } else {
        editor_.set_errorMessage(failure);
    }
}

void EditorController::restoreOriginal() {
    editor_.enhancement().restoreOriginalImage();
    Q_EMIT enhancingChanged();
    editor_.set_toastMessage(Kestrio::tr("Original image restored"));
}

void EditorController::reset() {
    editor_.reset();
    editor_.set_toastMessage(Kestrio::tr("Everything is as at the start"));
}

void EditorController::openFile(const QUrl& file) {
    readPictureFile(editor_, file.toLocalFile(), [this](const PictureFile& picture) {
        editor_.replaceScreenshot(Image(picture.bitmap));
    });
}

void EditorController::openData(const QByteArray& data) {
    launch(decodeDrop(data), this);
}

Task<> EditorController::decodeDrop(QByteArray data) {
    const QPointer<EditorController> self(this);
    auto work = [data] { return decodeImageOrNull(data); };
    const auto decoding = runInBackground(std::move(work));
    const QImage bitmap = co_await decoding;
    if (!self) co_return;
    if (bitmap.isNull()) {
        refuseDrop();
    } else {
        editor_.replaceScreenshot(Image(bitmap));
    }
}

void EditorController::paste() {
    if (!isPasting_) launch(pasteFromClipboard(), this);
}

Task<> EditorController::pasteFromClipboard() {
    const QPointer<EditorController> self(this);
    const auto pasteboard = services_.pasteboard;
    PasteboardContents found;
    QString failure;
    isPasting_ = true;
    try {
        auto reading = pasteboard->read(PasteboardKind::picture);
        found = co_await reading;
    } catch (const PasteboardError& error) {
        failure = error.errorDescription();
    }
    if (!self) co_return;
    isPasting_ = false;
    if (!failure.isEmpty()) {
        editor_.set_errorMessage(failure);
    } else if (found.isEmpty()) {
        editor_.set_toastMessage(Kestrio::tr("There is no picture on the clipboard"));
    } else {
        editor_.replaceScreenshot(Image(found.image));
    }
}

void EditorController::reportLoadProblems() {
    themes_.reportLoadProblem();
    const QString& presets = editor_.watermarkVM().errorMessage();
    if (!presets.isEmpty()) editor_.set_errorMessage(presets);
}

void EditorController::refuseDrop() {
    editor_.set_errorMessage(Kestrio::tr("Only pictures can be dropped here"));
}

}  // namespace kestrio
