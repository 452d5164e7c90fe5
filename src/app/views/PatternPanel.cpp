#include "app/views/PatternPanel.h"

namespace kestrio {

namespace {

template <typename Pattern>
QVariantMap rowOf(const Pattern& pattern) {
    return {{QStringLiteral("id"), pattern.id.toString()},
            {QStringLiteral("name"), pattern.name},
            {QStringLiteral("regex"), pattern.regex},
            {QStringLiteral("description"), pattern.description}};
}

}  // namespace

PatternPanel::PatternPanel(std::shared_ptr<PatternStorageServiceProtocol> storage, QObject* parent)
    : QObject(parent), model_(std::move(storage)) {
    using Model = CustomPatternSettingsViewModel;
    connect(&model_, &Model::customPatternsChanged, this, &PatternPanel::patternsChanged);
    connect(&model_, &Model::builtInEnabledStatesChanged, this, &PatternPanel::patternsChanged);
    connect(&model_, &Model::showAddEditSheetChanged, this, &PatternPanel::sheetChanged);
    connect(&model_, &Model::isEditingChanged, this, &PatternPanel::sheetChanged);
    connect(&model_, &Model::editingNameChanged, this, &PatternPanel::editingChanged);
    connect(&model_, &Model::editingRegexChanged, this, &PatternPanel::editingChanged);
    connect(&model_, &Model::editingDescriptionChanged, this, &PatternPanel::editingChanged);
    connect(&model_, &Model::showErrorChanged, this, &PatternPanel::errorChanged);
    connect(&model_, &Model::errorMessageChanged, this, &PatternPanel::errorChanged);
}

QVariantList PatternPanel::builtIn() const {
    QVariantList rows;
    const auto& states = model_.builtInEnabledStates();
    for (const SensitivePattern& pattern : model_.builtInPatterns()) {
        QVariantMap row = rowOf(pattern);
        row[QStringLiteral("isEnabled")] = states.at(pattern.id);
        rows << row;
    }
    return rows;
}

QVariantList PatternPanel::custom() const {
    QVariantList rows;
    for (const SensitivePattern& pattern : model_.customPatterns()) {
        QVariantMap row = rowOf(pattern);
        row[QStringLiteral("isEnabled")] = pattern.isEnabled;
        rows << row;
    }
    return rows;
}

QVariantList PatternPanel::examples() const {
    QVariantList rows;
    for (const ExamplePattern& example : model_.examplePatterns())
        rows << rowOf(example);
    return rows;
}

QString PatternPanel::sheetTitle() const {
    return model_.isEditing() ? Kestrio::tr("Edit Pattern") : Kestrio::tr("Add Pattern");
}

QString PatternPanel::validityText() const {
    switch (model_.editingValidity()) {
        case RegexValidity::invalid:
            return Kestrio::tr("Invalid regex pattern");
        case RegexValidity::isUnsafe:
            return Kestrio::tr("Pattern is unsafe or too complex");
        case RegexValidity::valid:
            return Kestrio::tr("Valid regex pattern");
        case RegexValidity::empty:
            break;
    }
    return {};
}

void PatternPanel::setBuiltInEnabled(const QString& id, bool isEnabled) {
    model_.setBuiltInEnabled(QUuid(id), isEnabled);
}

void PatternPanel::setCustomEnabled(const QString& id, bool isEnabled) {
    model_.setCustomEnabled(QUuid(id), isEnabled);
}

}  // namespace kestrio
