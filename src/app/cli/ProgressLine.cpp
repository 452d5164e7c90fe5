#include "app/cli/ProgressLine.h"

#include <unistd.h>

#include <cstdio>

namespace kestrio {

ProgressLine::ProgressLine(int total) : total_(total), isTerminal_(::isatty(STDERR_FILENO) == 1) {}

ProgressLine::~ProgressLine() {
    clear();
}

void ProgressLine::startItem(int number, const QString& name) {
    number_ = number;
    name_ = name;
    shownPercent_ = 0;
    print(0);
}

void ProgressLine::setFraction(double fraction) {
    const int percent = static_cast<int>(fraction * 100);
    if (shownPercent_.exchange(percent) != percent) print(percent);
}

void ProgressLine::clear() {
    if (isTerminal_) std::fputs("\r\033[K", stderr);
}

void ProgressLine::print(int percent) const {
    if (!isTerminal_) return;
    std::fprintf(stderr, "\r\033[K[%d/%d] %s %d %%", number_, total_, qUtf8Printable(name_),
                 percent);
    std::fflush(stderr);
}

}  // namespace kestrio
