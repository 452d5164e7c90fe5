#pragma once

#include <unistd.h>
#include <utility>

namespace kestrio {

/// Owns a file descriptor of the system; negative for none.
class Descriptor {
  public:
    explicit Descriptor(int number = -1) : number_(number) {}
    ~Descriptor() { reset(); }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        reset(std::exchange(other.number_, -1));
        return *this;
    }

    bool isOpen() const { return number_ >= 0; }
    int number() const { return number_; }
    /// Hands the descriptor over to the caller.
    int release() { return std::exchange(number_, -1); }
    void reset(int number = -1) {
        if (number_ >= 0) ::close(number_);
        number_ = number;
    }

  private:
    int number_;
};

}  // namespace kestrio
