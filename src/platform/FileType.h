#pragma once

#include <QStringList>
#include <vector>

namespace kestrio {

/// A kind of file that a panel offers, like "PNG picture". Suffixes are without dots; the first is
/// the usual one.
struct FileType {
    QString name;
    QStringList suffixes;
};

/// The path as it is where it ends in a suffix of one of `types`, in any case, and with the usual
/// suffix of `chosen` otherwise. Other endings do not count: names of files often hold dots.
QString withSuffix(const QString& path, const FileType& chosen, const std::vector<FileType>& types);

}  // namespace kestrio
