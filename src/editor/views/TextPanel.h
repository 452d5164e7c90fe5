#pragma once

#include "editor/document/EditorViewModel.h"
#include "editor/views/TextBlocks.h"

#include <QVariantMap>

namespace kestrio {

/// How the panel of recognised text shows it.
enum class OCRDisplayMode { blocks, fullText };

inline constexpr EnumTable<OCRDisplayMode, 2> ocrDisplayModes = {{
    {OCRDisplayMode::blocks, "blocks", Kestrio::marked("Blocks")},
    {OCRDisplayMode::fullText, "fullText", Kestrio::marked("Full Text")},
}};
constexpr const auto& enumTable(OCRDisplayMode) {
    return ocrDisplayModes;
}

/// The text of the picture: the scan, the panel of its results, and their translation. Main thread.
class TextPanel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the editor")
    Q_PROPERTY(bool isScanning READ isScanning NOTIFY scanChanged)
    /// The pointer chooses what is read next.
    Q_PROPERTY(bool isChoosing READ isChoosing NOTIFY choosingChanged)
    Q_PROPERTY(bool isShown READ isShown WRITE setShown NOTIFY shownChanged)
    Q_PROPERTY(bool hasResults READ hasResults NOTIFY resultsChanged)
    Q_PROPERTY(kestrio::TextBlocks* blocks READ blocks CONSTANT)
    Q_PROPERTY(QString fullText READ fullText NOTIFY resultsChanged)
    Q_PROPERTY(QString fullTranslation READ fullTranslation NOTIFY translationChanged)
    Q_PROPERTY(QVariantList displayModes READ displayModes CONSTANT)
    Q_PROPERTY(QString displayMode READ displayMode WRITE setDisplayMode NOTIFY displayModeChanged)
    /// Names of the languages that can be translated into, and the chosen one of them.
    Q_PROPERTY(QStringList languages READ languages NOTIFY languagesChanged)
    Q_PROPERTY(QString language READ language NOTIFY languagesChanged)
    Q_PROPERTY(bool canTranslate READ canTranslate NOTIFY languagesChanged)
    Q_PROPERTY(bool isTranslating READ isTranslating NOTIFY translationChanged)
    /// How far the translation as a whole is, in words.
    Q_PROPERTY(QString status READ status NOTIFY translationChanged)

  public:
    explicit TextPanel(EditorViewModel& editor, QObject* parent = nullptr);

    OCRViewModel& text() { return editor_.ocrVM(); }
    const OCRViewModel& text() const { return editor_.ocrVM(); }
    bool isScanning() const { return text().isScanning(); }
    bool isChoosing() const { return text().isRegionSelectionMode(); }
    bool isShown() const { return text().showResultsPanel(); }
    void setShown(bool isShown) { text().set_showResultsPanel(isShown); }
    bool hasResults() const { return !text().results().empty(); }
    TextBlocks* blocks() { return &blocks_; }
    QString fullText() const;
    QString fullTranslation() const { return text().translation().allTranslations(); }
    QVariantList displayModes() const;
    QString displayMode() const { return rawString(displayMode_); }
    void setDisplayMode(const QString& id);
    QStringList languages() const;
    QString language() const;
    bool canTranslate() const {
        return !text().translation().supportedTranslationLanguages().empty();
    }
    bool isTranslating() const { return text().translation().isTranslating(); }
    QString status() const;

    Q_INVOKABLE void cancelScan() { text().cancelScan(); }
    /// Reads a part of the picture, in fractions from its top left; what lies outside is left out.
    Q_INVOKABLE void readRegion(const QRectF& part);
    Q_INVOKABLE void clear() { text().clear(); }
    /// Finds out what can be translated into, once.
    Q_INVOKABLE void loadLanguages();
    Q_INVOKABLE void chooseLanguage(const QString& name);
    Q_INVOKABLE void translateAll() { text().translation().translateAll(); }
    Q_INVOKABLE void translateAnyway(int index);
    Q_INVOKABLE void cancelTranslation() { text().translation().cancel(); }
    Q_INVOKABLE void copyBlock(int index) { text().copyRegion(index); }
    Q_INVOKABLE void copyAll() { text().copyAll(); }
    Q_INVOKABLE void copyTranslation(int index) { text().copyTranslation(index); }
    Q_INVOKABLE void copyAllTranslations() { text().copyAllTranslations(); }

    Q_SIGNAL void scanChanged();
    Q_SIGNAL void choosingChanged();
    Q_SIGNAL void shownChanged();
    Q_SIGNAL void resultsChanged();
    Q_SIGNAL void displayModeChanged();
    Q_SIGNAL void languagesChanged();
    Q_SIGNAL void translationChanged();

  private:
    EditorViewModel& editor_;
    TextBlocks blocks_;
    OCRDisplayMode displayMode_ = OCRDisplayMode::blocks;
};

}  // namespace kestrio
