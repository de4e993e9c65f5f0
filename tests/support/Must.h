#pragma once

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "platform/Result.h"

namespace tarnbridge::test {

/// The value, or the end of the test program with a word of why.
template <typename T>
T Must(Result<T> result) {
    if (!result) {
        std::fprintf(stderr, "%s\n", result.Failure().text.c_str());
        std::abort();
    }
    return std::move(*result);
}

}  // namespace tarnbridge::test
