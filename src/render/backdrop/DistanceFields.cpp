#include "render/backdrop/DistanceFields.h"

#include "core/Simd.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kestrio {

namespace {

// The distance of `place` to the nearest multiple of `pitch` from `lowest` to `highest` times it.
inline float toNearest(float place, float pitch, float perPitch, float lowest, float highest) {
    const float nearest = std::floor(place * perPitch + 0.5f);
    const float above = nearest < lowest ? lowest : nearest;
    const float index = above > highest ? highest : above;
    return std::fabs(place - index * pitch);
}

KESTRIO_SIMD void circleRow(const CirclesField& field, float y, float* row, int width) {
    const auto pitch = static_cast<float>(field.pitch);
    const auto perPitch = 1 / pitch;
    const auto highest = static_cast<float>(std::floor(field.last / field.pitch));
    const auto centreX = static_cast<float>(field.centreX - 0.5);
    const auto dy = y - static_cast<float>(field.centreY);
    for (int x = 0; x < width; ++x) {
        const float dx = static_cast<float>(x) - centreX;
        row[x] = toNearest(std::sqrt(dx * dx + dy * dy), pitch, perPitch, 1, highest);
    }
}

KESTRIO_SIMD void stripeRow(const StripesField& field, float y, float* row, int width) {
    const auto pitch = static_cast<float>(field.pitch);
    const auto perPitch = 1 / pitch;
    const auto start = static_cast<float>(field.height + 0.5) - y;
    constexpr auto diagonal = static_cast<float>(1 / std::numbers::sqrt2);
    for (int x = 0; x < width; ++x) {
        row[x] = diagonal * toNearest(static_cast<float>(x) + start, pitch, perPitch, 0, 1e9f);
    }
}

KESTRIO_SIMD void dotRow(const DotsField& field, float y, float* row, int width) {
    const auto pitch = static_cast<float>(field.pitch);
    const auto perPitch = 1 / pitch;
    const auto start = static_cast<float>(0.5 - field.radius);
    const float dy = toNearest(y - static_cast<float>(field.radius), pitch, perPitch, 0, 1e9f);
    for (int x = 0; x < width; ++x) {
        const float dx = toNearest(static_cast<float>(x) + start, pitch, perPitch, 0, 1e9f);
        row[x] = std::sqrt(dx * dx + dy * dy);
    }
}

KESTRIO_SIMD void coverRow(const float* distances, std::uint8_t* coverage, int count, float half) {
    for (int x = 0; x < count; ++x) {
        // The part of a pixel's width across the line that the line covers.
        const float far = distances[x] + 0.5f < half ? distances[x] + 0.5f : half;
        const float near = distances[x] - 0.5f > -half ? distances[x] - 0.5f : -half;
        const float covered = far - near > 0.0f ? far - near : 0.0f;
        coverage[x] = static_cast<std::uint8_t>(static_cast<int>(covered * 255.0f + 0.5f));
    }
}

KESTRIO_SIMD void waveRow(const float* offsets, const float* cosines, float y, float pitch,
                          float highest, float* row, int width) {
    const float perPitch = 1 / pitch;
    for (int x = 0; x < width; ++x) {
        row[x] = cosines[x] * toNearest(y - offsets[x], pitch, perPitch, 1, highest);
    }
}

}  // namespace

void CirclesField::distances(int y, float* row, int width) const {
    circleRow(*this, static_cast<float>(y) + 0.5f, row, width);
}

void StripesField::distances(int y, float* row, int width) const {
    stripeRow(*this, static_cast<float>(y) + 0.5f, row, width);
}

void DotsField::distances(int y, float* row, int width) const {
    dotRow(*this, static_cast<float>(y) + 0.5f, row, width);
}

WavesField::WavesField(QSize size, double scale)
    : pitch_(20 * scale), last_(std::floor(size.height() / pitch_)) {
    const double amplitude = 10 * scale;
    const double perPixel = 2 * std::numbers::pi / (40 * scale);
    const double step = std::max(2 * scale, 1.0);
    const auto at = [&](double x) { return amplitude * std::sin(perPixel * x); };
    for (int column = 0; column < size.width(); ++column) {
        const double x = column + 0.5;
        const double from = std::floor(x / step) * step;
        const double slope = (at(from + step) - at(from)) / step;
        offsets_.push_back(static_cast<float>(at(from) + slope * (x - from)));
        cosines_.push_back(static_cast<float>(1 / std::sqrt(1 + slope * slope)));
    }
}

void WavesField::distances(int y, float* row, int width) const {
    waveRow(offsets_.data(), cosines_.data(), static_cast<float>(y) + 0.5f,
            static_cast<float>(pitch_), static_cast<float>(last_), row, width);
}

void coverAround(const float* distances, std::uint8_t* coverage, int count, double thickness) {
    coverRow(distances, coverage, count, static_cast<float>(thickness / 2));
}

}  // namespace kestrio
