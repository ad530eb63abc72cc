#pragma once

#include <string>
#include <utility>
#include <variant>

namespace brovin::platform {

/// Why an operation of the machine failed: the system's error number and its description, in the system's
/// words. For messages and reports; callers that branch use an enumeration instead.
struct Failure {
    int number = 0;
    std::string reason;
};

/// A value, or why there is none: what the machine says, or a description of the caller's own.
template <class T, class E = Failure>
class [[nodiscard]] Result {
public:
    Result(T value) : held_(std::move(value)) {}
    Result(E failure) : held_(std::move(failure)) {}

    explicit operator bool() const { return std::holds_alternative<T>(held_); }
    T& operator*() & { return *std::get_if<T>(&held_); }
    const T& operator*() const& { return *std::get_if<T>(&held_); }
    /// Of a result that is about to go: the value itself, so that nothing dangles.
    T operator*() && { return std::move(*std::get_if<T>(&held_)); }
    T* operator->() { return std::get_if<T>(&held_); }
    const T* operator->() const { return std::get_if<T>(&held_); }
    [[nodiscard]] const E& failure() const { return *std::get_if<E>(&held_); }

private:
    std::variant<T, E> held_;
};

/// The value of an operation that has none to give.
struct Done {};
using Status = Result<Done>;

} // namespace brovin::platform
