#include "library/export/SaveTarget.h"

#include "core/AtomicFile.h"
#include "imaging/ExportError.h"

namespace kestrio {

namespace {

QString pathIn(const QString& folder, const QString& name) {
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

}  // namespace

SaveTarget SaveTarget::newFile(QString folder, Names names) {
    SaveTarget target(pathIn(folder, names(1)));
    target.folder_ = std::move(folder);
    target.names_ = std::move(names);
    return target;
}

QString SaveTarget::write(QByteArrayView bytes) const {
    try {
        if (replaces()) {
            replaceFile(path_, bytes);
            return path_;
        }
        makeFolders(folder_);
        return writeNewFile([this](int number) { return pathIn(folder_, names_(number)); }, bytes);
    } catch (const FileError& error) {
        throw ExportError::fileWriteFailed(error.path(), error.reason());
    }
}

}  // namespace kestrio
