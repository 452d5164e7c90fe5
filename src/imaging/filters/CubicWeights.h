#pragma once

#include <cstddef>
#include <vector>

namespace kestrio {

/// Catmull-Rom's piecewise cubic at distance `x` in samples (R. Keys, 1981, with a = -0.5); 0 from
/// 2 on.
double catmullRom(double x);

/// One axis of a scaling: a source of `sourceLength` pixels fills the stretch from `start` on that
/// is `length` target pixels long; wanted are `count` target pixels from `first` on.
struct ScaledAxis {
    double start;
    double length;
    int sourceLength;
    int first;
    int count;
};

/// For each target pixel along an axis, the run of source pixels that it is made of and their
/// weights, which sum to 1. Taps beyond the source's ends count towards its end pixels. All runs
/// are equally long and lie inside the source.
class CubicWeights {
  public:
    explicit CubicWeights(const ScaledAxis& axis);

    /// The length of each run.
    int taps() const { return taps_; }
    /// The first source pixel of target pixel `axis.first + index`.
    int source(int index) const { return sources_[index]; }
    /// taps() weights for source(index) and the pixels after it.
    const float* weights(int index) const {
        return weights_.data() + static_cast<std::size_t>(index) * taps_;
    }

  private:
    void addPixel(double centre, double widening, int sourceLength);

    int taps_;
    std::vector<int> sources_;
    std::vector<float> weights_;
};

}  // namespace kestrio
