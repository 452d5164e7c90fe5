#include "imaging/filters/ConvolvedRows.h"

#include <algorithm>

namespace kestrio {

namespace {

// Sums of so many samples stay in the first-level cache from one group of taps to the next.
constexpr int chunkSamples = 2048;

/// sums = the centre and the pairs under their weights. Appends idle pairs to whole groups.
void convolve(const Fixed* centre, Weight centreWeight, std::vector<RowPair>& pairs, Fixed* sums,
              int count) {
    while (pairs.size() % 4 != 0)
        pairs.push_back({centre, centre, 0});
    for (int start = 0; start < count; start += chunkSamples) {
        const int length = std::min(chunkSamples, count - start);
        weighRow(centre + start, centreWeight, sums + start, length);
        for (std::size_t first = 0; first < pairs.size(); first += 4) {
            RowPair group[4];
            for (std::size_t i = 0; i < 4; ++i) {
                const RowPair& pair = pairs[first + i];
                group[i] = {pair.before + start, pair.after + start, pair.weight};
            }
            addPairs(group, sums + start, length);
        }
    }
}

void widen(const std::uint8_t* row, Fixed* samples, int count) {
    widenBytes(row, samples, count);
}
void widen(const Fixed* row, Fixed* samples, int count) {
    std::copy_n(row, count, samples);
}

}  // namespace

template <typename Sample>
ConvolvedRows<Sample>::ConvolvedRows(const Plane<Sample>& plane, const GaussianKernel& kernel,
                                     int left, int width, int firstRow)
    : plane_(plane),
      kernel_(kernel),
      left_(left),
      width_(width),
      keptRows_(std::min(2 * kernel.vertical.reach() + 1, plane.height)),
      row_(firstRow),
      nextLoaded_(std::clamp(firstRow - kernel.vertical.reach(), 0, plane.height - 1)),
      padded_(std::size_t(width + 2 * kernel.horizontal.reach()) * plane.channels),
      kept_(std::size_t(keptRows_) * width * plane.channels),
      sums_(std::size_t(width) * plane.channels) {
    if (plane.edge == Edge::zero) nothing_.resize(sums_.size());
    if (kernel.horizontal.tail > 0) ends_.resize(2 * sums_.size());
}

template <typename Sample>
const Fixed* ConvolvedRows<Sample>::next() {
    const GaussianTaps& taps = kernel_.vertical;
    while (nextLoaded_ < plane_.height && nextLoaded_ <= row_ + taps.reach())
        loadRow(nextLoaded_++);
    pairs_.clear();
    for (int k = 1; k <= taps.reach(); ++k) {
        pairs_.push_back({keptRow(row_ - k), keptRow(row_ + k), taps.sides[k - 1]});
    }
    if (taps.tail > 0) pairs_.push_back({keptRow(0), keptRow(plane_.height - 1), taps.tail});
    convolve(keptRow(row_), taps.centre, pairs_, sums_.data(), static_cast<int>(sums_.size()));
    ++row_;
    return sums_.data();
}

template <typename Sample>
const Fixed* ConvolvedRows<Sample>::keptRow(int y) const {
    if (plane_.edge == Edge::zero && (y < 0 || y >= plane_.height)) return nothing_.data();
    return kept_.data() + std::clamp(y, 0, plane_.height - 1) % keptRows_ * sums_.size();
}

template <typename Sample>
void ConvolvedRows<Sample>::loadRow(int y) {
    padRow(plane_.samples + y * plane_.stride);
    convolvePadded(kept_.data() + y % keptRows_ * sums_.size());
}

template <typename Sample>
void ConvolvedRows<Sample>::padRow(const Sample* row) {
    const int channels = plane_.channels;
    const int first = left_ - kernel_.horizontal.reach();
    const int end = left_ + width_ + kernel_.horizontal.reach();
    const int firstInside = std::max(first, 0), endInside = std::min(end, plane_.width);
    Fixed* const inside = padded_.data() + (firstInside - first) * channels;
    Fixed* const after = padded_.data() + (endInside - first) * channels;
    widen(row + firstInside * channels, inside, (endInside - firstInside) * channels);
    const bool zero = plane_.edge == Edge::zero;
    for (Fixed* sample = inside - 1; sample >= padded_.data(); --sample) {
        *sample = zero ? Fixed(0) : sample[channels];
    }
    for (Fixed* sample = after; sample < padded_.data() + padded_.size(); ++sample) {
        *sample = zero ? Fixed(0) : *(sample - channels);
    }
}

template <typename Sample>
void ConvolvedRows<Sample>::convolvePadded(Fixed* row) {
    const GaussianTaps& taps = kernel_.horizontal;
    const int channels = plane_.channels;
    const int samples = static_cast<int>(sums_.size());
    const Fixed* centre = padded_.data() + taps.reach() * channels;
    pairs_.clear();
    for (int k = 1; k <= taps.reach(); ++k) {
        pairs_.push_back({centre - k * channels, centre + k * channels, taps.sides[k - 1]});
    }
    if (taps.tail > 0) {
        for (int i = 0; i < samples; ++i) {
            ends_[i] = padded_[i % channels];
            ends_[samples + i] = padded_[padded_.size() - channels + i % channels];
        }
        pairs_.push_back({ends_.data(), ends_.data() + samples, taps.tail});
    }
    convolve(centre, taps.centre, pairs_, row, samples);
}

template class ConvolvedRows<std::uint8_t>;
template class ConvolvedRows<Fixed>;

}  // namespace kestrio
