#include "app/views/SettingsController.h"

#include "app/views/ChoiceRows.h"
#include "core/Localisation.h"
#include "library/export/FileNaming.h"

#include <QCoreApplication>

namespace kestrio {

SettingsController::SettingsController(const SettingsServices& services,
                                       std::shared_ptr<PermissionManager> permissions,
                                       std::shared_ptr<Appearance> appearance, QObject* parent)
    : QObject(parent),
      model_(services),
      patterns_(services.patterns),
      textRecognizer_(services.textRecognizer),
      hotkeyManager_(services.hotkeys),
      permissions_(std::move(permissions)),
      appearance_(std::move(appearance)),
      recorder_(services.hotkeys, [this](const HotkeyConfig& candidate) {
          return model_.conflict(recorded_, candidate);
      }) {
    relayModel();
    connect(&recorder_, &ShortcutRecorder::recorded, this, &SettingsController::adopt);
    connect(&recorder_, &ShortcutRecorder::isRecordingChanged, this,
            &SettingsController::hotkeysChanged);
    connect(&recorder_, &ShortcutRecorder::conflictMessageChanged, this,
            &SettingsController::hotkeysChanged);
    connect(hotkeyManager_.get(), &HotkeyManager::statesChanged, this,
            &SettingsController::hotkeysChanged);
    connect(permissions_.get(), &PermissionManager::screenRecordingGrantedChanged, this,
            &SettingsController::permissionChanged);
    connect(appearance_.get(), &Appearance::isDarkChanged, this,
            &SettingsController::appearanceChanged);
    connect(appearance_.get(), &Appearance::isMotionReducedChanged, this,
            &SettingsController::appearanceChanged);
}

SettingsController::~SettingsController() = default;

void SettingsController::relayModel() {
    using Model = SettingsViewModel;
    connect(&model_, &Model::settingsChanged, this, &SettingsController::exampleNameChanged);
    connect(&model_, &Model::settingsChanged, this, &SettingsController::hotkeysChanged);
    connect(&model_, &Model::selectedTabChanged, this, &SettingsController::tabChanged);
    connect(&model_, &Model::cachedThemesChanged, this, &SettingsController::themesChanged);
    connect(&model_, &Model::needsRestartChanged, this, &SettingsController::needsRestartChanged);
    connect(&model_, &Model::messageChanged, this, &SettingsController::messageChanged);
}

QString SettingsController::readingObstacle() const {
    return textRecognizer_ ? textRecognizer_->obstacle()
                           : Kestrio::tr("Text cannot be recognised on this system.");
}

QVariantList SettingsController::tabs() const {
    return choiceRows(settingsTabs);
}

void SettingsController::setTab(const QString& id) {
    if (const auto tab = fromRawString<SettingsTab>(id.toStdString())) {
        model_.set_selectedTab(*tab);
    }
}

QVariantList SettingsController::hotkeys() const {
    QVariantList list;
    for (const HotkeyRow& row : hotkeyRows)
        if (hotkeyManager_->hasHandler(row.action)) list << hotkeyValues(row);
    return list;
}

QVariantMap SettingsController::hotkeyValues(const HotkeyRow& row) const {
    const bool isRecording = recorder_.isRecording() && recorded_ == row.action;
    return {{QStringLiteral("id"), static_cast<int>(row.action)},
            {QStringLiteral("label"), Kestrio::tr(row.label)},
            {QStringLiteral("keys"), hotkeyText(model_.settings().*row.config)},
            {QStringLiteral("isRecording"), isRecording},
            {QStringLiteral("note"), isRecording ? recorder_.conflictMessage() : hotkeyNote(row)}};
}

QString SettingsController::hotkeyNote(const HotkeyRow& row) const {
    switch (hotkeyManager_->state(row.action).value_or(HotkeyRegistration::registered)) {
        case HotkeyRegistration::taken:
            return Kestrio::tr("Another program holds this combination");
        case HotkeyRegistration::impossible:
            return Kestrio::tr("This keyboard cannot press this combination");
        case HotkeyRegistration::registered:
            break;
    }
    return {};
}

void SettingsController::toggleRecording(int hotkey) {
    const auto action = static_cast<HotkeyAction>(hotkey);
    if (recorder_.isRecording() && recorded_ != action) recorder_.stop();
    recorded_ = action;
    recorder_.toggle();
}

void SettingsController::stopRecording() {
    recorder_.stop();
}

void SettingsController::adopt(const HotkeyConfig& config) {
    AppSettings changed = model_.settings();
    changed.*hotkeyRow(recorded_).config = config;
    model_.change(changed);
}

void SettingsController::restoreDefaultHotkeys() {
    recorder_.stop();
    model_.restoreDefaultHotkeys();
}

void SettingsController::chooseSavePath() {
    launch(model_.chooseSavePath(), this);
}

QVariantList SettingsController::themes() const {
    QVariantList list;
    for (const Theme& theme : model_.cachedThemes()) {
        list << QVariantMap{{QStringLiteral("id"), theme.id.toString()},
                            {QStringLiteral("name"), theme.name}};
    }
    return list;
}

void SettingsController::deleteTheme(const QString& id) {
    model_.deleteTheme(QUuid(id));
}

QVariantList SettingsController::namingVariables() const {
    QVariantList rows;
    for (const NamingVariable& each : kestrio::namingVariables) {
        rows << QVariantMap{{QStringLiteral("id"), QString::fromLatin1(each.variable)},
                            {QStringLiteral("name"), Kestrio::tr(each.label)}};
    }
    return rows;
}

QString SettingsController::exampleName() const {
    const AppSettings& settings = model_.settings();
    return formatFileName(1, QDateTime::currentDateTime(), settings.fileNamingPattern) + u'.' +
           fileExtension(settings.defaultExportFormat);
}

QString SettingsController::version() const {
    return QCoreApplication::applicationVersion();
}

bool SettingsController::isDark() const {
    return appearance_->isDark();
}

bool SettingsController::isMotionReduced() const {
    return appearance_->isMotionReduced();
}

}  // namespace kestrio
