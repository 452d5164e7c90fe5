#include "imaging/codecs/DecodedPictures.h"

#include <algorithm>
#include <cmath>

#include "imaging/codecs/ImageDecoder.h"
#include "imaging/filters/Resample.h"

namespace kestrio {

namespace {

constexpr double smallPixels = 640 * 640;

QImage shrunk(const QImage& whole) {
    const double pixels = double(whole.width()) * whole.height();
    if (pixels <= smallPixels) return whole;
    const double scale = std::sqrt(smallPixels / pixels);
    const auto side = [&](int length) {
        return std::max(1, static_cast<int>(std::lround(length * scale)));
    };
    return scaledTo(whole, {side(whole.width()), side(whole.height())});
}

}  // namespace

std::shared_ptr<DecodedPictures> DecodedPictures::shared() {
    static std::mutex mutex;
    static std::weak_ptr<DecodedPictures> present;
    const std::lock_guard lock(mutex);
    auto pictures = present.lock();
    if (!pictures) {
        pictures = std::make_shared<DecodedPictures>();
        present = pictures;
    }
    return pictures;
}

// Copies of a style share their bytes, so most often comparing two pointers suffices.
DecodedPictures::EntryPointer DecodedPictures::entryOf(const QByteArray& bytes) {
    const std::lock_guard lock(mutex_);
    const auto found = std::ranges::find_if(slots_, [&](const Slot& slot) {
        const QByteArray& known = slot.entry->bytes;
        return known.constData() == bytes.constData() ? known.size() == bytes.size()
                                                      : known == bytes;
    });
    if (found != slots_.end()) {
        slots_.splice(slots_.begin(), slots_, found);
    } else {
        slots_.push_front({std::make_shared<Entry>(bytes)});
    }
    return slots_.front().entry;
}

QImage DecodedPictures::whole(const QByteArray& bytes) {
    const EntryPointer entry = entryOf(bytes);
    const std::lock_guard lock(entry->mutex);
    if (entry->whole.isNull()) entry->whole = decodeImage(entry->bytes);
    const QImage whole = entry->whole;
    settle(entry, whole.sizeInBytes(), entry->small.sizeInBytes());
    return whole;
}

QImage DecodedPictures::small(const QByteArray& bytes) {
    const EntryPointer entry = entryOf(bytes);
    const std::lock_guard lock(entry->mutex);
    if (entry->small.isNull()) {
        entry->small = shrunk(entry->whole.isNull() ? decodeImage(entry->bytes) : entry->whole);
    }
    const QImage small = entry->small;
    settle(entry, entry->whole.sizeInBytes(), small.sizeInBytes());
    return small;
}

void DecodedPictures::settle(const EntryPointer& entry, qint64 wholeSize, qint64 smallSize) {
    const std::lock_guard lock(mutex_);
    const auto found = std::ranges::find(slots_, entry, &Slot::entry);
    if (found == slots_.end()) return;
    found->wholeSize = wholeSize;
    found->smallSize = smallSize;
    trim();
}

void DecodedPictures::trim() {
    qint64 held = 0;
    for (const Slot& slot : slots_)
        held += slot.size();
    while (held > limit_ && !slots_.empty()) {
        held -= slots_.back().size();
        slots_.pop_back();
    }
}

qint64 DecodedPictures::size() const {
    const std::lock_guard lock(mutex_);
    qint64 held = 0;
    for (const Slot& slot : slots_)
        held += slot.size();
    return held;
}

QImage stylePicture(const std::optional<QByteArray>& bytes, PictureDetail detail) {
    if (!bytes) return {};
    const auto pictures = DecodedPictures::shared();
    try {
        return detail == PictureDetail::small ? pictures->small(*bytes) : pictures->whole(*bytes);
    } catch (const ImageLoadError&) {
        return {};
    }
}

}  // namespace kestrio
