#pragma once

#include "platform/Sharing.h"

namespace kestrio {

/// Programs by the desktop's entries and associations, mail by xdg-email.
class XdgSharing : public Sharing {
  public:
    std::vector<SharingProgram> programsFor(const QString& mimeType) const override;
    void openWith(const QString& programId, const QString& path) override;
    bool canEmail() const override;
    Task<> email(QString path, QString subject) override;
};

}  // namespace kestrio
