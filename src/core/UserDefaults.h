#pragma once

#include <QByteArray>
#include <QMap>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>

namespace kestrio {

/// A store of small values under string keys, kept between runs. A key that holds nothing, or a
/// value of another kind, reads as absent.
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

/// Kept in an INI file.
class IniUserDefaults : public UserDefaults {
  public:
    explicit IniUserDefaults(const QString& path);
    /// The user's own file, "kestrio/kestrio.ini" below $XDG_CONFIG_HOME.
    static QString standardPath();

    void remove(const QString& key) override { settings_.remove(key); }
    void synchronise() override { settings_.sync(); }

  protected:
    QVariant read(const QString& key) const override { return settings_.value(key); }
    void write(const QString& key, const QVariant& value) override {
        settings_.setValue(key, value);
    }

  private:
    QSettings settings_;
};

/// Kept in memory only.
class MemoryUserDefaults : public UserDefaults {
  public:
    void remove(const QString& key) override { values_.remove(key); }
    void synchronise() override {}

  protected:
    QVariant read(const QString& key) const override { return values_.value(key); }
    void write(const QString& key, const QVariant& value) override { values_.insert(key, value); }

  private:
    QMap<QString, QVariant> values_;
};

}  // namespace kestrio
