#include "imaging/filters/CubicWeights.h"

#include <algorithm>
#include <cmath>

namespace kestrio {

namespace {

// Up to this ratio shrinking with the plain kernel shows no aliasing that an eye could find, and
// four taps keep the picture crisp.
constexpr double plainRatio = 1.1;

// A target thinner than a pixel is averaged like one of a pixel.
double kernelWidening(const ScaledAxis& axis) {
    const double ratio = axis.sourceLength / axis.length;
    if (ratio <= plainRatio) return 1.0;
    return std::min(ratio, static_cast<double>(axis.sourceLength));
}

}  // namespace

double catmullRom(double x) {
    x = std::abs(x);
    if (x < 1) return (1.5 * x - 2.5) * x * x + 1;
    if (x < 2) return ((-0.5 * x + 2.5) * x - 4) * x + 2;
    return 0;
}

CubicWeights::CubicWeights(const ScaledAxis& axis) {
    const double widening = kernelWidening(axis);
    taps_ = std::min(static_cast<int>(std::ceil(4 * widening)), axis.sourceLength);
    sources_.reserve(axis.count + 1);
    weights_.reserve((static_cast<std::size_t>(axis.count) + 1) * taps_);
    for (int i = 0; i < axis.count; ++i) {
        const double offset = axis.first + i + 0.5 - axis.start;
        addPixel(offset * axis.sourceLength / axis.length - 0.5, widening, axis.sourceLength);
    }
    sources_.push_back(sources_.back());
    weights_.insert(weights_.end(), weights_.end() - taps_, weights_.end());
}

void CubicWeights::addPixel(double centre, double widening, int sourceLength) {
    // A centre beyond the source by more than the kernel's reach sees the end pixel alone.
    const double reach = 2 * widening;
    centre = std::clamp(centre, -reach, sourceLength - 1 + reach);
    const int begin = static_cast<int>(std::floor(centre - reach)) + 1;
    const int end = begin + static_cast<int>(std::ceil(2 * reach));
    const int source = std::clamp(begin, 0, sourceLength - taps_);

    std::vector<double> run(taps_);
    double sum = 0;
    for (int tap = begin; tap < end; ++tap) {
        const double weight = catmullRom((tap - centre) / widening);
        run[std::clamp(tap - source, 0, taps_ - 1)] += weight;
        sum += weight;
    }
    sources_.push_back(source);
    for (double weight : run)
        weights_.push_back(static_cast<float>(weight / sum));
}

}  // namespace kestrio
