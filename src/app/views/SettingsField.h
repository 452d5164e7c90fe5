#pragma once

#include "app/settings/SettingsViewModel.h"

#include <QQmlEngine>
#include <QVariantList>

namespace kestrio {

/// How a field of the settings is read, and written where its value can be assigned. Impossible
/// values change nothing.
template <typename T>
struct SettingsFieldRow {
    T (*get)(const AppSettings&);
    void (*set)(SettingsViewModel&, const T&);
    QVariantList (*choices)(const AppSettings&) =
        nullptr;  ///< null where any value may be assigned
};

/// One field of the settings as QML sees it, with a property `value` of its kind; its object name
/// is that of the field. Main thread; the model outlives it.
class SettingsField : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the settings")

  public:
    SettingsField(SettingsViewModel& model, const char* name, QObject* parent)
        : QObject(parent), model_(model) {
        setObjectName(QLatin1String(name));
    }

    /// Reads the settings again and signals only where that changed the value.
    virtual void refresh() = 0;

    Q_SIGNAL void valueChanged();

  protected:
    SettingsViewModel& model_;
};

/// What all kinds have: the value, and its assignment.
#define KESTRIO_SETTINGS_FIELD_KIND(Kind, Type)                                               \
    Q_PROPERTY(Type value READ value WRITE set NOTIFY valueChanged)                           \
  public:                                                                                     \
    using Row = SettingsFieldRow<Type>;                                                       \
    Kind(SettingsViewModel& model, const char* name, const Row& row, QObject* parent)         \
        : SettingsField(model, name, parent), row_(row), value_(row.get(model.settings())) {} \
    const Type& value() const {                                                               \
        return value_;                                                                        \
    }                                                                                         \
    void set(const Type& value) {                                                             \
        row_.set(model_, value);                                                              \
    }                                                                                         \
    void refresh() override {                                                                 \
        if (assignIfDifferent(value_, row_.get(model_.settings()))) Q_EMIT valueChanged();    \
    }                                                                                         \
                                                                                              \
  private:                                                                                    \
    const Row& row_;                                                                          \
    Type value_;

// The base has its whole name, by which the QML tools look it up.

class SettingsFlag : public kestrio::SettingsField {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the settings")
    KESTRIO_SETTINGS_FIELD_KIND(SettingsFlag, bool)
};

class SettingsText : public kestrio::SettingsField {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the settings")
    KESTRIO_SETTINGS_FIELD_KIND(SettingsText, QString)
};

/// The raw name of a choice.
class SettingsSelection : public kestrio::SettingsField {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of the settings")
    /// Rows {id, name} to choose from.
    Q_PROPERTY(QVariantList choices READ choices CONSTANT)
    KESTRIO_SETTINGS_FIELD_KIND(SettingsSelection, QString)

  public:
    QVariantList choices() const { return row_.choices(model_.settings()); }
};

}  // namespace kestrio
