#pragma once

#include <QString>
#include <tuple>

namespace kestrio {

/// Brings the running program to notice.
struct ActivateVerb {
    static constexpr auto jsonFields() { return std::tuple(); }
};

inline QString faultOf(const ActivateVerb&) {
    return {};
}

}  // namespace kestrio
