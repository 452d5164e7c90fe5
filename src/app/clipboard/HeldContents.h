#pragma once

#include "platform/Pasteboard.h"

#include <QByteArray>

namespace kestrio {

/// What one process hands to the one that holds the clipboard after it.
struct HeldContents {
    PasteboardContents contents;  ///< a picture as a PNG file alone
    quint32 owner = 0;            ///< who is to be relieved, as Pasteboard::owner()

    QByteArray encoded() const;
    /// Nothing for bytes that encoded() has not written.
    static std::optional<HeldContents> decoded(const QByteArray& bytes);
};

}  // namespace kestrio
