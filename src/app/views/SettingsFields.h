#pragma once

#include "settings/AppSettings.h"

#include <QVariantMap>

namespace kestrio {

/// The settings that a view changes directly, by the name of their field.
QVariantMap settingsValues(const AppSettings& settings);

/// The settings with one of these changed; as they are for unknown names and impossible values.
AppSettings withSetting(AppSettings settings, const QString& field, const QVariant& value);

}  // namespace kestrio
