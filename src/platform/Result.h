// What a call made, or why it made nothing.
#pragma once

#include <cassert>
#include <string>
#include <utility>
#include <variant>

namespace platform {

/// Why something was not done: one clause for the user, "cannot be written: No space left".
struct Failure {
    std::string reason;
};

/// The value, or the reason why there is none. A result that nobody looks at is a compile error.
template <class T>
class [[nodiscard]] Result {
public:
    Result(T value) : content_(std::move(value)) {}
    Result(Failure failure) : content_(std::move(failure)) {}

    [[nodiscard]] explicit operator bool() const { return content_.index() == 0; }

    // The value; only after a test.
    [[nodiscard]] T& operator*() {
        assert(*this);
        return *std::get_if<0>(&content_);
    }
    [[nodiscard]] T* operator->() { return &**this; }

    /// Empty if there is a value.
    [[nodiscard]] std::string reason() const {
        const Failure* const failure = std::get_if<1>(&content_);
        return failure != nullptr ? failure->reason : std::string();
    }
    /// To pass on; only after a test.
    [[nodiscard]] Failure failure() const { return {reason()}; }

private:
    std::variant<T, Failure> content_;
};

/// Success, or the reason why not.
template <>
class [[nodiscard]] Result<void> {
public:
    Result() = default;
    Result(Failure failure) : reason_(std::move(failure.reason)) { assert(!reason_.empty()); }

    [[nodiscard]] explicit operator bool() const { return reason_.empty(); }
    [[nodiscard]] const std::string& reason() const { return reason_; } ///< empty for success
    /// To pass on; only after a test.
    [[nodiscard]] Failure failure() const { return {reason_}; }

private:
    std::string reason_;
};

} // namespace platform
