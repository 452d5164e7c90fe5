#pragma once

#include "core/SerialQueue.h"
#include "platform/TextRecognizer.h"
#include "platform/linux/recognition/RecognitionFiles.h"

#include <QTimer>

namespace kestrio {

class TextEngine;

/// Reads text by an engine of models, which is loaded at the first use and released a minute after
/// the last. One picture is read at a time, others wait for it.
class EngineTextRecognizer : public TextRecognizer {
  public:
    static constexpr std::chrono::seconds keptFor{60};

    explicit EngineTextRecognizer(RecognitionFiles files, std::chrono::milliseconds kept = keptFor);
    /// Ends what is being read.
    ~EngineTextRecognizer() override;

    QString obstacle() const override;
    Task<std::vector<RecognizedLine>> recognize(TextRecognitionRequest request,
                                                std::stop_token stop) override;

    /// Whether the engine takes memory at the moment.
    bool isLoaded() const { return *isLoaded_; }

  private:
    void release();

    const RecognitionFiles files_;
    std::stop_source end_;
    std::shared_ptr<std::unique_ptr<TextEngine>> engine_;  // touched by the queue alone
    std::shared_ptr<std::atomic<bool>> isLoaded_;
    QTimer releasing_;
    SerialQueue queue_;  // the last, so that it ends before what its work uses
};

}  // namespace kestrio
