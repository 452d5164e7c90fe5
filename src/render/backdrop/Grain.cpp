#include "render/backdrop/Grain.h"

#include <algorithm>
#include <cmath>

namespace kestrio {

namespace RenderingConstants::Noise {

std::uint64_t Generator::nextWord() {
    state_ += 0x9e3779b97f4a7c15;
    std::uint64_t word = state_;
    word = (word ^ (word >> 30)) * 0xbf58476d1ce4e5b9;
    word = (word ^ (word >> 27)) * 0x94d049bb133111eb;
    return word ^ (word >> 31);
}

double Generator::nextUnit() {
    return static_cast<double>(nextWord()) * 0x1p-64;
}

Sample Generator::next() {
    Sample sample{};
    sample.normalizedX = nextUnit();
    sample.normalizedY = nextUnit();
    sample.alphaUnit = nextUnit();
    sample.isLight = (nextWord() & 1) == 0;
    return sample;
}

}  // namespace RenderingConstants::Noise

namespace {

using namespace RenderingConstants;

struct Square {
    QPointF origin;
    double side;
    float red, green, blue;  // 0 to 255, not premultiplied
    float alpha;             // 0 to 1
};

// How much of the pixel from `place` to `place + 1` lies between `from` and `to`.
float share(int place, double from, double to) {
    return static_cast<float>(
        std::max(0.0, std::min(to, place + 1.0) - std::max(from, double(place))));
}

QRgb blended(QRgb below, const Square& square, float alpha) {
    const auto mix = [alpha](int level, float colour) {
        return static_cast<int>(level + (colour - level) * alpha + 0.5f);
    };
    return qRgba(mix(qRed(below), square.red), mix(qGreen(below), square.green),
                 mix(qBlue(below), square.blue), mix(qAlpha(below), 255.0f));
}

// Drawn by hand because thousands of antialiased fillRect() calls cost more than all else on a
// backdrop together.
void drawSquare(QImage& bitmap, const Square& square) {
    const double right = square.origin.x() + square.side;
    const double bottom = square.origin.y() + square.side;
    const int lastX = std::min(static_cast<int>(std::ceil(right)), bitmap.width());
    const int lastY = std::min(static_cast<int>(std::ceil(bottom)), bitmap.height());
    for (int y = std::max(0, static_cast<int>(square.origin.y())); y < lastY; ++y) {
        auto* row = reinterpret_cast<QRgb*>(bitmap.scanLine(y));
        const float rowAlpha = square.alpha * share(y, square.origin.y(), bottom);
        for (int x = std::max(0, static_cast<int>(square.origin.x())); x < lastX; ++x) {
            row[x] = blended(row[x], square, rowAlpha * share(x, square.origin.x(), right));
        }
    }
}

// One grain for `pointsEach` square points at full strength.
int sampleCount(const QImage& bitmap, double strength, double pointsEach, double scale, int most) {
    const double width = bitmap.width() / scale;
    const double height = bitmap.height() / scale;
    const double count = std::floor(strength * width * height / pointsEach);
    return std::isfinite(count) ? static_cast<int>(std::clamp(count, 0.0, double(most))) : 0;
}

QPointF placed(const QImage& bitmap, const Noise::Sample& sample) {
    return {sample.normalizedX * bitmap.width(), sample.normalizedY * bitmap.height()};
}

}  // namespace

void drawBackdropGrain(QImage& bitmap, double strength, double scale) {
    Noise::Generator generator(Noise::backdropSeed);
    const int count = sampleCount(bitmap, strength, 50, scale, Noise::backdropLimit);
    for (int i = 0; i < count; ++i) {
        const Noise::Sample sample = generator.next();
        const float level = sample.isLight ? 255.0f : 0.0f;
        const auto alpha = static_cast<float>(strength * (sample.alphaUnit * 0.4 + 0.1));
        drawSquare(bitmap, {placed(bitmap, sample), scale, level, level, level, alpha});
    }
}

void drawPatternGrain(QImage& bitmap, const CodableColor& color, double intensity, double scale) {
    Noise::Generator generator(Noise::patternSeed);
    const QColor ink = color.toQColor();
    const int count = sampleCount(bitmap, intensity, 100, scale, Noise::patternLimit);
    for (int i = 0; i < count; ++i) {
        const Noise::Sample sample = generator.next();
        const auto alpha = static_cast<float>(ink.alphaF() * (sample.alphaUnit * 0.7 + 0.3));
        drawSquare(bitmap, {placed(bitmap, sample), scale, ink.redF() * 255, ink.greenF() * 255,
                            ink.blueF() * 255, alpha});
    }
}

}  // namespace kestrio
