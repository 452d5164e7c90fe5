#pragma once

#include <QElapsedTimer>
#include <QString>
#include <atomic>

namespace kestrio {

/// One line on a terminal's standard error that says how far a command is and vanishes when it is
/// done. Silent where standard error is no terminal.
class ProgressLine {
  public:
    explicit ProgressLine(int total);
    ~ProgressLine();

    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    /// The item that is worked on, counted from 1.
    void startItem(int number, const QString& name);
    /// How much of the item is done, 0 to 1. From any thread.
    void setFraction(double fraction);
    /// Removes the line, so that other output can stand in its place.
    void clear();

  private:
    void print(int percent) const;

    const int total_;
    const bool isTerminal_;
    int number_ = 0;
    QString name_;
    std::atomic<int> shownPercent_{-1};
    std::atomic<qint64> shownAt_{0};
    QElapsedTimer clock_;
};

}  // namespace kestrio
