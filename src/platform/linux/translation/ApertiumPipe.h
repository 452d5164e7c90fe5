#pragma once

#include "core/Task.h"

#include <QProcess>

namespace kestrio {

/// The engine at work on one language pair: a group of processes that takes one text after the
/// other. They end with this object, whatever they are doing. Main thread only.
class ApertiumPipe : public QObject {
    Q_OBJECT

  public:
    struct Program {
        QString pipelinePrinter;  ///< see ApertiumInstallation
        QString modeFile;
        /// How long one text may take; the first one also waits for the dictionaries.
        std::chrono::milliseconds limit;
    };

    explicit ApertiumPipe(const Program& program);
    ~ApertiumPipe() override;

    /// One at a time. Throws TranslationError::failed where the engine ends, or does not answer in
    /// time; this object is of no use then. Throws Cancelled.
    Task<QString> translate(QString text, std::stop_token stop);

  private:
    void takeOutput();
    void settle();

    const std::chrono::milliseconds limit_;
    QProcess* const process_;  ///< frees itself once it has ended
    QByteArray output_;        ///< what no text has been made of yet
    std::optional<Completion<QByteArray>> waiting_;
    bool hasEnded_ = false;
};

}  // namespace kestrio
