#include "core/Error.h"

namespace kestrio {

const char* Error::what() const noexcept {
    try {
        text_ = errorDescription().toUtf8();
        return text_.constData();
    } catch (...) {
        return "error";
    }
}

}  // namespace kestrio
