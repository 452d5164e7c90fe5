#pragma once

#include "platform/ScreenStream.h"
#include "platform/linux/x11/StreamThread.h"

#include <QObject>

namespace kestrio {

/// Reads the root window whenever the X server reports changes in the region, in a thread with a
/// connection of its own. Ends by itself where the display of the region goes, moves or changes its
/// scale, or the server goes.
class X11ScreenStream : public ScreenStream {
  public:
    explicit X11ScreenStream(std::shared_ptr<Displays> displays);
    ~X11ScreenStream() override;

    void setFrameHandler(FrameHandler handler) override;
    void setErrorHandler(ErrorHandler handler) override;
    Task<void> start(ScreenStreamRequest request) override;
    Task<void> stop() override;
    int generation() const override { return generation_; }

  private:
    /// One start of the stream.
    struct Run {
        Run(const std::shared_ptr<FrameSink>& sink, ErrorHandler ended)
            : thread(sink, std::move(ended)) {}

        StreamThread thread;
        std::shared_ptr<Run> before;     ///< until it has finished
        std::optional<Display> display;  ///< once the region was found on it
        QRect pixels;                    ///< of the root window: what is read
    };

    static Task<void> begin(std::shared_ptr<Displays> displays, ScreenStreamRequest request,
                            std::shared_ptr<Run> run);
    static Task<void> finish(std::shared_ptr<Run> run);
    void checkLayout();

    std::shared_ptr<Displays> displays_;
    std::shared_ptr<FrameSink> sink_ = std::make_shared<FrameSink>();
    // Runs that have outlived the stream find it empty.
    std::shared_ptr<ErrorHandler> errorHandler_ = std::make_shared<ErrorHandler>();
    std::shared_ptr<Run> run_;
    int generation_ = 0;
    QObject context_;
};

}  // namespace kestrio
