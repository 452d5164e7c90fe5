#include "editor/views/TextPanel.h"

#include "editor/views/ViewRows.h"

namespace kestrio {

TextPanel::TextPanel(EditorViewModel& editor, QObject* parent)
    : QObject(parent), editor_(editor), blocks_(editor.ocrVM()) {
    using Text = OCRViewModel;
    using Translation = OCRTranslationModel;
    connect(&text(), &Text::isScanningChanged, this, &TextPanel::scanChanged);
    connect(&text(), &Text::isRegionSelectionModeChanged, this, &TextPanel::choosingChanged);
    connect(&text(), &Text::showResultsPanelChanged, this, &TextPanel::shownChanged);
    connect(&text(), &Text::resultsChanged, this, &TextPanel::resultsChanged);
    Translation& translation = text().translation();
    for (const auto signal : {&Translation::supportedTranslationLanguagesChanged,
                              &Translation::selectedTargetLanguageIdentifierChanged}) {
        connect(&translation, signal, this, &TextPanel::languagesChanged);
    }
    for (const auto signal : {&Translation::translationsChanged, &Translation::isTranslatingChanged,
                              &Translation::isLoadingLanguagesChanged,
                              &Translation::supportedTranslationLanguagesChanged}) {
        connect(&translation, signal, this, &TextPanel::translationChanged);
    }
}

QString TextPanel::fullText() const {
    QStringList texts;
    for (const OCRResultWithConfidence& result : text().results())
        texts << result.text;
    return texts.join(u'\n');
}

QVariantList TextPanel::displayModes() const {
    return viewRows<OCRDisplayMode>();
}

void TextPanel::setDisplayMode(const QString& id) {
    const auto mode = namedValue<OCRDisplayMode>(id);
    if (mode && assignIfDifferent(displayMode_, *mode)) Q_EMIT displayModeChanged();
}

QStringList TextPanel::languages() const {
    QStringList names;
    for (const auto& option : text().translation().supportedTranslationLanguages())
        names << option.displayName();
    return names;
}

QString TextPanel::language() const {
    const QString chosen = text().translation().selectedTargetLanguageIdentifier();
    return chosen.isEmpty() ? QString() : TranslationLanguageOption{chosen}.displayName();
}

QString TextPanel::status() const {
    switch (text().translation().progress()) {
        case OCRTranslationProgress::loadingLanguages:
            return Kestrio::tr("Loading languages…");
        case OCRTranslationProgress::unavailable:
            return Kestrio::tr("Translation unavailable");
        case OCRTranslationProgress::ready:
            return Kestrio::tr("Ready to translate");
        case OCRTranslationProgress::translating:
            return Kestrio::tr("Translating…");
        case OCRTranslationProgress::complete:
            return Kestrio::tr("Translation complete");
        case OCRTranslationProgress::failed:
            return Kestrio::tr("Translation failed");
    }
    return {};
}

void TextPanel::readRegion(const QRectF& part) {
    const QRectF inside = part.normalized() & QRectF(0, 0, 1, 1);
    text().set_isRegionSelectionMode(false);
    if (inside.isEmpty()) return;
    text().set_selectedRegion(
        QRectF(inside.x(), 1 - inside.bottom(), inside.width(), inside.height()));
    launch(editor_.performOCR(), &editor_);
}

void TextPanel::loadLanguages() {
    launch(text().translation().loadLanguages(), &text());
}

void TextPanel::chooseLanguage(const QString& name) {
    for (const auto& option : text().translation().supportedTranslationLanguages())
        if (option.displayName() == name) text().translation().chooseTarget(option.identifier);
}

void TextPanel::translateAnyway(int index) {
    if (index < 0 || index >= int(text().results().size())) return;
    text().translation().translateAnyway(text().results()[std::size_t(index)].id);
}

}  // namespace kestrio
