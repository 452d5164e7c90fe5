#include "app/cli/ProgressLine.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>

namespace kestrio {

namespace {

int terminalColumns() {
    constexpr int usual = 80;
    winsize size{};
    const bool isKnown = ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : usual;
}

// A line that wraps could not be removed again, and control characters are not for terminals.
QString shortened(QString name) {
    constexpr int roomForNumbers = 24;
    for (QChar& character : name) {
        if (!character.isPrint()) character = u'?';
    }
    const qsizetype most = std::max(terminalColumns() - roomForNumbers, 8);
    return name.size() > most ? name.left(most - 1) + u'…' : name;
}

}  // namespace

ProgressLine::ProgressLine(int total) : total_(total), isTerminal_(::isatty(STDERR_FILENO) == 1) {
    clock_.start();
}

ProgressLine::~ProgressLine() {
    clear();
}

void ProgressLine::startItem(int number, const QString& name) {
    number_ = number;
    name_ = shortened(name);
    shownPercent_ = 0;
    print(0);
}

void ProgressLine::setFraction(double fraction) {
    const int percent = static_cast<int>(fraction * 100);
    const qint64 now = clock_.elapsed();
    constexpr qint64 pause = 50;  // milliseconds; faster than that only flickers
    if (now - shownAt_.load() < pause || shownPercent_.exchange(percent) == percent) return;
    shownAt_ = now;
    print(percent);
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
