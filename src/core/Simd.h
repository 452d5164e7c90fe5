#pragma once

/// Marks a pixel loop that the compiler vectorises once for plain x86-64 and once for AVX2; the
/// loader picks the clone by the processor that it runs on. Helpers called inside must be inlined.
/// Sanitizers and Clang get the plain version: their run-time start-up does not stand ifunc
/// resolvers.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define KESTRIO_SIMD __attribute__((target_clones("arch=x86-64-v3", "default"), optimize("O3")))
#else
#define KESTRIO_SIMD
#endif
