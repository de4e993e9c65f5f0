#pragma once

#include <string>
#include <utility>
#include <variant>

namespace tarnbridge {

/// Why a call of the operating system failed: what was tried with which name, and the system's own words.
struct SystemFailure {
    int code = 0;      ///< errno, or the system's number
    std::string text;  ///< such as "cannot open /dev/x: No such file or directory"
};

/// A value, or why there is none. Used where the operating system is reached.
template <typename T>
class Result {
public:
    Result(T value) : content_(std::move(value)) {}                  // NOLINT(google-explicit-constructor)
    Result(SystemFailure failure) : content_(std::move(failure)) {}  // NOLINT(google-explicit-constructor)

    explicit operator bool() const { return std::holds_alternative<T>(content_); }
    T& operator*() { return std::get<T>(content_); }
    const T& operator*() const { return std::get<T>(content_); }
    T* operator->() { return &std::get<T>(content_); }
    const T* operator->() const { return &std::get<T>(content_); }
    const SystemFailure& Failure() const { return std::get<SystemFailure>(content_); }

private:
    std::variant<T, SystemFailure> content_;
};

/// Success, or why not.
using Outcome = Result<std::monostate>;

}  // namespace tarnbridge
