#pragma once

#include <QByteArray>
#include <QString>

namespace kestrio {

/// Where the engine and its models are.
struct RecognitionFiles {
    QByteArray library;     ///< ONNX Runtime
    QByteArray finder;      ///< the model that finds lines
    QByteArray reader;      ///< the model that reads them
    QByteArray characters;  ///< what it reads, one on each line

    /// What of it is missing, as a path; empty where all is there.
    QByteArray missing() const;
};

/// Those that belong to the running program: in the folder that the environment variable
/// KESTRIO_RECOGNITION names, in the build tree, or where the program is installed.
RecognitionFiles recognitionFiles();

}  // namespace kestrio
