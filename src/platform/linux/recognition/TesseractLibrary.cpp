#include "platform/linux/recognition/TesseractLibrary.h"

#include "core/Cancelled.h"

#include <dlfcn.h>
#include <tesseract/capi.h>
#include <algorithm>

namespace kestrio {

namespace {

constexpr const char* libraryName = "libtesseract.so.5";
constexpr int stripHeight = 52;  // pixels: the models were trained on letters of about 30
constexpr int widestStrip = 6000;
constexpr int assumedResolution = 300;

}  // namespace

/// The functions that are needed, as the library's header declares them.
struct TesseractLibrary::Functions {
    void* handle = nullptr;
    decltype(&TessBaseAPICreate) create = nullptr;
    decltype(&TessBaseAPIDelete) remove = nullptr;
    decltype(&TessBaseAPIInit2) init = nullptr;
    decltype(&TessBaseAPISetPageSegMode) setMode = nullptr;
    decltype(&TessBaseAPISetImage) setImage = nullptr;
    decltype(&TessBaseAPISetSourceResolution) setResolution = nullptr;
    decltype(&TessBaseAPIRecognize) recognize = nullptr;
    decltype(&TessBaseAPIGetIterator) iterator = nullptr;
    decltype(&TessResultIteratorDelete) removeIterator = nullptr;
    decltype(&TessResultIteratorNext) next = nullptr;
    decltype(&TessResultIteratorGetUTF8Text) text = nullptr;
    decltype(&TessResultIteratorConfidence) confidence = nullptr;
    decltype(&TessResultIteratorGetPageIteratorConst) place = nullptr;
    decltype(&TessPageIteratorBoundingBox) bounds = nullptr;
    decltype(&TessDeleteText) removeText = nullptr;
    decltype(&TessMonitorCreate) createMonitor = nullptr;
    decltype(&TessMonitorDelete) removeMonitor = nullptr;
    decltype(&TessMonitorSetCancelFunc) setCancel = nullptr;
    decltype(&TessMonitorSetCancelThis) setCancelThis = nullptr;
    void (*setActiveLevels)(int) = nullptr;  ///< of OpenMP
    bool isComplete = true;

    Functions() {
        handle = dlopen(libraryName, RTLD_NOW | RTLD_LOCAL);
        load(create, "TessBaseAPICreate");
        load(remove, "TessBaseAPIDelete");
        load(init, "TessBaseAPIInit2");
        load(setMode, "TessBaseAPISetPageSegMode");
        load(setImage, "TessBaseAPISetImage");
        load(setResolution, "TessBaseAPISetSourceResolution");
        load(recognize, "TessBaseAPIRecognize");
        load(iterator, "TessBaseAPIGetIterator");
        load(removeIterator, "TessResultIteratorDelete");
        load(next, "TessResultIteratorNext");
        load(text, "TessResultIteratorGetUTF8Text");
        load(confidence, "TessResultIteratorConfidence");
        load(place, "TessResultIteratorGetPageIteratorConst");
        load(bounds, "TessPageIteratorBoundingBox");
        load(removeText, "TessDeleteText");
        load(createMonitor, "TessMonitorCreate");
        load(removeMonitor, "TessMonitorDelete");
        load(setCancel, "TessMonitorSetCancelFunc");
        load(setCancelThis, "TessMonitorSetCancelThis");
        load(setActiveLevels, "omp_set_max_active_levels");
    }

    ~Functions() {
        if (handle) dlclose(handle);
    }

    Functions(const Functions&) = delete;
    Functions& operator=(const Functions&) = delete;

  private:
    template <typename Function>
    void load(Function& function, const char* name) {
        if (handle) function = reinterpret_cast<Function>(dlsym(handle, name));
        isComplete &= function != nullptr;
    }
};

/// One reader of one language.
class TesseractLibrary::Instance {
  public:
    Instance(const Functions& functions, std::string model)
        : functions_(functions), model_(std::move(model)), api_(functions.create()) {
        isReady_ = functions_.init(api_, nullptr, model_.c_str(), tesseract::OEM_LSTM_ONLY) == 0;
        functions_.setMode(api_, tesseract::PSM_RAW_LINE);
    }
    ~Instance() { functions_.remove(api_); }
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    const std::string& model() const { return model_; }

    Glyphs read(const LineStrip& strip, const std::stop_token& stop) {
        if (!isReady_) return {};
        // Lines are read beside each other already.
        functions_.setActiveLevels(0);
        functions_.setImage(api_, strip.pixels.values.data(), strip.pixels.width,
                            strip.pixels.height, 1, strip.pixels.width);
        functions_.setResolution(api_, assumedResolution);
        ETEXT_DESC* const monitor = functions_.createMonitor();
        functions_.setCancelThis(monitor, const_cast<std::stop_token*>(&stop));
        functions_.setCancel(monitor, [](void* token, int) {
            return static_cast<const std::stop_token*>(token)->stop_requested();
        });
        const bool isRead = functions_.recognize(api_, monitor) == 0;
        functions_.removeMonitor(monitor);
        if (stop.stop_requested()) throw Cancelled();
        return isRead ? glyphs(strip) : Glyphs();
    }

  private:
    Glyphs glyphs(const LineStrip& strip) {
        Glyphs found;
        TessResultIterator* const iterator = functions_.iterator(api_);
        if (!iterator) return found;
        do {
            char* const text = functions_.text(iterator, tesseract::RIL_SYMBOL);
            Glyph glyph;
            glyph.text = QString::fromUtf8(text).trimmed();
            functions_.removeText(text);
            int left = 0;
            int right = 0;
            int top = 0;
            int bottom = 0;
            const bool isPlaced = functions_.bounds(
                functions_.place(iterator), tesseract::RIL_SYMBOL, &left, &top, &right, &bottom);
            if (!isPlaced || glyph.text.isEmpty()) continue;
            glyph.center = strip.left + (left + right) / 2.0 / strip.scale;
            glyph.left = static_cast<int>(strip.left + left / strip.scale);
            glyph.right = static_cast<int>(strip.left + right / strip.scale);
            glyph.confidence = functions_.confidence(iterator, tesseract::RIL_SYMBOL) / 100.0;
            found.push_back(std::move(glyph));
        } while (functions_.next(iterator, tesseract::RIL_SYMBOL));
        functions_.removeIterator(iterator);
        return found;
    }

    const Functions& functions_;
    std::string model_;
    TessBaseAPI* api_;
    bool isReady_ = false;
};

TesseractLibrary::TesseractLibrary() : functions_(std::make_unique<Functions>()) {
    if (!functions_->isComplete) functions_.reset();
}

TesseractLibrary::~TesseractLibrary() = default;

std::unique_ptr<TesseractLibrary::Instance> TesseractLibrary::take(const std::string& model) {
    {
        const std::lock_guard guard(lock_);
        const auto found = std::find_if(idle_.begin(), idle_.end(), [&model](const auto& instance) {
            return instance->model() == model;
        });
        if (found != idle_.end()) {
            auto instance = std::move(*found);
            idle_.erase(found);
            return instance;
        }
    }
    return std::make_unique<Instance>(*functions_, model);
}

void TesseractLibrary::giveBack(std::unique_ptr<Instance> instance) {
    const std::lock_guard guard(lock_);
    idle_.push_back(std::move(instance));
}

Glyphs TesseractLibrary::read(const LineImage& line, const std::string& model,
                              const std::stop_token& stop) {
    if (!functions_) return {};
    auto instance = take(model);
    Glyphs all;
    for (const LineStrip& strip : lineStrips(line, {stripHeight, widestStrip, 1})) {
        Glyphs glyphs = instance->read(strip, stop);
        all.insert(all.end(), std::make_move_iterator(glyphs.begin()),
                   std::make_move_iterator(glyphs.end()));
    }
    giveBack(std::move(instance));
    return all;
}

}  // namespace kestrio
