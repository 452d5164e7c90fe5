#include "platform/linux/recognition/OnnxRuntime.h"

#include "core/Cancelled.h"
#include "core/Localisation.h"
#include "platform/TextRecognizer.h"

#include <dlfcn.h>
#include <elf.h>
#include <QFile>
#include <cstring>
#include <numeric>

namespace kestrio {

namespace {

TextRecognitionError engineFailure(const QString& reason) {
    return {TextRecognitionError::Case::failed,
            Kestrio::tr("The text recognition engine failed: %1").arg(reason)};
}

TextRecognitionError damagedFile(const QByteArray& file) {
    return {TextRecognitionError::Case::unavailable,
            Kestrio::tr("Text recognition is damaged: %1 cannot be loaded. Install Kestrio again.")
                .arg(QFile::decodeName(file))};
}

/// Whether a library is as long as its header says. The loader maps a shorter one all the same, and
/// the process ends where it touches what is missing.
bool isWholeLibrary(const QByteArray& path) {
    QFile file(QFile::decodeName(path));
    Elf64_Ehdr header{};
    if (!file.open(QIODevice::ReadOnly)) return false;
    if (file.read(reinterpret_cast<char*>(&header), sizeof header) != sizeof header) return false;
    const auto end = static_cast<qint64>(header.e_shoff) +
                     static_cast<qint64>(header.e_shnum) * header.e_shentsize;
    return std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 && file.size() >= end;
}

/// What a function creates, released with the scope.
template <typename Object, typename Release>
class Scoped {
  public:
    explicit Scoped(const OnnxRuntime& runtime) : runtime_(runtime) {}
    ~Scoped() { runtime_.release<Release>(object_); }
    Scoped(const Scoped&) = delete;
    Scoped& operator=(const Scoped&) = delete;
    Object** target() { return &object_; }
    Object* get() const { return object_; }

  private:
    const OnnxRuntime& runtime_;
    Object* object_ = nullptr;
};

using ScopedOptions = Scoped<onnx::SessionOptions, onnx::ReleaseSessionOptions>;
using ScopedRunOptions = Scoped<onnx::RunOptions, onnx::ReleaseRunOptions>;
using ScopedValue = Scoped<onnx::Value, onnx::ReleaseValue>;
using ScopedInfo = Scoped<onnx::TensorInfo, onnx::ReleaseTensorInfo>;

Tensor copyOf(const OnnxRuntime& runtime, onnx::Value* value) {
    ScopedInfo info(runtime);
    runtime.call<onnx::GetTensorInfo>(value, info.target());
    size_t dimensions = 0;
    runtime.call<onnx::GetDimensionsCount>(info.get(), &dimensions);
    Tensor tensor;
    tensor.shape.resize(dimensions);
    runtime.call<onnx::GetDimensions>(info.get(), tensor.shape.data(), dimensions);
    void* data = nullptr;
    runtime.call<onnx::GetTensorData>(value, &data);
    const auto count = std::accumulate(tensor.shape.begin(), tensor.shape.end(), std::int64_t(1),
                                       std::multiplies<>());
    const auto* values = static_cast<const float*>(data);
    tensor.values.assign(values, values + count);
    return tensor;
}

}  // namespace

OnnxRuntime::OnnxRuntime(const QByteArray& library) {
    if (!isWholeLibrary(library)) throw damagedFile(library);
    handle_ = dlopen(library.constData(), RTLD_NOW | RTLD_LOCAL);
    if (!handle_) throw damagedFile(library);
    using GetApiBase = const onnx::ApiBase* (*)();
    const auto getApiBase = reinterpret_cast<GetApiBase>(dlsym(handle_, "OrtGetApiBase"));
    table_ = getApiBase ? getApiBase()->getApi(onnx::apiVersion) : nullptr;
    if (!table_) {
        dlclose(handle_);
        throw damagedFile(library);
    }
    call<onnx::CreateEnv>(onnx::loggingFatal, "kestrio", &environment_);
    call<onnx::DisableTelemetryEvents>(static_cast<const onnx::Env*>(environment_));
    call<onnx::CreateCpuMemoryInfo>(onnx::deviceAllocator, onnx::defaultMemory, &memory_);
}

OnnxRuntime::~OnnxRuntime() {
    release<onnx::ReleaseMemoryInfo>(memory_);
    release<onnx::ReleaseEnv>(environment_);
    dlclose(handle_);
}

void OnnxRuntime::check(onnx::Status* status) const {
    if (!status) return;
    const auto reason = QString::fromUtf8(onnx::GetErrorMessage::call(table_, status));
    release<onnx::ReleaseStatus>(status);
    throw engineFailure(reason);
}

OnnxModel::OnnxModel(std::shared_ptr<OnnxRuntime> runtime, const QByteArray& file, Names names,
                     int threads)
    : runtime_(std::move(runtime)), names_(names) {
    ScopedOptions options(*runtime_);
    runtime_->call<onnx::CreateSessionOptions>(options.target());
    runtime_->call<onnx::SetOptimization>(options.get(), onnx::allOptimizations);
    runtime_->call<onnx::SetIntraOpThreads>(options.get(), threads);
    runtime_->call<onnx::SetInterOpThreads>(options.get(), 1);
    // Waiting threads would otherwise keep a core busy between runs.
    runtime_->call<onnx::AddSessionConfigEntry>(options.get(), "session.intra_op.allow_spinning",
                                                "0");
    try {
        runtime_->call<onnx::CreateSession>(runtime_->environment(), file.constData(),
                                            static_cast<const onnx::SessionOptions*>(options.get()),
                                            &session_);
    } catch (const TextRecognitionError&) {
        throw damagedFile(file);
    }
}

OnnxModel::~OnnxModel() {
    runtime_->release<onnx::ReleaseSession>(session_);
}

Tensor OnnxModel::run(Tensor input, std::stop_token stop) const {
    ScopedRunOptions options(*runtime_);
    runtime_->call<onnx::CreateRunOptions>(options.target());
    ScopedValue value(*runtime_);
    runtime_->call<onnx::CreateTensor>(runtime_->memory(), static_cast<void*>(input.values.data()),
                                       input.values.size() * sizeof(float), input.shape.data(),
                                       input.shape.size(), onnx::elementFloat, value.target());
    ScopedValue output(*runtime_);
    const onnx::Value* const inputs[] = {value.get()};
    const std::stop_callback terminate(
        stop, [this, &options] { runtime_->call<onnx::SetTerminate>(options.get()); });
    try {
        runtime_->call<onnx::Run>(session_, static_cast<const onnx::RunOptions*>(options.get()),
                                  &names_.input, static_cast<const onnx::Value* const*>(inputs),
                                  size_t(1), &names_.output, size_t(1), output.target());
    } catch (const TextRecognitionError&) {
        if (stop.stop_requested()) throw Cancelled();
        throw;
    }
    if (stop.stop_requested()) throw Cancelled();
    return copyOf(*runtime_, output.get());
}

}  // namespace kestrio
