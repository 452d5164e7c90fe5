#pragma once

#include "core/SerialQueue.h"

#include <QByteArray>
#include <QMap>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <mutex>
#include <optional>

namespace kestrio {

/// A store of values under string keys, kept between runs. A key that holds nothing, or a value of
/// another kind, reads as absent. Any thread.
class UserDefaults {
  public:
    virtual ~UserDefaults() = default;

    std::optional<QByteArray> data(const QString& key) const;
    std::optional<QString> string(const QString& key) const;
    std::optional<QStringList> stringArray(const QString& key) const;
    std::optional<bool> boolean(const QString& key) const;

    void setData(const QString& key, const QByteArray& value) { write(key, value); }
    void setString(const QString& key, const QString& value) { write(key, value); }
    void setStringArray(const QString& key, const QStringList& value) { write(key, value); }
    void setBoolean(const QString& key, bool value) { write(key, value); }

    virtual void remove(const QString& key) = 0;
    /// Writes through to the disk now rather than when the program next idles or ends.
    virtual void synchronise() = 0;

  protected:
    /// Invalid where the key holds nothing.
    virtual QVariant read(const QString& key) const = 0;
    virtual void write(const QString& key, const QVariant& value) = 0;
};

/// Kept in an INI file, which is written in the background: a style with a picture in it makes the
/// file large. Values are read from memory; what other processes wrote comes with each writing.
class IniUserDefaults : public UserDefaults {
  public:
    explicit IniUserDefaults(const QString& path);
    /// Writes what has not been written yet.
    ~IniUserDefaults() override;
    /// The user's own file, "kestrio/kestrio.ini" below $XDG_CONFIG_HOME.
    static QString standardPath();

    void remove(const QString& key) override { write(key, {}); }
    void synchronise() override;

  protected:
    QVariant read(const QString& key) const override;
    /// An invalid value takes the key away.
    void write(const QString& key, const QVariant& value) override;

  private:
    void writeChanges();

    mutable std::mutex mutex_;  ///< of `values_` and `changes_`
    QMap<QString, QVariant> values_;
    QMap<QString, QVariant> changes_;  ///< not yet handed to `settings_`
    QSettings settings_;               ///< after construction used on the queue alone
    SerialQueue queue_;
};

/// Kept in memory only.
class MemoryUserDefaults : public UserDefaults {
  public:
    void remove(const QString& key) override {
        const std::lock_guard lock(mutex_);
        values_.remove(key);
    }
    void synchronise() override {}

  protected:
    QVariant read(const QString& key) const override {
        const std::lock_guard lock(mutex_);
        return values_.value(key);
    }
    void write(const QString& key, const QVariant& value) override {
        const std::lock_guard lock(mutex_);
        values_.insert(key, value);
    }

  private:
    mutable std::mutex mutex_;
    QMap<QString, QVariant> values_;
};

}  // namespace kestrio
