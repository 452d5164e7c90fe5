#include "core/Error.h"

#include "core/Localisation.h"

#include <new>

namespace kestrio {

const char* Error::what() const noexcept {
    try {
        text_ = errorDescription().toUtf8();
        return text_.constData();
    } catch (...) {
        return "error";
    }
}

QString describeFailure(const std::exception& error) {
    if (dynamic_cast<const std::bad_alloc*>(&error)) {
        return Kestrio::tr("there is not enough memory for this");
    }
    const auto* own = dynamic_cast<const Error*>(&error);
    return own ? own->fullDescription()
               : Kestrio::tr("unexpected failure: %1").arg(QString::fromUtf8(error.what()));
}

}  // namespace kestrio
