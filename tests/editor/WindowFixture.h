#pragma once

#include "editor/EditorFixture.h"
#include "editor/views/EditorWindow.h"
#include "render/ImageRendererService.h"

#include <QElapsedTimer>

namespace kestrio {

inline void runEventsFor(int milliseconds) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

// On the real renderer, since the window shows what it makes.
struct EditorWindowTest : EditorFixture {
    EditorServices services() override {
        EditorServices real = EditorFixture::services();
        real.imageRenderer = std::make_shared<ImageRendererService>(real.watermark);
        real.exporter = std::make_shared<PictureExporter>(pasteboard);
        return real;
    }
};

}  // namespace kestrio
