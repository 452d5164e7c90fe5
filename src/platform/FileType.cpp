#include "platform/FileType.h"

#include <QFileInfo>
#include <algorithm>

namespace kestrio {

QString withSuffix(const QString& path, const FileType& chosen,
                   const std::vector<FileType>& types) {
    const QString typed = QFileInfo(path).suffix();
    const bool isKnown = std::any_of(types.begin(), types.end(), [&](const FileType& type) {
        return type.suffixes.contains(typed, Qt::CaseInsensitive);
    });
    if (isKnown || chosen.suffixes.isEmpty()) return path;
    return path + u'.' + chosen.suffixes.front();
}

}  // namespace kestrio
