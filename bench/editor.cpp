// The editor's window on a 4K picture with a hundred annotations, driven by a pointer at 125 events
// a second. Bounds: 95 of 100 frames in 16 ms, no stall of the main loop above 30 ms during an
// export, the first frame of a process after 400 ms and of a second editor after 150, resident
// memory of six bitmaps and 120 MB.
//
// A frame is all work of the main thread, which renders too, from the end of the frame before to
// its own presentation, while the pointer moves: delivery of events, bindings, what arrives from
// the background, synchronising, painting and handing over to the window system. Waiting is not
// counted; "shown after" is the time from an input event to the frame that shows it.
//
// usage: bench_editor [--quick] [--only drag|draw|padding|corner|zoom|export] [PICTURE]
// (on an X server: QT_QPA_PLATFORM=xcb)

#include "EditorSession.h"

#include "app/cli/CommandLine.h"
#include "imaging/codecs/ImageDecoder.h"
#include "imaging/codecs/PngEncoder.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace kestrio {
namespace {

// Starting.

/// Ends the event loop with the first frame of any window and prints the time since `start`.
class FirstFrame : public QObject {
  public:
    explicit FirstFrame(double start) : start_(start) {}

    bool eventFilter(QObject* object, QEvent* event) override {
        auto* window = qobject_cast<QQuickWindow*>(object);
        if (window && event->type() == QEvent::Expose && !std::exchange(isWatching_, true)) {
            connect(window, &QQuickWindow::frameSwapped, this, [this] {
                if (!std::exchange(isTold_, true))
                    std::printf("%f\n", milliseconds(CLOCK_MONOTONIC) - start_);
                std::fflush(stdout);
                // Not quit(), which does nothing in an event loop of the program's own.
                QCoreApplication::exit();
            });
        }
        return false;
    }

  private:
    double start_;
    bool isWatching_ = false, isTold_ = false;
};

/// This program again, as "kestrio edit" would start, from before the process is made.
double firstFrameOfProcess(const QString& picture) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--first-frame"),
                   QString::number(milliseconds(CLOCK_MONOTONIC), 'f', 3), picture});
    process.waitForFinished();
    return process.readAllStandardOutput().trimmed().toDouble();
}

double firstFrameOfEditor(const Image& image) {
    const double start = milliseconds(CLOCK_MONOTONIC);
    const double processorStart = milliseconds(CLOCK_THREAD_CPUTIME_ID);
    double processor = NAN;
    const EditorServices all = services(std::make_shared<MemoryUserDefaults>());
    auto document = std::make_shared<EditorViewModel>(all);
    document->loadCapture({image, {}, {}});
    EditorWindow window(std::move(document), all, QStringLiteral("second"));
    window.show();
    double shown = NAN;
    QEventLoop loop;
    QObject::connect(window.window(), &QQuickWindow::frameSwapped, &loop, [&] {
        if (!std::isnan(shown)) return;
        shown = milliseconds(CLOCK_MONOTONIC) - start;
        processor = milliseconds(CLOCK_THREAD_CPUTIME_ID) - processorStart;
        loop.quit();
    });
    QTimer::singleShot(5000, &loop, &QEventLoop::quit);
    loop.exec();
    std::printf("    second editor: %.0f ms of processor time of the main thread\n", processor);
    return shown;
}

double residentMegabytes(const char* row) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return NAN;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith(row)) return line.simplified().split(' ').value(1).toDouble() / 1024;
    return NAN;
}

struct Options {
    QString picture;
    bool isQuick = false;
    QString only;  ///< a part to measure alone, for a profiler
};

void measureFrames(Session& session, const QString& only) {
    const auto isWanted = [&](const char* part) {
        return only.isEmpty() || only == QLatin1String(part);
    };
    if (isWanted("drag")) session.dragMarks();
    if (isWanted("draw")) session.draw();
    if (isWanted("padding")) {
        session.slide("backdrop", QStringLiteral("Padding"), "dragging the padding slider, p95");
    }
    if (isWanted("corner")) {
        session.slide("mockup", QStringLiteral("Corner radius"), "dragging the corner slider, p95");
    }
    if (isWanted("zoom")) session.zoom();
    if (isWanted("export")) {
        session.exportAs(QStringLiteral("png"), "longest stall in a PNG export");
        session.exportAs(QStringLiteral("webp"), "longest stall in a WebP export");
    }
}

void measureStart(const QString& path, bool isQuick) {
    std::vector<double> starts;
    for (int i = 0; i < (isQuick ? 1 : 7); ++i)
        starts.push_back(firstFrameOfProcess(path));
    report("first frame of a process, median", percentile(starts, 0.5), 400, "ms");
    std::printf("    quickest %.0f, slowest %.0f\n", percentile(starts, 0), percentile(starts, 1));
}

bool measure(const Options& options) {
    QTemporaryDir folder;
    QString path = options.picture;
    if (path.isEmpty()) {
        path = folder.filePath(QStringLiteral("picture.png"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)) return false;
        file.write(encodePng(drawnPicture()));
    }
    if (options.only.isEmpty()) measureStart(path, options.isQuick);
    Session session(options.isQuick);
    const Image image(loadImageFile(path));
    if (!session.open(image)) return false;
    const double bitmap = double(image.bitmap().sizeInBytes()) / (1 << 20);
    report("resident memory, document open", residentMegabytes("VmRSS"), 6 * bitmap + 120, "MB");
    measureFrames(session, options.only);
    report("resident memory after all that", residentMegabytes("VmRSS"), 6 * bitmap + 120, "MB");
    std::printf("    at its greatest, exports included: %.0f MB\n", residentMegabytes("VmHWM"));
    report("first frame of a second editor", firstFrameOfEditor(image), 150, "ms");
    return session.isComplete();
}

}  // namespace
}  // namespace kestrio

int main(int argc, char** argv) {
    using namespace kestrio;
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    QTemporaryDir settings;  // neither reads nor changes the user's
    for (const char* folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        qputenv(folder, QFile::encodeName(settings.path()));
    int ownCount = 1;
    if (arguments.value(0) == u"--first-frame") {
        QApplication application(ownCount, argv);
        FirstFrame firstFrame(arguments.value(1).toDouble());
        application.installEventFilter(&firstFrame);
        return static_cast<int>(runCommandLine({QStringLiteral("edit"), arguments.value(2)}));
    }
    TimedApplication application(ownCount, argv);
    Options options;
    options.isQuick = arguments.removeAll(QStringLiteral("--quick")) > 0;
    if (arguments.value(0) == u"--only") {
        options.only = arguments.value(1);
        arguments = arguments.mid(2);
    }
    options.picture = arguments.value(0);
    return measure(options) ? 0 : 1;
}
