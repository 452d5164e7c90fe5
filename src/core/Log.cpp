#include "core/Log.h"

#include <cstdio>

namespace kestrio {

void logLine(const char* name, const QString& message) {
    std::fprintf(stderr, "[%s] %s\n", name, message.toUtf8().constData());
}

void logLine(const QString& line) {
    std::fprintf(stderr, "%s\n", line.toUtf8().constData());
}

}  // namespace kestrio
