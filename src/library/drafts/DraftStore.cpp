#include "library/drafts/DraftStore.h"

#include "core/Log.h"

#include <sys/stat.h>

#include <QDir>
#include <QStandardPaths>
#include <cerrno>

namespace kestrio {

namespace {

// In days.
constexpr qint64 longestKept = 30;
constexpr qint64 surplusKept = 1;
constexpr qint64 leftoversKept = 1;  // a program may be making or removing one just now
const QString asidePattern = QStringLiteral("damaged-*");
const QDir::Filters offered = QDir::Dirs | QDir::NoSymLinks | QDir::NoDotAndDotDot;

bool isOlderThan(const QDateTime& moment, qint64 days) {
    return moment.isValid() && moment < QDateTime::currentDateTime().addDays(-days);
}

bool makePrivateFolder(const QString& path) {
    const QByteArray encoded = QFile::encodeName(path);
    if (::mkdir(encoded.constData(), S_IRWXU) != 0 && errno != EEXIST) return false;
    return ::chmod(encoded.constData(), S_IRWXU) == 0;
}

/// Nothing where it was damaged, which moves it aside.
std::optional<ClaimedDraft> read(std::shared_ptr<DraftFolder> folder) {
    try {
        const DraftDocument document = folder->read();
        const QDateTime changed = folder->changed();
        return ClaimedDraft{std::move(folder), document.name, changed};
    } catch (const DraftError& error) {
        logLine("DraftStore", QStringLiteral("a damaged draft was moved aside: %1: %2")
                                  .arg(folder->path(), error.errorDescription()));
        folder->moveAside();
        return std::nullopt;
    }
}

}  // namespace

QString DraftStore::standardFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/kestrio/drafts");
}

std::unique_ptr<DraftFolder> DraftStore::create() const {
    QDir().mkpath(QFileInfo(folder_).path());
    if (!makePrivateFolder(folder_)) throw DraftError::noFolder(qt_error_string(errno));
    return DraftFolder::create(folder_);
}

std::vector<ClaimedDraft> DraftStore::claimUnowned() const {
    removeLeftovers();
    std::vector<ClaimedDraft> found;
    for (const QString& name : QDir(folder_).entryList(offered)) {
        if (QDir::match(asidePattern, name)) continue;
        std::shared_ptr<DraftFolder> folder = DraftFolder::claim(folder_ + u'/' + name);
        if (!folder) continue;
        if (auto draft = read(std::move(folder))) found.push_back(std::move(*draft));
    }
    std::ranges::sort(found, std::ranges::greater(), &ClaimedDraft::changed);
    const auto isTooOld = [&found] {
        return isOlderThan(found.back().changed,
                           found.size() > mostUnowned ? surplusKept : longestKept);
    };
    while (!found.empty() && isTooOld()) {
        found.back().folder->remove();
        found.pop_back();
    }
    return found;
}

// Folders that were being made or removed as a program died, and old damaged ones.
void DraftStore::removeLeftovers() const {
    const auto folders = offered | QDir::Hidden;
    for (const QFileInfo& each : QDir(folder_).entryInfoList(folders)) {
        const bool isLeftover = each.fileName().startsWith(u'.');
        if (!isLeftover && !QDir::match(asidePattern, each.fileName())) continue;
        if (!isOlderThan(each.lastModified(), isLeftover ? leftoversKept : longestKept)) continue;
        if (const auto folder = DraftFolder::claim(each.filePath())) folder->remove();
    }
}

}  // namespace kestrio
