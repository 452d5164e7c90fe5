#pragma once

#include "platform/linux/recognition/OnnxApi.h"

#include <QByteArray>
#include <QString>
#include <array>
#include <memory>
#include <stop_token>
#include <vector>

namespace kestrio {

/// ONNX Runtime, loaded while somebody holds this. Threads may share it.
class OnnxRuntime {
  public:
    /// Throws TextRecognitionError where the file is no such library, or damaged.
    explicit OnnxRuntime(const QByteArray& library);
    ~OnnxRuntime();
    OnnxRuntime(const OnnxRuntime&) = delete;
    OnnxRuntime& operator=(const OnnxRuntime&) = delete;

    /// Calls a function of the table. Throws TextRecognitionError with what the library says where
    /// one that can fail does.
    template <typename Function, typename... Arguments>
    void call(Arguments... arguments) const {
        check(Function::call(table_, arguments...));
    }
    template <typename Function, typename Object>
    void release(Object* object) const {
        if (object) Function::call(table_, object);
    }

    const onnx::Env* environment() const { return environment_; }
    const onnx::MemoryInfo* memory() const { return memory_; }

  private:
    void check(onnx::Status* status) const;

    void* handle_ = nullptr;
    const void* const* table_ = nullptr;
    onnx::Env* environment_ = nullptr;
    onnx::MemoryInfo* memory_ = nullptr;
};

/// Numbers in rows, as models take and give them.
struct Tensor {
    std::vector<std::int64_t> shape;
    std::vector<float> values;  ///< the last dimension varies fastest
};

/// A model of one input and one output, ready to run. Threads may share it.
class OnnxModel {
  public:
    struct Names {
        const char* input;
        const char* output;
    };

    /// Each run works on `threads` threads. Throws TextRecognitionError.
    OnnxModel(std::shared_ptr<OnnxRuntime> runtime, const QByteArray& file, Names names,
              int threads);
    ~OnnxModel();
    OnnxModel(const OnnxModel&) = delete;
    OnnxModel& operator=(const OnnxModel&) = delete;

    /// Throws TextRecognitionError, and Cancelled soon after a stop.
    Tensor run(Tensor input, std::stop_token stop) const;

  private:
    std::shared_ptr<OnnxRuntime> runtime_;
    Names names_;
    onnx::Session* session_ = nullptr;
};

}  // namespace kestrio
