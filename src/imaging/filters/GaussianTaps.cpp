#include "imaging/filters/GaussianTaps.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kestrio {

namespace {

constexpr int one = 1 << weightBits;

// Beyond this many standard deviations less than half a thousandth of the weight is left.
constexpr double reachInSigmas = 3.5;

double bell(int distance, double sigma) {
    return std::exp(-0.5 * (distance / sigma) * (distance / sigma));
}

double bellSum(double sigma, int reach) {
    double sum = 1;
    for (int k = 1; k <= reach; ++k)
        sum += 2 * bell(k, sigma);
    return sum;
}

double bellIntegral(double sigma) {
    return sigma * std::sqrt(2 * std::numbers::pi);
}

}  // namespace

GaussianTaps gaussianTaps(double sigma, int longestReach) {
    const double wanted = std::ceil(reachInSigmas * sigma);
    const bool cut = wanted > longestReach;
    const int reach = cut ? longestReach : static_cast<int>(wanted);
    // Taps are only cut short on pictures that are small against sigma, whose bell is wide enough
    // for its samples to sum to its integral.
    const double scale = one / (cut ? bellIntegral(sigma) : bellSum(sigma, reach));

    GaussianTaps taps;
    int sides = 0;
    for (int k = 1; k <= reach; ++k) {
        const int weight = static_cast<int>(std::lround(bell(k, sigma) * scale));
        if (weight == 0) break;
        taps.sides.push_back(static_cast<Weight>(weight));
        sides += weight;
    }
    int centre = one - 2 * sides;
    if (cut) {
        centre = std::min<int>(centre, static_cast<int>(std::lround(scale)));
        const int rest = std::max(one - centre - 2 * sides, 0);
        taps.tail = static_cast<Weight>(rest / 2);
        centre += rest % 2;
    }
    taps.centre = static_cast<Weight>(std::min(centre, one - 1));
    return taps;
}

}  // namespace kestrio
