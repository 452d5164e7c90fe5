#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace kestrio {

/// Drops the oldest entries, which stand first, until at most `count` remain.
template <typename T>
void dropOldest(std::vector<T>& stack, std::size_t count) {
    if (stack.size() > count) {
        stack.erase(stack.begin(), stack.end() - static_cast<std::ptrdiff_t>(count));
    }
}

/// How many entries a stack keeps when memory runs short: half, but five are always let be.
constexpr std::size_t keptUnderMemoryPressure(std::size_t count) {
    return std::max<std::size_t>(count, 10) / 2;
}

template <typename T>
T takeNewest(std::vector<T>& stack) {
    T newest = std::move(stack.back());
    stack.pop_back();
    return newest;
}

}  // namespace kestrio
