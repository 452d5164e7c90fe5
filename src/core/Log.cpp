#include "core/Log.h"

#include "core/NativePath.h"

#include <cstdio>

namespace kestrio {

void logLine(const char* name, const QString& message) {
    std::fprintf(stderr, "[%s] %s\n", name, printableText(message).toUtf8().constData());
}

void logLine(const QString& line) {
    std::fprintf(stderr, "%s\n", printableText(line).toUtf8().constData());
}

}  // namespace kestrio
