#pragma once

#include "platform/Sharing.h"

#include <algorithm>

namespace kestrio {

/// Programs that a test installs, which take note of what they are given.
class ScriptedSharing : public Sharing {
  public:
    /// A program and the MIME types that it opens.
    struct Installed {
        SharingProgram program;
        QStringList mimeTypes;
    };

    std::vector<Installed> installed;
    bool hasMail = true;
    QStringList opened;  ///< "ID PATH" of each file
    QStringList mailed;  ///< "SUBJECT PATH" of each message

    std::vector<SharingProgram> programsFor(const QString& mimeType) const override {
        std::vector<SharingProgram> found;
        for (const Installed& each : installed)
            if (each.mimeTypes.contains(mimeType)) found.push_back(each.program);
        return found;
    }

    void openWith(const QString& programId, const QString& path) override {
        const auto is = [&](const Installed& each) { return each.program.id == programId; };
        if (std::none_of(installed.begin(), installed.end(), is)) {
            throw SharingError(SharingError::Case::programGone);
        }
        opened << programId + u' ' + path;
    }

    bool canEmail() const override { return hasMail; }

    Task<> email(QString path, QString subject) override {
        if (!hasMail) throw SharingError(SharingError::Case::noMailProgram);
        mailed << subject + u' ' + path;
        co_return;
    }
};

}  // namespace kestrio
