#include "imaging/filters/Reference.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace kestrio::reference {

Picture::Picture(int w, int h, int c)
    : width(w), height(h), channels(c), samples(std::size_t(w) * h * c) {}

Picture::Picture(const QImage& bitmap) : Picture(bitmap.width(), bitmap.height(), 4) {
    for (int y = 0; y < height; ++y) {
        std::copy_n(bitmap.constScanLine(y), width * 4, &at(0, y, 0));
    }
}

Picture::Picture(const Mask& mask) : Picture(mask.bounds().width(), mask.bounds().height(), 1) {
    for (int y = 0; y < height; ++y) {
        std::copy_n(mask.row(mask.bounds().top() + y), width, &at(0, y, 0));
    }
}

double& Picture::at(int x, int y, int channel) {
    return samples[(std::size_t(y) * width + x) * channels + channel];
}

double Picture::at(int x, int y, int channel) const {
    return samples[(std::size_t(y) * width + x) * channels + channel];
}

double Picture::clamped(int x, int y, int channel) const {
    return at(std::clamp(x, 0, width - 1), std::clamp(y, 0, height - 1), channel);
}

double largestDifference(const Picture& a, const Picture& b) {
    if (a.width != b.width || a.height != b.height || a.channels != b.channels) return 1e9;
    double largest = 0;
    for (std::size_t i = 0; i < a.samples.size(); ++i) {
        largest = std::max(largest, std::abs(a.samples[i] - b.samples[i]));
    }
    return largest;
}

namespace {

/// Calls `visit(x, y, channel, sample)` for every sample.
template <typename Visit>
Picture& forEach(Picture& picture, Visit visit) {
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            for (int c = 0; c < picture.channels; ++c)
                visit(x, y, c, picture.at(x, y, c));
        }
    }
    return picture;
}

/// For each place along an axis of `length` pixels, the weights of all pixels along it.
std::vector<std::vector<double>> gaussianMatrix(int length, double sigma, Outside outside) {
    const int reach = static_cast<int>(std::ceil(6 * sigma)) + 1;
    std::vector<double> taps;
    for (int k = -reach; k <= reach; ++k)
        taps.push_back(std::exp(-0.5 * k * k / (sigma * sigma)));
    const double sum = std::accumulate(taps.begin(), taps.end(), 0.0);
    std::vector<std::vector<double>> matrix(length, std::vector<double>(length));
    for (int place = 0; place < length; ++place) {
        for (int k = -reach; k <= reach; ++k) {
            const int from = place + k;
            if (outside == Outside::zero && (from < 0 || from >= length)) continue;
            matrix[place][std::clamp(from, 0, length - 1)] += taps[k + reach] / sum;
        }
    }
    return matrix;
}

double catmullRom(double x) {
    x = std::abs(x);
    if (x < 1) return 1.5 * x * x * x - 2.5 * x * x + 1;
    if (x < 2) return -0.5 * x * x * x + 2.5 * x * x - 4 * x + 2;
    return 0;
}

/// The pixels around `centre` along one axis with their weights.
std::vector<std::pair<int, double>> cubicTaps(double centre, double widening) {
    std::vector<std::pair<int, double>> taps;
    double sum = 0;
    for (int k = int(std::floor(centre - 2 * widening)); k <= centre + 2 * widening; ++k) {
        taps.emplace_back(k, catmullRom((k - centre) / widening));
        sum += taps.back().second;
    }
    for (auto& tap : taps)
        tap.second /= sum;
    return taps;
}

/// One interpolated pixel, within the range of premultiplied colours.
std::array<double, 4> sampled(const Picture& picture, double x, double y, double widenX,
                              double widenY) {
    std::array<double, 4> pixel{};
    const auto columns = cubicTaps(x, widenX);
    for (const auto& [row, rowWeight] : cubicTaps(y, widenY)) {
        for (const auto& [column, columnWeight] : columns) {
            for (int c = 0; c < 4; ++c) {
                pixel[c] += picture.clamped(column, row, c) * rowWeight * columnWeight;
            }
        }
    }
    pixel[3] = std::clamp(pixel[3], 0.0, 255.0);
    for (int c = 0; c < 3; ++c)
        pixel[c] = std::clamp(pixel[c], 0.0, pixel[3]);
    return pixel;
}

double overlap(int position, double start, double end) {
    return std::clamp(std::min(end, position + 1.0) - std::max<double>(start, position), 0.0, 1.0);
}

double lumaAt(const Picture& picture, int x, int y) {
    return 0.0721 * picture.at(x, y, 0) + 0.7154 * picture.at(x, y, 1) +
           0.2125 * picture.at(x, y, 2);
}

double lanczos(double x) {
    const double angle = std::numbers::pi * x;
    return std::abs(x) < 3 ? std::sin(angle) / angle * std::sin(angle / 3) / (angle / 3) : 0;
}

double widening(int sourceLength, double targetLength) {
    const double ratio = sourceLength / targetLength;
    return ratio > 1.1 ? std::min<double>(ratio, sourceLength) : 1.0;
}

}  // namespace

Picture gaussianBlur(const Picture& picture, double sigma, Outside outside) {
    const auto columns = gaussianMatrix(picture.width, sigma, outside);
    const auto rows = gaussianMatrix(picture.height, sigma, outside);
    Picture half(picture.width, picture.height, picture.channels), result = half;
    forEach(half, [&](int x, int y, int c, double& sample) {
        for (int i = 0; i < picture.width; ++i)
            sample += columns[x][i] * picture.at(i, y, c);
    });
    return forEach(result, [&](int x, int y, int c, double& sample) {
        for (int i = 0; i < picture.height; ++i)
            sample += rows[y][i] * half.at(x, i, c);
    });
}

Picture adjustSaturation(const Picture& picture, double factor) {
    Picture result = picture;
    return forEach(result, [&](int x, int y, int c, double& sample) {
        const double luma = lumaAt(picture, x, y);
        const double alpha = picture.at(x, y, 3);
        if (c < 3) sample = std::clamp(luma + (sample - luma) * factor, 0.0, alpha);
    });
}

Picture mapTones(const Picture& picture, double slope, double offset) {
    Picture result = picture;
    return forEach(result, [&](int x, int y, int c, double& sample) {
        const double alpha = picture.at(x, y, 3);
        if (c < 3) sample = std::clamp(sample * slope + offset * alpha, 0.0, alpha);
    });
}

Picture adjustVibrance(const Picture& picture, double amount) {
    Picture result = picture;
    return forEach(result, [&](int x, int y, int c, double& sample) {
        const double* pixel = &picture.samples[(std::size_t(y) * picture.width + x) * 4];
        const auto [least, most] = std::minmax_element(pixel, pixel + 3);
        const double alpha = pixel[3];
        if (c == 3 || alpha == 0) return;
        const double factor = 1 + amount * (1 - (*most - *least) / alpha);
        const double luma = lumaAt(picture, x, y);
        sample = std::clamp(luma + (sample - luma) * factor, 0.0, alpha);
    });
}

Picture sharpenLuminance(const Picture& picture, double sharpness, double threshold) {
    const Picture blurred = gaussianBlur(picture, 1.5, Outside::edge);
    Picture result = picture;
    return forEach(result, [&](int x, int y, int c, double& sample) {
        const double alpha = picture.at(x, y, 3);
        if (c == 3 || alpha == 0) return;
        const double expected = lumaAt(blurred, x, y) * alpha / blurred.at(x, y, 3);
        const double detail = lumaAt(picture, x, y) - expected;
        const double kept = std::max(std::abs(detail) - threshold * 255, 0.0) * sharpness;
        sample = std::clamp(sample + std::copysign(kept, detail), 0.0, alpha);
    });
}

Picture reduceNoise(const Picture& picture, double noiseLevel) {
    Picture result = picture;
    const auto weight = [&](int x, int y, int nearX, int nearY) {
        const double share[] = {0.25, 0.5, 0.25, 1};
        double square = 0;
        for (int c = 0; c < 4; ++c) {
            square +=
                share[c] * std::pow(picture.clamped(nearX, nearY, c) - picture.at(x, y, c), 2.0);
        }
        return std::pow(std::max(1 - square / std::pow(noiseLevel * 255, 2.0), 0.0), 2.0);
    };
    return forEach(result, [&](int x, int y, int c, double& sample) {
        if (c == 3) return;
        double sum = 0, weights = 0;
        for (int i = 0; i < 25; ++i) {
            const int nearX = x - 2 + i % 5, nearY = y - 2 + i / 5;
            sum += picture.clamped(nearX, nearY, c) * weight(x, y, nearX, nearY);
            weights += weight(x, y, nearX, nearY);
        }
        sample = std::min(sum / weights, picture.at(x, y, 3));
    });
}

Picture dissolveUpsideDown(const Picture& picture, double amount) {
    Picture result = picture;
    return forEach(result, [&](int x, int y, int c, double& sample) {
        sample += (picture.at(x, picture.height - 1 - y, c) - sample) * amount;
    });
}

Picture doubledByLanczos(const Picture& picture) {
    Picture result(picture.width * 2, picture.height * 2, 4);
    const auto centre = [](int place) { return (place + 0.5) / 2 - 0.5; };
    forEach(result, [&](int x, int y, int c, double& sample) {
        double weights = 0;
        for (int row = y / 2 - 4; row <= y / 2 + 4; ++row) {
            for (int column = x / 2 - 4; column <= x / 2 + 4; ++column) {
                const double weight = lanczos(centre(x) - column) * lanczos(centre(y) - row);
                sample += picture.clamped(column, row, c) * weight;
                weights += weight;
            }
        }
        sample /= weights;
    });
    // Alpha is limited first, the colours by it.
    forEach(result, [](int, int, int c, double& sample) {
        if (c == 3) sample = std::clamp(sample, 0.0, 255.0);
    });
    return forEach(result, [&](int x, int y, int c, double& sample) {
        if (c < 3) sample = std::clamp(sample, 0.0, result.at(x, y, 3));
    });
}

Picture drawScaled(const Picture& destination, const Picture& source, const QRectF& target,
                   const Mask* clip, double opacity) {
    Picture result = destination;
    const double widenX = widening(source.width, target.width());
    const double widenY = widening(source.height, target.height());
    for (int y = 0; y < result.height; ++y) {
        for (int x = 0; x < result.width; ++x) {
            const double inside = overlap(x, target.left(), target.right()) *
                                  overlap(y, target.top(), target.bottom());
            if (inside == 0) continue;
            const double coverage = (clip ? clip->at({x, y}) / 255.0 : inside) * opacity;
            const double sourceX = (x + 0.5 - target.left()) * source.width / target.width() - 0.5;
            const double sourceY = (y + 0.5 - target.top()) * source.height / target.height() - 0.5;
            const auto pixel = sampled(source, sourceX, sourceY, widenX, widenY);
            for (int c = 0; c < 4; ++c) {
                double& sample = result.at(x, y, c);
                sample = pixel[c] * coverage + sample * (1 - pixel[3] / 255 * coverage);
            }
        }
    }
    return result;
}

Picture rotated(const Picture& picture, double clockwiseDegrees, QSize canvas) {
    Picture result(canvas.width(), canvas.height(), 4);
    const double angle = clockwiseDegrees * std::numbers::pi / 180;
    const double cosine = std::cos(angle), sine = std::sin(angle);
    const double pixelWidth = std::abs(cosine) + std::abs(sine);
    const auto coverage = [&](double position, int length) {
        return std::clamp(std::min(position, length - position) / pixelWidth + 0.5, 0.0, 1.0);
    };
    for (int y = 0; y < canvas.height(); ++y) {
        for (int x = 0; x < canvas.width(); ++x) {
            const double right = x + 0.5 - canvas.width() / 2.0;
            const double down = y + 0.5 - canvas.height() / 2.0;
            const double u = cosine * right + sine * down + picture.width / 2.0;
            const double v = cosine * down - sine * right + picture.height / 2.0;
            const double covered = coverage(u, picture.width) * coverage(v, picture.height);
            if (covered == 0) continue;
            const auto pixel = sampled(picture, u - 0.5, v - 0.5, 1, 1);
            for (int c = 0; c < 4; ++c)
                result.at(x, y, c) = pixel[c] * covered;
        }
    }
    return result;
}

}  // namespace kestrio::reference
