// What the fuzzers of JSON share: an application without a screen, so that texts can be drawn, and
// a mutator that knows numbers.

#include <QGuiApplication>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include "core/Parallel.h"

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t mostBytes);

namespace {

bool isOfNumber(uint8_t byte) {
    return std::isdigit(byte) || byte == '-' || byte == '+' || byte == '.' || byte == 'e';
}

// Puts a number that is at some edge in the place of one of the text's own.
size_t replaceNumber(uint8_t* data, size_t size, size_t mostBytes, unsigned seed) {
    static constexpr std::string_view edges[] = {
        "0",      "-0.0",   "0.5",  "0.9999", "1",          "-1",   "1e308",
        "-1e308", "5e-324", "1e-9", "1e9",    "2147483648", "1e18", "18446744073709551615"};
    std::minstd_rand random(seed);
    const auto end = data + size;
    auto first =
        std::find_if(data + random() % size, end, [](uint8_t c) { return std::isdigit(c); });
    if (first == end) return LLVMFuzzerMutate(data, size, mostBytes);
    while (first > data && isOfNumber(first[-1]))
        --first;
    const auto last = std::find_if_not(first, end, isOfNumber);
    const std::string_view edge = edges[random() % std::size(edges)];
    const std::string rest(last, end);
    const size_t grown = (first - data) + edge.size() + rest.size();
    if (grown > mostBytes) return LLVMFuzzerMutate(data, size, mostBytes);
    std::copy(rest.begin(), rest.end(), std::copy(edge.begin(), edge.end(), first));
    return grown;
}

}  // namespace

// Fontconfig links its patterns by offsets, which the leak finder takes for nothing; Qt's cache of
// replacement fonts still holds them when a run ends.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig.so\n";
}

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argumentCount = 1;
    static char name[] = "fuzzer";
    static char* arguments[] = {name, nullptr};
    static QGuiApplication application(argumentCount, arguments);
    kestrio::setParallelThreadLimit(1);
    return 0;
}

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t mostBytes,
                                          unsigned int seed) {
    if (size == 0 || seed % 3 == 0) return LLVMFuzzerMutate(data, size, mostBytes);
    return replaceNumber(data, size, mostBytes, seed);
}
