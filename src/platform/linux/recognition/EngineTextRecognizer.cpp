#include "platform/linux/recognition/EngineTextRecognizer.h"

#include "core/Localisation.h"
#include "core/Priority.h"
#include "platform/linux/recognition/TextEngine.h"

#include <malloc.h>
#include <sys/mman.h>
#include <QFile>

namespace kestrio {

namespace {

/// One stop that two can ask for.
class JoinedStop {
  public:
    JoinedStop(std::stop_token first, std::stop_token second)
        : first_(std::move(first), [this] { source_.request_stop(); }),
          second_(std::move(second), [this] { source_.request_stop(); }) {}
    std::stop_token token() const { return source_.get_token(); }

  private:
    std::stop_source source_;
    std::stop_callback<std::function<void()>> first_;
    std::stop_callback<std::function<void()>> second_;
};

/// Gives back the memory of code and constants of libraries that stay mapped after they are closed,
/// as those with unique symbols do. These pages are read from the file again where they are wanted.
void dropCodePages(const QByteArray& library) {
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QIODevice::ReadOnly)) return;
    for (const QByteArray& line : maps.readAll().split('\n')) {
        // The part at the file's beginning holds constants; what the loader has written stands
        // later.
        const bool isUnwritten = line.contains(" r-xp ") || line.contains(" r--p 00000000 ");
        if (!isUnwritten || !line.contains(library)) continue;
        const QByteArrayList range = line.left(line.indexOf(' ')).split('-');
        const quintptr start = range.value(0).toULongLong(nullptr, 16);
        const quintptr end = range.value(1).toULongLong(nullptr, 16);
        if (start < end) madvise(reinterpret_cast<void*>(start), end - start, MADV_DONTNEED);
    }
}

}  // namespace

EngineTextRecognizer::EngineTextRecognizer(RecognitionFiles files, std::chrono::milliseconds kept)
    : files_(std::move(files)),
      engine_(std::make_shared<std::unique_ptr<TextEngine>>()),
      isLoaded_(std::make_shared<std::atomic<bool>>(false)),
      queue_(QStringLiteral("com.kestrio.textrecognition")) {
    releasing_.setSingleShot(true);
    releasing_.setInterval(kept);
    QObject::connect(&releasing_, &QTimer::timeout, &releasing_, [this] { release(); });
}

EngineTextRecognizer::~EngineTextRecognizer() {
    end_.request_stop();
}

QString EngineTextRecognizer::obstacle() const {
    const QByteArray missing = files_.missing();
    if (missing.isEmpty()) return {};
    return Kestrio::tr("Text recognition is not installed: %1 is missing. Install Kestrio again.")
        .arg(QFile::decodeName(missing));
}

Task<std::vector<RecognizedLine>> EngineTextRecognizer::recognize(TextRecognitionRequest request,
                                                                  std::stop_token stop) {
    const QString missing = obstacle();
    if (!missing.isEmpty())
        throw TextRecognitionError(TextRecognitionError::Case::unavailable, missing);
    releasing_.start();  // counted from the last use; reading takes far less
    const Completion<std::vector<RecognizedLine>> done(stop);
    queue_.async([done, stop, end = end_.get_token(), files = files_, engine = engine_,
                  isLoaded = isLoaded_, request = std::move(request)] {
        stepBackForOthers();
        const JoinedStop joined(stop, end);
        const auto read = [&] {
            if (joined.token().stop_requested()) throw Cancelled();
            if (!*engine) *engine = std::make_unique<TextEngine>(files);
            *isLoaded = true;
            return (*engine)->read(request, joined.token());
        };
        done.run(read);
    });
    co_return co_await done;
}

void EngineTextRecognizer::release() {
    queue_.async([engine = engine_, isLoaded = isLoaded_] {
        engine->reset();
        *isLoaded = false;
        dropCodePages("libonnxruntime");
        malloc_trim(0);  // what the models took is in pieces that the allocator would keep
    });
}

}  // namespace kestrio
