#pragma once

#include <utility>
#include <variant>

namespace brovin::character {

/// A value, or why there is none.
template <class T, class E>
class [[nodiscard]] Outcome {
public:
    Outcome(T value) : held_(std::in_place_index<0>, std::move(value)) {}
    Outcome(E error) : held_(std::in_place_index<1>, std::move(error)) {}

    explicit operator bool() const { return held_.index() == 0; }
    T& operator*() { return *std::get_if<0>(&held_); }
    const T& operator*() const { return *std::get_if<0>(&held_); }
    T* operator->() { return std::get_if<0>(&held_); }
    const T* operator->() const { return std::get_if<0>(&held_); }
    [[nodiscard]] const E& error() const { return *std::get_if<1>(&held_); }

private:
    std::variant<T, E> held_;
};

} // namespace brovin::character
