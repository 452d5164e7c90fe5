#include "imaging/codecs/LibpngWriter.h"

#include <png.h>

namespace kestrio {

namespace {

void append(png_structp png, png_bytep data, size_t size) {
    static_cast<QByteArray*>(png_get_io_ptr(png))
        ->append(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
}

std::vector<uchar> packedRow(const QRgb* source, int width, const PngVariant& variant) {
    std::vector<uchar> row;
    const auto push = [&](int sample) {
        row.push_back(static_cast<uchar>(sample));
        if (variant.bitDepth == 16) row.push_back(static_cast<uchar>(sample));
    };
    for (int x = 0; x < width; ++x) {
        if (variant.colourType & PNG_COLOR_MASK_COLOR) {
            push(qRed(source[x]));
            push(qGreen(source[x]));
            push(qBlue(source[x]));
        } else {
            push(qGreen(source[x]));
        }
        if (variant.colourType & PNG_COLOR_MASK_ALPHA) push(qAlpha(source[x]));
    }
    return row;
}

}  // namespace

QByteArray writtenByLibpng(const QImage& bitmap, const PngVariant& variant) {
    QByteArray file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(png, &file, append, nullptr);
    png_set_IHDR(png, info, static_cast<png_uint_32>(bitmap.width()),
                 static_cast<png_uint_32>(bitmap.height()), variant.bitDepth, variant.colourType,
                 variant.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (variant.filters) png_set_filter(png, PNG_FILTER_TYPE_BASE, variant.filters);
    if (variant.transparentColour) {
        const QRgb pixel = bitmap.pixel(0, 0);
        const int scale = variant.bitDepth == 16 ? 257 : 1;
        const auto sample = [&](int value) { return static_cast<png_uint_16>(value * scale); };
        png_color_16 colour{0, sample(qRed(pixel)), sample(qGreen(pixel)), sample(qBlue(pixel)),
                            sample(qGreen(pixel))};
        png_set_tRNS(png, info, nullptr, 0, &colour);
    }
    if (!variant.iccProfile.isEmpty()) {
        png_set_iCCP(png, info, "profile", PNG_COMPRESSION_TYPE_BASE,
                     reinterpret_cast<png_const_bytep>(variant.iccProfile.constData()),
                     static_cast<png_uint_32>(variant.iccProfile.size()));
    }
    png_write_info(png, info);
    std::vector<std::vector<uchar>> rows;
    std::vector<png_bytep> pointers;
    for (int y = 0; y < bitmap.height(); ++y) {
        const auto* source = reinterpret_cast<const QRgb*>(bitmap.constScanLine(y));
        rows.push_back(packedRow(source, bitmap.width(), variant));
    }
    for (auto& row : rows)
        pointers.push_back(row.data());
    png_write_image(png, pointers.data());
    png_write_end(png, info);
    png_destroy_write_struct(&png, &info);
    return file;
}

}  // namespace kestrio
