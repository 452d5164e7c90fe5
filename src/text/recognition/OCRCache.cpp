#include "text/recognition/OCRCache.h"

#include <QCryptographicHash>

namespace kestrio {

namespace {

constexpr std::chrono::seconds maxCacheAge(300);
constexpr int bytesPerPixel = 4;

}  // namespace

// The pixels themselves are hashed and no encoded file: they are equal for equal pictures too, and
// encoding would take longer than reading the text of a small picture.
QString hashOf(const Image& image) {
    if (image.isNull()) return {};
    const QImage& bitmap = image.bitmap();
    QCryptographicHash hash(QCryptographicHash::Sha256);
    // Two pictures of the same words in another width or kind differ.
    hash.addData(QByteArray::number(bitmap.width()) + ' ' + QByteArray::number(bitmap.height()) +
                 ' ' + QByteArray::number(int(bitmap.format())) + ' ');
    // Row by row, since rows may be followed by padding.
    for (int y = 0; y < bitmap.height(); ++y) {
        const auto* row = reinterpret_cast<const char*>(bitmap.constScanLine(y));
        hash.addData(QByteArrayView(row, qsizetype(bitmap.width()) * bytesPerPixel));
    }
    return QString::fromLatin1(hash.result().toHex());
}

bool OCRCacheStore::isOld(const OCRCache& entry) const {
    return now_() - entry.timestamp >= maxCacheAge;
}

std::optional<std::vector<OCRResultWithConfidence>> OCRCacheStore::find(const QString& imageHash) {
    const std::lock_guard lock(cacheLock_);
    const auto entry = cache_.find(imageHash);
    if (entry == cache_.end()) return std::nullopt;
    if (!isOld(entry->second)) return entry->second.results;
    cache_.erase(entry);
    return std::nullopt;
}

void OCRCacheStore::store(const QString& imageHash, std::vector<OCRResultWithConfidence> results,
                          QSizeF imageSize) {
    if (imageHash.isEmpty()) return;
    const std::lock_guard lock(cacheLock_);
    std::erase_if(cache_, [this](const auto& entry) { return isOld(entry.second); });
    cache_[imageHash] = {imageHash, std::move(results), now_(), imageSize};
}

}  // namespace kestrio
