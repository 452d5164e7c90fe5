#include "imaging/codecs/ImageLoadError.h"

#include "core/Localisation.h"

namespace kestrio {

ImageLoadError ImageLoadError::unreadable(QString path, QString reason) {
    ImageLoadError error(Case::unreadable);
    error.path_ = std::move(path);
    error.reason_ = std::move(reason);
    return error;
}

ImageLoadError ImageLoadError::damaged(QString reason) {
    ImageLoadError error(Case::damaged);
    error.reason_ = std::move(reason);
    return error;
}

ImageLoadError ImageLoadError::unsupportedKind(QString kind) {
    ImageLoadError error(Case::unsupportedFormat);
    error.reason_ = std::move(kind);
    return error;
}

ImageLoadError ImageLoadError::tooLarge(QSize claimed) {
    ImageLoadError error(Case::tooLarge);
    error.claimed_ = claimed;
    return error;
}

QString ImageLoadError::errorDescription() const {
    switch (case_) {
        case Case::unreadable:
            return Kestrio::tr("The file \"%1\" cannot be read: %2.").arg(path_, reason_);
        case Case::empty:
            return Kestrio::tr("The picture is empty: it holds no data at all.");
        case Case::unsupportedFormat:
            if (!reason_.isEmpty()) {
                return Kestrio::tr(
                           "The picture is %1, which is not supported; please save it as PNG "
                           "first.")
                    .arg(reason_);
            }
            return Kestrio::tr(
                "This is not a picture in a supported format; please choose a PNG, JPEG, WebP, "
                "BMP, GIF, ICO, PPM or TIFF file.");
        case Case::damaged:
            return Kestrio::tr("The picture is damaged or incomplete: %1.").arg(reason_);
        case Case::tooLarge:
            return Kestrio::tr(
                       "The picture claims %1 × %2 pixels, which is more than can be opened; "
                       "please scale it down first.")
                .arg(claimed_.width())
                .arg(claimed_.height());
    }
    return {};
}

}  // namespace kestrio
