#pragma once

#include <functional>
#include <utility>

namespace brovin::character {

/// Asks the outside, once, to be called soon.
class Attention {
public:
    explicit Attention(std::function<void()> ask) : ask_(std::move(ask)) {}

    void ask() {
        if (std::exchange(asked_, true))
            return;
        if (ask_)
            ask_();
    }

    /// While the outside is calling it need not be asked.
    void beginCall() { asked_ = true; }
    void endCall() { asked_ = false; }

private:
    std::function<void()> ask_;
    bool asked_ = false;
};

} // namespace brovin::character
