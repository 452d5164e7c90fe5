#pragma once

#include "core/Error.h"
#include "core/JsonObject.h"

#include <QByteArray>
#include <QString>
#include <nlohmann/json.hpp>
#include <optional>

namespace kestrio {

/// A JSON value whose objects keep the order in which their keys were set.
using JsonValue = nlohmann::basic_json<JsonObject>;

/// JSON that cannot be parsed, decoded or encoded. `path` leads to the value, as in
/// "backdrop.effects.blur" or "[3].name", and is empty for the document itself.
class JsonError : public Error {
  public:
    JsonError(QString path, QString reason) : path_(std::move(path)), reason_(std::move(reason)) {}

    const QString& path() const { return path_; }
    QString errorDescription() const override;

  private:
    QString path_;
    QString reason_;
};

/// A place in a document that is being decoded. It refers to its parent, so it must not outlive it.
class JsonReader {
  public:
    explicit JsonReader(const JsonValue& document) : value_(&document) {}

    /// The member of an object, or nothing where the key is absent or null. Fails on non-objects.
    std::optional<JsonReader> find(const char* key) const;
    /// The member of an object. Fails where it is absent.
    JsonReader at(const char* key) const;
    std::size_t elementCount() const;
    JsonReader element(std::size_t index) const;

    bool boolean() const;
    double number() const;
    /// Whole numbers only; fails outside the range of the type.
    qint64 integer() const;
    quint64 unsignedInteger() const;
    QString string() const;

    const JsonValue& value() const { return *value_; }
    QString path() const;
    [[noreturn]] void fail(const QString& reason) const;

  private:
    JsonReader(const JsonValue& value, const JsonReader* parent, const char* key, std::size_t index)
        : value_(&value), parent_(parent), key_(key), index_(index) {}

    const JsonValue* value_;
    const JsonReader* parent_ = nullptr;
    const char* key_ = nullptr;
    std::size_t index_ = 0;
};

/// Whole numbers come out without a decimal point. Throws JsonError for NaN and infinities, which
/// JSON cannot hold.
JsonValue jsonNumber(double number);

}  // namespace kestrio
