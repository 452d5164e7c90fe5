#include "imaging/codecs/PictureLoading.h"

#include "imaging/codecs/ImageDecoder.h"

namespace kestrio {

Task<LoadedPicture> loadPicture(QString path) {
    auto reading = runOnStorage([path] { return readImageFile(path); }, readLimit);
    LoadedPicture picture;
    picture.data = co_await reading;
    auto decode = [data = picture.data] { return decodeImage(data); };
    const auto decoding = runInBackground(std::move(decode));
    picture.bitmap = co_await decoding;
    co_return picture;
}

}  // namespace kestrio
