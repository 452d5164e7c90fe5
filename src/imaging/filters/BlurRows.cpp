#include "imaging/filters/BlurRows.h"

#include <algorithm>

#include "core/Simd.h"

namespace kestrio {

namespace {

// Written the way that compilers know the processors' rounding multiplication by (PMULHRSW).
inline Fixed weighed(Fixed value, Weight weight) {
    return static_cast<Fixed>(((value * weight >> (weightBits - 1)) + 1) >> 1);
}

inline Fixed sumOf(Fixed a, Fixed b) {
    return static_cast<Fixed>(a + b);
}

inline std::uint8_t rounded(Fixed value) {
    const int whole = (value + (1 << (fixedBits - 1))) >> fixedBits;
    return static_cast<std::uint8_t>(std::min(whole, 255));
}

}  // namespace

KESTRIO_SIMD void widenBytes(const std::uint8_t* bytes, Fixed* __restrict samples, int count) {
    for (int i = 0; i < count; ++i)
        samples[i] = static_cast<Fixed>(bytes[i] << fixedBits);
}

KESTRIO_SIMD void weighRow(const Fixed* row, Weight weight, Fixed* __restrict sums, int count) {
    for (int i = 0; i < count; ++i)
        sums[i] = weighed(row[i], weight);
}

KESTRIO_SIMD void addPairs(const RowPair pairs[4], Fixed* __restrict sums, int count) {
    const auto [a, e, wa] = pairs[0];
    const auto [b, f, wb] = pairs[1];
    const auto [c, g, wc] = pairs[2];
    const auto [d, h, wd] = pairs[3];
    for (int i = 0; i < count; ++i) {
        sums[i] = static_cast<Fixed>(
            sums[i] + weighed(sumOf(a[i], e[i]), wa) + weighed(sumOf(b[i], f[i]), wb) +
            weighed(sumOf(c[i], g[i]), wc) + weighed(sumOf(d[i], h[i]), wd));
    }
}

KESTRIO_SIMD void mixRows(const Fixed* const rows[4], const Weight weights[4],
                          Fixed* __restrict sums, int count) {
    const Fixed *a = rows[0], *b = rows[1], *c = rows[2], *d = rows[3];
    const Weight wa = weights[0], wb = weights[1], wc = weights[2], wd = weights[3];
    for (int i = 0; i < count; ++i) {
        sums[i] = static_cast<Fixed>(weighed(a[i], wa) + weighed(b[i], wb) + weighed(c[i], wc) +
                                     weighed(d[i], wd));
    }
}

KESTRIO_SIMD void mixRowsToBytes(const Fixed* const rows[4], const Weight weights[4],
                                 std::uint8_t* __restrict bytes, int count) {
    const Fixed *a = rows[0], *b = rows[1], *c = rows[2], *d = rows[3];
    const Weight wa = weights[0], wb = weights[1], wc = weights[2], wd = weights[3];
    for (int i = 0; i < count; ++i) {
        bytes[i] = rounded(static_cast<Fixed>(weighed(a[i], wa) + weighed(b[i], wb) +
                                              weighed(c[i], wc) + weighed(d[i], wd)));
    }
}

KESTRIO_SIMD void roundToBytes(const Fixed* values, std::uint8_t* __restrict bytes, int count) {
    for (int i = 0; i < count; ++i)
        bytes[i] = rounded(values[i]);
}

}  // namespace kestrio
