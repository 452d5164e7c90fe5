#pragma once

#include "core/Json.h"

namespace kestrio {

/// A JSON file named on the command line that cannot be used: `complaint` is an English sentence
/// with %1 for the path and %2 for the reason.
class JsonFileError : public Error {
  public:
    JsonFileError(const char* complaint, QString path, QString reason)
        : complaint_(complaint), path_(std::move(path)), reason_(std::move(reason)) {}
    QString errorDescription() const override;

  private:
    const char* complaint_;
    QString path_;
    QString reason_;
};

/// The whole file. Throws JsonFileError where it cannot be read or is larger than any sane one.
QByteArray readJsonFile(const QString& path, const char* complaint);

/// The record that the file holds. Throws JsonFileError, for a wrong record with the path of what
/// is wrong in it.
template <typename T>
T decodeJsonFile(const QString& path, const char* complaint) {
    const QByteArray text = readJsonFile(path, complaint);
    try {
        return decodeJsonText<T>(text);
    } catch (const JsonError& error) {
        throw JsonFileError(complaint, path, error.errorDescription());
    }
}

}  // namespace kestrio
