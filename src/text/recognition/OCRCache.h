#pragma once

#include "imaging/Image.h"
#include "text/recognition/OCRResult.h"

#include <chrono>
#include <functional>
#include <map>
#include <mutex>

namespace kestrio {

/// What was read in one picture.
struct OCRCache {
    QString imageHash;
    std::vector<OCRResultWithConfidence> results;
    std::chrono::steady_clock::time_point timestamp;
    QSizeF imageSize;  ///< points
};

/// The name of a picture by its pixels, as 64 lower-case hexadecimal digits; empty for a null
/// picture. Reads all of them: 33 MB of a 4K screen take a fifth of a second.
QString hashOf(const Image& image);

/// What was read in pictures of the last minutes. Any thread.
class OCRCacheStore {
  public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    explicit OCRCacheStore(Clock now = std::chrono::steady_clock::now) : now_(std::move(now)) {}

    /// Nothing where there is no entry, or none young enough.
    std::optional<std::vector<OCRResultWithConfidence>> find(const QString& imageHash);
    /// Old entries go with it. Nothing is kept under an empty name.
    void store(const QString& imageHash, std::vector<OCRResultWithConfidence> results,
               QSizeF imageSize);

  private:
    bool isOld(const OCRCache& entry) const;

    const Clock now_;
    std::mutex cacheLock_;
    std::map<QString, OCRCache> cache_;
};

}  // namespace kestrio
