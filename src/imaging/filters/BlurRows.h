#pragma once

#include <cstdint>

namespace kestrio {

/// A sample between 0 and 255 with six binary digits after the point. Two samples can be added
/// without overflow, which lets symmetric kernels weigh both sides by one multiplication.
using Fixed = std::int16_t;

/// A weight between 0 and 1 with 15 binary digits after the point.
using Weight = std::int16_t;

inline constexpr int fixedBits = 6;
inline constexpr int weightBits = 15;

/// Two rows, or one row shifted to both sides, under one weight.
struct RowPair {
    const Fixed* before;
    const Fixed* after;
    Weight weight;
};

// Loops over the samples of a row. None of the weights is negative, and rounding is the same for
// all samples; so colours that lie below their alpha stay below it.

void widenBytes(const std::uint8_t* bytes, Fixed* samples, int count);

/// sums = row * weight
void weighRow(const Fixed* row, Weight weight, Fixed* sums, int count);

/// sums += (before + after) * weight, for each of four pairs
void addPairs(const RowPair pairs[4], Fixed* sums, int count);

/// sums = the four rows under their weights
void mixRows(const Fixed* const rows[4], const Weight weights[4], Fixed* sums, int count);

/// The same, rounded to bytes.
void mixRowsToBytes(const Fixed* const rows[4], const Weight weights[4], std::uint8_t* bytes,
                    int count);

void roundToBytes(const Fixed* values, std::uint8_t* bytes, int count);

}  // namespace kestrio
