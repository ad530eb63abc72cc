#pragma once

#include <unistd.h>

#include <utility>

namespace brovin::posix {

/// A file or folder that the system holds open; closed when it is destroyed.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, kNone)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() {
        if (number_ != kNone)
            ::close(number_);
    }

    explicit operator bool() const { return number_ != kNone; }
    [[nodiscard]] int number() const { return number_; }

private:
    static constexpr int kNone = -1;
    int number_ = kNone;
};

} // namespace brovin::posix
