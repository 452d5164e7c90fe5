#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace kestrio {

/// One of those that a contract test runs over, the desktop's class or its double: what the test
/// drives it through, and the name that its cases carry.
template <typename Subject>
struct Candidate {
    const char* name;
    std::shared_ptr<Subject> (*make)();
};

template <typename Subject, typename Made>
Candidate<Subject> candidate(const char* name) {
    return {name, []() -> std::shared_ptr<Subject> { return std::make_shared<Made>(); }};
}

/// For INSTANTIATE_TEST_SUITE_P.
inline constexpr auto candidateName = [](const auto& each) { return std::string(each.param.name); };

}  // namespace kestrio
