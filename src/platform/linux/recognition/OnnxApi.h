#pragma once

#include <cstddef>
#include <cstdint>

namespace kestrio::onnx {

// What is needed of ONNX Runtime's C interface, of which the npm package ships no headers. The
// library exports one function, OrtGetApiBase, which leads to a table of functions whose order is
// part of its promise: functions are only ever added at the end. A slot is a function's place in
// it.

struct Env;
struct Status;
struct MemoryInfo;
struct Session;
struct SessionOptions;
struct RunOptions;
struct Value;
struct TensorInfo;

struct ApiBase {
    const void* const* (*getApi)(std::uint32_t version);
    const char* (*getVersion)();
};

/// The oldest version of the table that has every slot below.
inline constexpr std::uint32_t apiVersion = 11;

enum LoggingLevel { loggingError = 3, loggingFatal = 4 };
enum ElementType { elementFloat = 1 };
enum AllocatorKind { deviceAllocator = 0 };
enum MemoryKind { defaultMemory = 0 };
enum Optimization { allOptimizations = 99 };

/// A function of the table: where it stands, and what it looks like. Functions that can fail give a
/// status, which is null where all is well.
template <std::size_t place, typename Signature>
struct Slot;
template <std::size_t place, typename Result, typename... Arguments>
struct Slot<place, Result(Arguments...)> {
    static Result call(const void* const* table, Arguments... arguments) {
        return reinterpret_cast<Result (*)(Arguments...)>(const_cast<void*>(table[place]))(
            arguments...);
    }
};

using GetErrorMessage = Slot<2, const char*(const Status*)>;
using CreateEnv = Slot<3, Status*(LoggingLevel, const char*, Env**)>;
using DisableTelemetryEvents = Slot<6, Status*(const Env*)>;
using CreateSession = Slot<7, Status*(const Env*, const char*, const SessionOptions*, Session**)>;
using Run = Slot<9, Status*(Session*, const RunOptions*, const char* const*, const Value* const*,
                            std::size_t, const char* const*, std::size_t, Value**)>;
using CreateSessionOptions = Slot<10, Status*(SessionOptions**)>;
using DisableMemoryPattern = Slot<17, Status*(SessionOptions*)>;
using DisableCpuMemoryArena = Slot<19, Status*(SessionOptions*)>;
using SetOptimization = Slot<23, Status*(SessionOptions*, Optimization)>;
using SetIntraOpThreads = Slot<24, Status*(SessionOptions*, int)>;
using SetInterOpThreads = Slot<25, Status*(SessionOptions*, int)>;
using CreateRunOptions = Slot<39, Status*(RunOptions**)>;
using SetTerminate = Slot<46, Status*(RunOptions*)>;
using CreateTensor = Slot<49, Status*(const MemoryInfo*, void*, std::size_t, const std::int64_t*,
                                      std::size_t, ElementType, Value**)>;
using GetTensorData = Slot<51, Status*(Value*, void**)>;
using GetDimensionsCount = Slot<61, Status*(const TensorInfo*, std::size_t*)>;
using GetDimensions = Slot<62, Status*(const TensorInfo*, std::int64_t*, std::size_t)>;
using GetTensorInfo = Slot<65, Status*(const Value*, TensorInfo**)>;
using CreateCpuMemoryInfo = Slot<69, Status*(AllocatorKind, MemoryKind, MemoryInfo**)>;
using ReleaseEnv = Slot<92, void(Env*)>;
using ReleaseStatus = Slot<93, void(Status*)>;
using ReleaseMemoryInfo = Slot<94, void(MemoryInfo*)>;
using ReleaseSession = Slot<95, void(Session*)>;
using ReleaseValue = Slot<96, void(Value*)>;
using ReleaseRunOptions = Slot<97, void(RunOptions*)>;
using ReleaseTensorInfo = Slot<99, void(TensorInfo*)>;
using ReleaseSessionOptions = Slot<100, void(SessionOptions*)>;
using AddSessionConfigEntry = Slot<130, Status*(SessionOptions*, const char*, const char*)>;

}  // namespace kestrio::onnx
