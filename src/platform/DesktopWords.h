#pragma once

#include <QString>

namespace kestrio {

/// What users of this platform's desktop know its parts as, in texts that they read. Each platform
/// folder has its own.
struct DesktopWords {
    QString showInFileViewer;     ///< on a button
    QString openSettings;         ///< on a button: the desktop's settings
    QString screenRecordingPage;  ///< where its settings allow programs to see the screen
};

const DesktopWords& desktopWords();

}  // namespace kestrio
